#include "core/planning/BoardDrop.h"

#include "core/infra/cSharedLogging.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"

using namespace Qt::StringLiterals;

namespace {

/// The chapter whose list has the scene there: what the scene says of itself may be another one.
std::shared_ptr<clsChapter> chapterAt(const BoardTables& tables, qint32 column) {
  const auto listed = g_Project->ChapterByIndex(tables.chapterAt(column));
  const auto scene = g_Project->SceneByID(tables.sceneAt(column));
  return listed && listed->SceneIndex(scene->ID()) > 0 ? listed : g_Project->ChapterByID(scene->BelongsToChID);
}

bool move(const BoardTables& tables, qint32 fromColumn, qint32 toColumn) {
  const auto moved = g_Project->SceneByID(tables.sceneAt(fromColumn));
  const auto target = g_Project->SceneByID(tables.sceneAt(toColumn));
  const auto from = chapterAt(tables, fromColumn);
  const auto into = chapterAt(tables, toColumn);
  // Looked up before the scene leaves, so that within a chapter it ends where it was put down.
  const qint32 index = into->SceneIndex(target->ID());
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
    scene->SetViewpointByID(tables.viewpointAt(to.row));
    change.viewpoint = true;
  }
  if (to.column != from.column && target->InScenes()) {
    change.place = move(tables, from.column, to.column);
  }
  return change;
}
