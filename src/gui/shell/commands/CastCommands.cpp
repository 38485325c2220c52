#include "gui/shell/commands/CastCommands.h"

#include "core/infra/Numbers.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/model/EntityDialogs.h"
#include "core/model/Globals.h"
#include "core/model/StoryCast.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/shell/commands/BookCast.h"
#include "gui/shell/main/MainPanes.h"
#include "gui/shell/main/ProjectSession.h"
#include "gui/shell/main/ScenePane.h"
#include "gui/shell/main/SceneTabs.h"
#include "gui/shell/main/frmMain.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/views/ListView.h"
#include "gui/views/modFillList.h"

using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "frmMain";

/// The windows of the other two save the book by themselves.
void manageCharacters(clsProject& book) {
  book.AddEditCharacters(0);
  if (book.HasPlace() && book.EditedSinceSave() && !book.ReloadWanted()) {
    book.SaveQN4(false);
  }
}

}  // namespace

CastCommands::CastCommands(frmMain& main) : main_(main) {
  connect(&main.panes().scenes().tabStrip1(), &SceneTabs::listsBuilt, this,
          guarded("TabStrip1_Build", kModule, this, &CastCommands::joinLists));
}

void CastCommands::bind(MenuBindings& menu) {
  const auto bindTo = [&](const char* name, auto command) {
    menu.bind(name, [command] {
      if (!g_Project->IsBusy()) {
        command();
      }
    });
  };
  bindTo("mnuEditChar", [this] { manage(&manageCharacters); });
  bindTo("mnuAddLocation", [this] { manage([](clsProject& book) { book.AddEditLocations(); }); });
  bindTo("mnuAddItem", [this] { manage([](clsProject& book) { book.AddEditItems(); }); });
  for (const char* const entry : {"mnuAddCharToScene", "mnuAddChar"}) {
    bindTo(entry, [this] { addToSelectedScene(CastKind::Character, kListCharacters); });
  }
  bindTo("mnuAddLocToCurrentScene", [this] { addToSelectedScene(CastKind::Location, kListLocations); });
  bindTo("mnuAddItemToCurrentScene", [this] { addToSelectedScene(CastKind::Item, kListItems); });
  bindTo("mnuEditSelectedChar", [this] { editSelected(CastKind::Character, listOf(CastKind::Character, true)); });
  bindTo("mnuRemoveCharFromScene", [this] { removeSelected(CastKind::Character); });
  bindTo("mnuRemoveLocation", [this] { removeSelected(CastKind::Location); });
  bindTo("mnuRemoveItem", [this] { removeSelected(CastKind::Item); });
  bindTo("mnuSetVP", [this] { mnuSetVP_Click(); });
  bindTo("mnuAddCharToAll", [this] { eachSelectedScene(&StoryMoves::addToScene); });
  bindTo("mnuRemoveCharFromAll", [this] { eachSelectedScene(&StoryMoves::removeFromScene); });
}

ListView& CastCommands::listOf(CastKind kind, bool inScene) const {
  const SceneTabs::CastLists& lists = main_.panes().scenes().tabStrip1().castLists(kind);
  return inScene ? *lists.inScene : *lists.all;
}

void CastCommands::joinLists() {
  for (const CastKind kind : {CastKind::Character, CastKind::Location, CastKind::Item}) {
    for (const bool inScene : {true, false}) {
      const ListView& list = listOf(kind, inScene);
      const auto open = guarded("ListCast_DblClick", kModule, [this, kind, &list] { editSelected(kind, list); });
      connect(&list, &ListView::rowOpened, this, open);
      connect(&list, &ListView::enterPressed, this, open);
    }
  }
}

// Whoever has only looked has nothing to save but what was unsaved before.
void CastCommands::manage(void (*open)(clsProject&)) {
  const bool wasUnsaved = main_.ProjectChanged.isUnsaved();
  open(*g_Project);
  BookCast::show(main_);
  if (g_Project->EditedSinceSave() || g_Project->ReloadWanted()) {
    return;  // its save was given up just now
  }
  if (wasUnsaved) {
    main_.session().saveChange();
    return;
  }
  main_.ProjectChanged.setWritten();
  main_.showTitle();
}

void CastCommands::addToSelectedScene(CastKind kind, int listType) {
  const qint32 id = main_.panes().scenes().SelectedSceneID();
  if (id == 0) {
    toolkit().MsgBox(u"Select a scene first"_s);
    return;
  }
  const BookCast::Choice choice = BookCast::choose(main_, listType);
  const auto scene = g_Project->SceneByID(id);
  const QList<qint32> ids = scene->InScenes() ? choice.ids : QList<qint32>();
  if (ids.isEmpty()) {
    if (choice.changedBook) {
      main_.session().saveChange();
    }
    return;
  }
  StoryMoves::addToScene(*scene, kind, ids);
  scene->Save();
  showChanged({id});
}

void CastCommands::editSelected(CastKind kind, const ListView& list) {
  if (g_Project->IsBusy() || !StoryCast::edit(kind, list.SelectedTag())) {
    return;
  }
  if (kind == CastKind::Character && Numbers::ToBool(Settings().sGet(u"HighlightChar"_s))) {
    g_Project->UnMarkAllCharInEditorWindows();
    g_Project->MarkAllCharInEditorWindows();
  }
  BookCast::show(main_);
  main_.session().saveChange();
}

// Who narrates goes last: whoever stands first then takes the place.
void CastCommands::removeSelected(CastKind kind) {
  const ListView& list = listOf(kind, true);
  const qint32 id = modFillList::listSceneID(list);
  const QList<qint32> removed = list.SelectedTags();
  if (id == 0 || removed.isEmpty()) {
    return;
  }
  const auto scene = g_Project->SceneByID(id);
  if (!scene->InScenes()) {
    return;
  }
  if (kind == CastKind::Character && scene->Locked()) {
    toolkit().MsgBox(u"Cannot change scene, it's being edited."_s);
    return;
  }
  StoryMoves::removeFromScene(*scene, kind, removed);
  scene->Save();
  showChanged({id});
}

void CastCommands::mnuSetVP_Click() {
  const ListView& list = listOf(CastKind::Character, true);
  const qint32 id = modFillList::listSceneID(list);
  const auto scene = g_Project->SceneByID(id);
  if (!scene->InScenes() || list.SelectedTag() < 1) {
    return;
  }
  scene->ChangeViewpointByID(list.SelectedTag());
  showChanged({id});
}

void CastCommands::eachSelectedScene(void (*change)(clsScene&, CastKind, const QList<qint32>&)) {
  const QList<qint32> characters = listOf(CastKind::Character, false).SelectedTags();
  const QList<qint32> scenes = main_.panes().scenes().listScenes().SelectedTags();
  if (characters.isEmpty() || scenes.isEmpty()) {
    return;
  }
  for (const qint32 id : scenes) {
    const auto scene = g_Project->SceneByID(id);
    if (scene->InScenes()) {
      change(*scene, CastKind::Character, characters);
      scene->Save();
    }
  }
  showChanged(scenes);
}

void CastCommands::showChanged(const QList<qint32>& sceneIDs) {
  main_.ProjectChanged = true;
  main_.panes().showChanged(sceneIDs);
  g_Project->UpdateCombosInEditorWindows();
  main_.session().saveChange();
}
