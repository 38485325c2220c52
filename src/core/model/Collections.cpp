#include "core/model/Collections.h"

#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsItem.h"
#include "core/model/clsLocation.h"
#include "core/model/clsScene.h"

namespace {

/// For locations and items.
constexpr auto kStandsBefore = [](const auto& a, const auto& b) { return a->SortOrder < b->SortOrder; };

}  // namespace

void clsScenes::setSceneByIndex(qint32 index, const Pointer& scene) {
  const Pointer before = SceneByIndex(index);
  if (!assign(index, scene)) {
    return;
  }
  if (before) {
    before->inScenes_ = false;
  }
  scene->inScenes_ = true;
}

void clsScenes::Addscene(const Pointer& scene) {
  add(scene);
  if (scene) {
    scene->inScenes_ = true;
  }
}

void clsScenes::RemoveSceneByID(qint32 id) {
  // A scene that comes back to a chapter has to come back to the project too.
  SceneByID(id)->inScenes_ = false;
  removeID(id);
  g_SceneChanges.MarkDeleted(id);
}

void clsScenes::Clear() {
  for (const Pointer& scene : *this) {
    scene->inScenes_ = false;
  }
  EntityCollection::Clear();
}

void clsChapters::RemoveChapterByIndex(qint32 index) {
  if (index <= Count()) {
    removeIndex(index);
  }
}

qint32 clsChapters::ChapterID(qint32 index) const {
  const Pointer chapter = ChapterByIndex(index);
  return chapter ? chapter->ID() : 0;
}

qint32 clsChapters::ChapterIndex(qint32 id) const {
  qint32 index = 0;
  for (const Pointer& chapter : *this) {
    ++index;
    if (chapter->ID() == id) {
      return index;
    }
  }
  return -1;
}

void clsLocations::sortByPlace() {
  sort(kStandsBefore);
}

void clsItems::sortByPlace() {
  sort(kStandsBefore);
}
