#include "gui/shell/commands/WindowCommands.h"

#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/planning/frmChart.h"
#include "gui/planning/frmStoryboard.h"
#include "gui/shell/commands/BookScenes.h"
#include "gui/shell/main/MainMenuBar.h"
#include "gui/shell/main/MainPanes.h"
#include "gui/shell/main/ProjectSession.h"
#include "gui/shell/main/ScenePane.h"
#include "gui/shell/main/frmMain.h"
#include "gui/shell/windows/frmDebug.h"
#include "gui/shell/windows/frmSceneList.h"
#include "gui/toolkit/GuardedSlot.h"

#include <QAction>
#include <QMenu>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "frmMain";

}  // namespace

WindowCommands::WindowCommands(frmMain& main) : main_(main) {
  QAction* const entry = main.menus().action(u"mnuListView"_s);
  entry->setCheckable(true);
  connect(main.menus().menu(u"mnuScene"_s), &QMenu::aboutToShow, this,
          guarded("mnuScene_Click", kModule, [this, entry] { entry->setChecked(sceneListIsUp()); }));
}

void WindowCommands::bind(MenuBindings& menu) {
  menu.bind("mnuListView", [this] { mnuListView_Click(); });
  menu.bind("mnuStoryboard", [this] { mnuStoryboard_Click(); });
  menu.bind("mnuChart", [this] { mnuChart_Click(); });
  menu.bind("mnuShowDebug", [this] { mnuShowDebug_Click(); });
}

bool WindowCommands::sceneListIsUp() const {
  return ExternalSceneList && ExternalSceneList->isVisible();
}

void WindowCommands::mnuListView_Click() {
  if (g_Project->IsBusy()) {
    return;
  }
  if (sceneListIsUp() && !ExternalSceneList->isMinimized()) {
    ExternalSceneList->hide();
    return;
  }
  if (ExternalSceneList) {
    ExternalSceneList->UpdateItem();
    ExternalSceneList->bringForward();
  } else {
    createSceneList();
    ExternalSceneList->bringForward();
    ExternalSceneList->SelectScene(main_.panes().scenes().SelectedSceneID());
  }
}

void WindowCommands::createSceneList() {
  ExternalSceneList = new frmSceneList(&main_);
  frmSceneList* const list = ExternalSceneList;
  connect(list, &frmSceneList::ClosedForm, this,
          guarded("ExternalSceneList_ClosedForm", kModule, this, &WindowCommands::ExternalSceneList_ClosedForm));
  connect(list, &frmSceneList::MovedScenes, this,
          guarded("ExternalSceneList_MovedScenes", kModule, this, &WindowCommands::ExternalSceneList_MovedScenes));
  connect(list, &frmSceneList::statusWanted, this,
          guarded("cmdChangeSelected_Click", "frmSceneList", this, &WindowCommands::changeStatus));
  connect(list, &frmSceneList::sceneOpened, this,
          guarded("ListView1_DblClick", "frmSceneList", [this] { main_.followEditing(); }));
  connect(&main_, &frmMain::listsCleared, list, guarded("ClearLists", kModule, [list] { list->clear(); }));
  connect(&main_, &frmMain::refreshed, list, guarded("RefreshAll", kModule, [list] { list->refresh(); }));
  connect(&main_, &frmMain::layoutStored, list, guarded("StoreLayout", kModule, [list] {
    if (list->isVisible()) {
      list->storeLayout();
    }
  }));
}

void WindowCommands::ExternalSceneList_ClosedForm() {
  ExternalSceneList->deleteLater();
  ExternalSceneList = nullptr;
}

void WindowCommands::ExternalSceneList_MovedScenes() {
  main_.RefreshAll();
}

void WindowCommands::changeStatus(const QList<qint32>& scenes, qint16 status) {
  if (g_Project->IsBusy() || scenes.isEmpty()) {
    return;
  }
  bool refused = false;
  for (const qint32 id : scenes) {
    refused = !BookScenes::change(id, [status](clsScene& scene) { scene.Status = status; }) || refused;
  }
  main_.ProjectChanged = true;
  g_Project->UpdateCombosInEditorWindows();
  // A save may ask, and much can be done meanwhile.
  if (ExternalSceneList) {
    ExternalSceneList->UpdateItem();
  }
  main_.session().saveChange();
  BookScenes::tellRefused(refused);
}

void WindowCommands::mnuStoryboard_Click() {
  if (g_Project->IsBusy()) {
    return;
  }
  if (!Storyboard) {
    createStoryboard();
  }
  Storyboard->bringForward();
}

void WindowCommands::createStoryboard() {
  Storyboard = new frmStoryboard(&main_);
  frmStoryboard* const board = Storyboard;
  connect(board, &frmStoryboard::MadeChange, this,
          guarded("Storyboard_MadeChange", kModule, this, &WindowCommands::Storyboard_MadeChange));
  connect(board, &frmStoryboard::sceneOpened, this,
          guarded("mnuEditScene_Click", "frmStoryboard", [this] { main_.followEditing(); }));
  connect(&main_, &frmMain::listsCleared, board, guarded("ClearLists", kModule, [board] { board->clear(); }));
  connect(&main_, &frmMain::refreshed, board, guarded("RefreshAll", kModule, [board] { board->refresh(); }));
}

void WindowCommands::Storyboard_MadeChange() {
  main_.ProjectChanged = true;
  main_.RefreshAll();
  g_Project->UpdateCombosInEditorWindows();
}

void WindowCommands::mnuChart_Click() {
  if (g_Project->IsBusy()) {
    return;
  }
  if (!Chart) {
    createChart();
  }
  Chart->bringForward();
}

void WindowCommands::createChart() {
  Chart = new frmChart(&main_);
  frmChart* const chart = Chart;
  connect(&main_, &frmMain::listsCleared, chart, guarded("ClearLists", kModule, [chart] { chart->clear(); }));
  connect(&main_, &frmMain::refreshed, chart, guarded("RefreshAll", kModule, [chart] { chart->refresh(); }));
  connect(&main_, &frmMain::layoutStored, chart, guarded("StoreLayout", kModule, [chart] { chart->storeLayout(); }));
}

void WindowCommands::mnuShowDebug_Click() {
  if (!DebugWindow) {
    DebugWindow = new frmDebug(&main_);
  }
  DebugWindow->show();
  DebugWindow->raise();
  DebugWindow->activateWindow();
}
