#include "gui/shell/main/RowDrags.h"

#include "core/infra/Guard.h"
#include "core/infra/Toolkit.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/shell/main/ChapterPane.h"
#include "gui/shell/main/MainPanes.h"
#include "gui/shell/main/ScenePane.h"
#include "gui/shell/main/SceneTabs.h"
#include "gui/shell/main/frmMain.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/views/ListView.h"
#include "gui/views/modFillList.h"

#include <QMimeData>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "frmMain";

/// Nothing moves while a load or a save walks over the book.
bool mayMove() {
  return !g_Project->IsBusy();
}

}  // namespace

RowDrags::RowDrags(frmMain& main) : QObject(&main), main_(main) {
  joinSceneList();
  joinChapterList();
  connect(&main.panes().scenes().tabStrip1(), &SceneTabs::listsBuilt, this,
          guarded("TabStrip1_Build", kModule, this, &RowDrags::joinCastLists));
}

void RowDrags::ClearDragFlags() {
  DraggingScenes = DraggingChapters = DraggingChars = DraggingItems = DraggingLocations = false;
}

bool& RowDrags::flagOf(CastKind kind) {
  switch (kind) {
    case CastKind::Character:
      return DraggingChars;
    case CastKind::Location:
      return DraggingLocations;
    default:
      return DraggingItems;
  }
}

void RowDrags::joinSceneList() {
  ListView& list = main_.panes().scenes().listScenes();
  list.setDrags({[this, &list] {
                   ClearDragFlags();
                   DraggingScenes = true;
                   DragSourceChapterID = g_Project->SceneByID(list.SelectedTags().value(0))->BelongsToChID;
                   return Qt::MoveAction;
                 },
                 [this](int row) { return ListScenes_OLEDragOver(row); },
                 [this](const QList<qint32>& ids, qint32 target) {
                   Guard("ListScenes_OLEDragDrop", kModule)([&] { ListScenes_OLEDragDrop(ids, target); });
                 }});
  connect(&list, &ListView::moveWanted, this, guarded("ListScenes_KeyDown", kModule, this, &RowDrags::moveScene));
  connect(&list, &ListView::moveToNeighbourWanted, this,
          guarded("ListScenes_KeyDown", kModule, this, &RowDrags::moveScenesToNeighbour));
}

void RowDrags::joinChapterList() {
  ListView& list = main_.panes().chapters().listChapters();
  list.setDrags({[this] {
                   ClearDragFlags();
                   DraggingChapters = true;
                   return Qt::MoveAction;
                 },
                 [this](int row) { return ListChapters_OLEDragOver(row); },
                 [this](const QList<qint32>& ids, qint32 target) {
                   Guard("ListChapters_OLEDragDrop", kModule)([&] { ListChapters_OLEDragDrop(ids, target); });
                 }});
  connect(&list, &ListView::moveWanted, this, guarded("ListChapters_KeyDown", kModule, this, &RowDrags::moveChapter));
}

void RowDrags::joinCastLists() {
  for (const CastKind kind : {CastKind::Character, CastKind::Location, CastKind::Item}) {
    const SceneTabs::CastLists& lists = main_.panes().scenes().tabStrip1().castLists(kind);
    joinCastList(*lists.inScene, kind, true);
    joinCastList(*lists.all, kind, false);
  }
}

// Dropping on the list of a scene adds, on the list of all it removes; so do the keys of the list on the other side.
void RowDrags::joinCastList(ListView& list, CastKind kind, bool inScene) {
  const auto drop = [this, kind, inScene](const QList<qint32>& ids, qint32) {
    Guard("ListCast_OLEDragDrop", kModule)([&] { ListCast_OLEDragDrop(kind, inScene, ids); });
  };
  list.setDrags({[this, kind] {
                   ClearDragFlags();
                   flagOf(kind) = true;
                   return Qt::CopyAction;
                 },
                 [this, kind](int) { return flagOf(kind) && mayMove() ? Qt::CopyAction : Qt::IgnoreAction; }, drop});
  connect(&list, &ListView::keyUp, this, guarded("ListCast_KeyUp", kModule, [this, &list, kind, inScene](int key) {
    Qt::DropAction effect{};
    if (key != (inScene ? Qt::Key_Delete : Qt::Key_Insert) || !mayMove() || !list.pickUp(&effect)) {
      return;
    }
    if (inScene) {
      ListCast_OLEDragDrop(kind, false, list.SelectedTags());
    } else {
      dropCastOnScenes(kind, list.SelectedTags());
    }
  }));
}

Qt::DropAction RowDrags::ListScenes_OLEDragOver(int row) const {
  if (!mayMove()) {
    return Qt::IgnoreAction;
  }
  if (DraggingScenes) {
    return main_.panes().scenes().listScenes().highlightForDrop(row) ? Qt::MoveAction : Qt::IgnoreAction;
  }
  return DraggingChars || DraggingItems || DraggingLocations ? Qt::CopyAction : Qt::IgnoreAction;
}

