#include "core/model/StoryMoves.h"

#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Null for one that isn't in the book: put into a chapter it would become a new scene.
std::shared_ptr<clsScene> sceneInBook(qint32 id) {
  const auto scene = g_Project->SceneByID(id);
  return scene->InScenes() ? scene : nullptr;
}

void add(clsScene& scene, CastKind kind, qint32 id) {
  switch (kind) {
    case CastKind::Character:
      if (scene.ViewPointID() < 1) {
        scene.SetViewpointByID(id);
      } else if (!scene.CharIDs().contains(id)) {
        scene.AddCharByID(id);
      }
      break;
    case CastKind::Location:
      if (!scene.LocationIDs().contains(id)) {
        scene.AddLocationByID(id);
      }
      break;
    case CastKind::Item:
      if (!scene.ItemIDs().contains(id)) {
        scene.AddItemByID(id);
      }
  }
}

void remove(clsScene& scene, CastKind kind, qint32 id) {
  switch (kind) {
    case CastKind::Character:
      scene.RemoveCharByID(id);
      break;
    case CastKind::Location:
      scene.RemoveLocationByID(id);
      break;
    case CastKind::Item:
      scene.RemoveItemByID(id);
      break;
  }
}

}  // namespace

namespace StoryMoves {

void moveScenes(clsChapter& chapter, const QList<qint32>& ids, qint32 position) {
  for (const qint32 id : ids) {
    const auto scene = sceneInBook(id);
    if (scene && chapter.SceneIDs().contains(id)) {
      chapter.RemoveSceneByID(id);
      chapter.InsertScene(scene, position);
      scene->Save();
    }
  }
}

void moveScenesTo(clsChapter& target, const QList<qint32>& ids) {
  for (const qint32 id : ids) {
    if (const auto scene = sceneInBook(id)) {
      g_Project->ChapterByID(scene->BelongsToChID)->RemoveSceneByID(id);
      target.Addscene(scene);
      scene->Save();
    }
  }
}

qint32 moveChapters(const QList<qint32>& ids, qint32 target) {
  const qint32 position = g_Project->Chapters.ChapterIndex(target);
  QList<qint32> walk = ids;
  if (position < 1) {
    return 0;
  }
  if (position != g_Project->ChapterCount()) {
    std::reverse(walk.begin(), walk.end());
  }
  qint32 last = 0;
  for (const qint32 id : walk) {
    if (g_Project->Chapters.ChapterIndex(id) < 1) {
      continue;
    }
    const auto chapter = g_Project->ChapterByID(id);
    g_Project->RemoveChapterByID(id);
    g_Project->InsertChapter(chapter, position);
    for (const qint32 sceneID : chapter->SceneIDs()) {
      g_SceneChanges.MarkUpdated(sceneID);
    }
    last = id;
  }
  return last;
}

void addToScene(clsScene& scene, CastKind kind, const QList<qint32>& ids) {
  for (const qint32 id : ids) {
    add(scene, kind, id);
  }
}

void removeFromScene(clsScene& scene, CastKind kind, const QList<qint32>& ids) {
  for (const qint32 id : ids) {
    remove(scene, kind, id);
  }
}

}  // namespace StoryMoves
