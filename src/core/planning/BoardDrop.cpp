#include "core/planning/BoardDrop.h"

#include "core/infra/cSharedLogging.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Nobody, or a character of the book.
bool canNarrate(qint32 id) {
  const auto& cast = g_Project->Chars;
  return id == 0 ||
         std::any_of(cast.begin(), cast.end(), [id](const auto& character) { return character->ID() == id; });
}

bool giveViewpoint(clsScene& scene, qint32 id) {
  if (!canNarrate(id)) {
    return false;
  }
  scene.SetViewpointByID(id);
  return true;
}

bool move(const std::shared_ptr<clsScene>& moved, clsScene& target) {
  const auto from = g_Project->ChapterByID(moved->BelongsToChID);
  const auto into = g_Project->ChapterByID(target.BelongsToChID);
  // Looked up before the scene leaves, so that within a chapter it ends where it was put down.
  const qint32 index = into->SceneIndex(target.ID());
  if (index < 1) {
    Logging().LogEvent(
        u"Tried to move scene in storyboard, but scene we dropped on wasn't present in chapter we dropped on. Odd."_s);
    return false;
  }
  from->RemoveSceneByID(moved->ID());
  into->InsertScene(moved, index);
  moved->Save();
  return true;
}

}  // namespace

BoardDrop::Change BoardDrop::drop(const BoardTables& tables, BoardGrid::Cell from, BoardGrid::Cell to) {
  const auto scene = g_Project->SceneByID(tables.sceneAt(from.column));
  const auto target = g_Project->SceneByID(tables.sceneAt(to.column));
  Change change;
  if (!scene->InScenes()) {
    return change;
  }
  if (to.row != from.row && tables.isRow(to.row)) {
    change.viewpoint = giveViewpoint(*scene, tables.viewpointAt(to.row));
  }
  if (to.column != from.column && target->InScenes()) {
    change.place = move(scene, *target);
  }
  return change;
}