void RowDrags::ListScenes_OLEDragDrop(const QList<qint32>& ids, qint32 target) {
  if (DraggingScenes) {
    dropScenesInChapter(ids, target);
    return;
  }
  for (const CastKind kind : {CastKind::Character, CastKind::Location, CastKind::Item}) {
    if (flagOf(kind)) {
      dropCastOnScenes(kind, ids);
    }
  }
}

void RowDrags::dropScenesInChapter(const QList<qint32>& ids, qint32 target) {
  const auto chapter = g_Project->ChapterByID(main_.panes().scenes().shownChapterID());
  const qint32 position = chapter->SceneIndex(target);
  // A scene that is dropped on itself stays where it is.
  if (position < 1 || ids == QList{target}) {
    return;
  }
  StoryMoves::moveScenes(*chapter, ids, position);
  for (const qint32 id : chapter->SceneIDs()) {
    g_SceneChanges.MarkUpdated(id);
  }
  saveMove();
}

void RowDrags::dropCastOnScenes(CastKind kind, const QList<qint32>& ids) {
  const QList<qint32> scenes = main_.panes().scenes().listScenes().SelectedTags();
  if (scenes.isEmpty()) {
    return;
  }
  for (const qint32 id : scenes) {
    const auto scene = g_Project->SceneByID(id);
    StoryMoves::addToScene(*scene, kind, ids);
    scene->Save();
  }
  main_.panes().showChanged(scenes);
  g_Project->UpdateCombosInEditorWindows();
  main_.ProjectChanged = true;
  main_.session().saveChange();
}

Qt::DropAction RowDrags::ListChapters_OLEDragOver(int row) const {
  if (!(DraggingScenes || DraggingChapters) || !mayMove()) {
    return Qt::IgnoreAction;
  }
  ListView& list = main_.panes().chapters().listChapters();
  const bool onRow = list.highlightForDrop(row);
  const bool home = DraggingScenes && list.tagAt(row) == DragSourceChapterID;
  return onRow && !home ? Qt::MoveAction : Qt::IgnoreAction;
}

void RowDrags::ListChapters_OLEDragDrop(const QList<qint32>& ids, qint32 target) {
  ChapterPane& chapters = main_.panes().chapters();
  if (target < 1) {
    return;
  }
  if (DraggingScenes) {
    StoryMoves::moveScenesTo(*g_Project->ChapterByID(target), ids);
    chapters.SelectChapter(target);
  } else if (DraggingChapters && ids != QList{target}) {
    chapters.SelectChapter(StoryMoves::moveChapters(ids, target));
  } else {
    return;
  }
  saveMove();
}

void RowDrags::ListCast_OLEDragDrop(CastKind kind, bool intoScene, const QList<qint32>& ids) {
  const ListView& list = *main_.panes().scenes().tabStrip1().castLists(kind).inScene;
  const qint32 id = modFillList::listSceneID(list);
  if (id == 0 || !flagOf(kind)) {
    return;
  }
  const auto scene = g_Project->SceneByID(id);
  intoScene ? StoryMoves::addToScene(*scene, kind, ids) : StoryMoves::removeFromScene(*scene, kind, ids);
  scene->Save();
  main_.panes().showChanged({id});
  main_.ProjectChanged = true;
  main_.session().saveChange();
  g_Project->UpdateCombosInEditorWindows();
}

void RowDrags::saveMove() {
  main_.ProjectChanged = true;
  main_.session().saveChange();
  main_.RefreshAll();
  g_Project->UpdateCombosInEditorWindows();
}

bool RowDrags::moveRow(ListView& list, int step, void (RowDrags::*drop)(const QList<qint32>&, qint32)) {
  const int target = list.SelectedRow() + step;
  Qt::DropAction effect{};
  if (list.SelectedTags().size() != 1 || target < 0 || target >= list.rowCount() || !mayMove() ||
      !list.pickUp(&effect)) {
    return false;
  }
  (this->*drop)(list.SelectedTags(), list.tagAt(target));
  return true;
}

void RowDrags::moveScene(int step) {
  ListView& list = main_.panes().scenes().listScenes();
  if (!moveRow(list, step, &RowDrags::ListScenes_OLEDragDrop) && list.SelectedTags().size() > 1) {
    main_.showMessage(u"Select one scene to move it up or down."_s);
  }
}

void RowDrags::moveChapter(int step) {
  ListView& list = main_.panes().chapters().listChapters();
  if (!moveRow(list, step, &RowDrags::ListChapters_OLEDragDrop) && list.SelectedTags().size() > 1) {
    main_.showMessage(u"Select one chapter to move it up or down."_s);
  }
}

void RowDrags::moveScenesToNeighbour(int step) {
  ListView& scenes = main_.panes().scenes().listScenes();
  const ListView& chapters = main_.panes().chapters().listChapters();
  const int target = chapters.rowOfTag(main_.panes().scenes().shownChapterID()) + step;
  Qt::DropAction effect{};
  if (target < 0 || target >= chapters.rowCount() || !mayMove() || !scenes.pickUp(&effect)) {
    return;
  }
  ListChapters_OLEDragDrop(scenes.SelectedTags(), chapters.tagAt(target));
}
