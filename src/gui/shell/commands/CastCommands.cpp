#include "gui/shell/commands/CastCommands.h"

#include "core/infra/Toolkit.h"
#include "core/model/Globals.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsItem.h"
#include "core/model/clsLocation.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/shell/main/MainPanes.h"
#include "gui/shell/main/ScenePane.h"
#include "gui/shell/main/SceneTabs.h"
#include "gui/shell/main/frmMain.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/views/ListView.h"
#include "gui/views/modFillList.h"

using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "frmMain";

/// The sheet of what has this ID. True when it was confirmed.
bool edit(CastKind kind, qint32 id) {
  switch (kind) {
    case CastKind::Character:
      return g_Project->CharByID(id)->Edit(0);
    case CastKind::Location:
      return g_Project->LocationByID(id)->Edit();
    default:
      return g_Project->ItemByID(id)->Edit();
  }
}

}  // namespace

CastCommands::CastCommands(frmMain& main) : main_(main) {
  connect(&main.panes().scenes().tabStrip1(), &SceneTabs::listsBuilt, this,
          guarded("TabStrip1_Build", kModule, this, &CastCommands::joinLists));
}

void CastCommands::bind(MenuBindings& menu) {
  menu.bind("mnuEditSelectedChar", [this] { editSelected(CastKind::Character, listOf(CastKind::Character, true)); });
  menu.bind("mnuRemoveCharFromScene", [this] { mnuRemoveCharFromScene_Click(); });
  menu.bind("mnuSetVP", [this] { mnuSetVP_Click(); });
  menu.bind("mnuAddCharToAll", [this] { mnuAddCharToAll_Click(); });
  menu.bind("mnuRemoveCharFromAll", [this] { mnuRemoveCharFromAll_Click(); });
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

void CastCommands::editSelected(CastKind kind, const ListView& list) {
  const qint32 id = list.SelectedTag();
  if (id < 1 || g_Project->IsBusy() || !edit(kind, id)) {
    return;
  }
  main_.ProjectChanged = true;
  main_.panes().FillSceneList(0);
  main_.showTitle();
}

// Who narrates goes last: whoever stands first then takes the place.
void CastCommands::mnuRemoveCharFromScene_Click() {
  const ListView& list = listOf(CastKind::Character, true);
  const qint32 id = modFillList::listSceneID(list);
  if (id == 0) {
    return;
  }
  const auto scene = g_Project->SceneByID(id);
  if (scene->Locked()) {
    toolkit().MsgBox(u"Cannot change scene, it's being edited."_s);
    return;
  }
  StoryMoves::removeFromScene(*scene, CastKind::Character, list.SelectedTags());
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

void CastCommands::mnuAddCharToAll_Click() {
  eachSelectedScene(&StoryMoves::addToScene);
}

void CastCommands::mnuRemoveCharFromAll_Click() {
  eachSelectedScene(&StoryMoves::removeFromScene);
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
