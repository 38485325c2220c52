#include "gui/shell/commands/CastCommands.h"

#include "core/infra/Toolkit.h"
#include "core/model/EntityDialogs.h"
#include "core/model/Globals.h"
#include "core/model/StoryCast.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsItem.h"
#include "core/model/clsLocation.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/sheets/frmList.h"
#include "gui/shell/main/MainPanes.h"
#include "gui/shell/main/ScenePane.h"
#include "gui/shell/main/SceneTabs.h"
#include "gui/shell/main/frmMain.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/toolkit/OverActiveWindow.h"
#include "gui/views/ListView.h"
#include "gui/views/modFillList.h"

using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "frmMain";

/// Who is added first narrates a scene without a viewpoint. What is in the scene already stays where it is.
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

/// The book's characters, locations and items, whole.
QByteArray castOf(const clsProject& book) {
  QByteArray told;
  const auto tell = [&told](const auto& all) {
    for (const auto& entity : all) {
      entity->DataAsXML(told);
    }
  };
  tell(book.Chars);
  tell(book.Locations);
  tell(book.Items);
  return told;
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
  bindTo("mnuEditChar", [this] { manage([](clsProject& book) { book.AddEditCharacters(0); }); });
  bindTo("mnuAddLocation", [this] { manageAndSave([](clsProject& book) { book.AddEditLocations(); }); });
  bindTo("mnuAddItem", [this] { manageAndSave([](clsProject& book) { book.AddEditItems(); }); });
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

// Whoever has only looked has nothing to save.
void CastCommands::manage(void (*open)(clsProject&)) {
  const bool wasUnsaved = main_.ProjectChanged.isUnsaved();
  const QByteArray before = castOf(*g_Project);
  open(*g_Project);
  showCast();
  if (!wasUnsaved && castOf(*g_Project) == before) {
    main_.ProjectChanged.setWritten();
    main_.showTitle();
  }
}

// The window of these saves the book as it goes.
void CastCommands::manageAndSave(void (*open)(clsProject&)) {
  open(*g_Project);
  showCast();
  if (g_Project->HasPlace() && !g_Project->HoldsUnsaved()) {
    main_.ProjectChanged.setWritten();
    main_.showTitle();
  }
}

/// What the book's cast has become, in rows, display and editors.
void CastCommands::showCast() {
  main_.ProjectChanged = true;
  main_.panes().FillSceneList(0);
  main_.showBook();
  g_Project->UpdateCombosInEditorWindows();
}

void CastCommands::addToSelectedScene(CastKind kind, int listType) {
  const qint32 id = main_.panes().scenes().SelectedSceneID();
  if (id == 0) {
    toolkit().MsgBox(u"Select a scene first"_s);
    return;
  }
  const OverActiveWindow<frmList> form;
  form->SetupFor(listType, false);
  const bool chosen = form.accepted();
  if (!form.isThere()) {
    return;
  }
  // Also who chooses nobody may have changed who there is.
  if (form->hasChangedBook()) {
    showCast();
  }
  const auto scene = g_Project->SceneByID(id);
  const QList<qint32> ids = chosen && scene->InScenes() ? form->selectedIDs() : QList<qint32>();
  if (ids.isEmpty()) {
    return;
  }
  for (const qint32 added : ids) {
    add(*scene, kind, added);
  }
  scene->Save();
  showChanged({id});
}

void CastCommands::editSelected(CastKind kind, const ListView& list) {
  if (!g_Project->IsBusy() && StoryCast::edit(kind, list.SelectedTag())) {
    showCast();
  }
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
  const qint32 scene = modFillList::listSceneID(list);
  if (scene == 0 || list.SelectedTag() < 1) {
    return;
  }
  g_Project->SceneByID(scene)->ChangeViewpointByID(list.SelectedTag());
  showChanged({scene});
}

void CastCommands::eachSelectedScene(void (*change)(clsScene&, CastKind, const QList<qint32>&)) {
  const QList<qint32> characters = listOf(CastKind::Character, false).SelectedTags();
  const QList<qint32> scenes = main_.panes().scenes().listScenes().SelectedTags();
  if (characters.isEmpty() || scenes.isEmpty()) {
    return;
  }
  for (const qint32 id : scenes) {
    const auto scene = g_Project->SceneByID(id);
    change(*scene, CastKind::Character, characters);
    scene->Save();
  }
  showChanged(scenes);
}

void CastCommands::showChanged(const QList<qint32>& sceneIDs) {
  main_.ProjectChanged = true;
  main_.panes().showChanged(sceneIDs);
  main_.showTitle();
  g_Project->UpdateCombosInEditorWindows();
}
