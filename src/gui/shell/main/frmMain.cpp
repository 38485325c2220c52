#include "gui/shell/main/frmMain.h"

#include "core/infra/Guard.h"
#include "core/infra/Paths.h"
#include "core/infra/RuntimeError.h"
#include "core/infra/Toolkit.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/shell/life/InstanceCheck.h"
#include "gui/shell/life/StartUp.h"
#include "gui/shell/main/ChangeScan.h"
#include "gui/shell/main/ChapterPane.h"
#include "gui/shell/main/MainMenuBar.h"
#include "gui/shell/main/MainPanes.h"
#include "gui/shell/main/PaneLayout.h"
#include "gui/shell/main/ScenePane.h"
#include "gui/shell/main/SceneTabs.h"
#include "gui/shell/main/StatusPanels.h"
#include "gui/views/ListView.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QMenu>
#include <QMenuBar>
#include <QShortcut>
#include <QStatusBar>

#include <chrono>

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

frmMain::frmMain(QString commandLine)
    : endProcess([] { QCoreApplication::quit(); }),
      commandLine_(std::move(commandLine)),
      instance_(std::make_unique<InstanceCheck>()),
      project_(*this),
      tools_(*this),
      statistics_(*this) {
  setObjectName(u"frmMain"_s);
  setWindowTitle(u"Quillane 4 by Brackenlight Software"_s);
  createParts();
  createShortcuts();
  connectSignals();
  menus_->apply(menusBeforeStart());
  setProjectFieldsEnabled(false);
}

frmMain::~frmMain() = default;

void frmMain::createParts() {
  setMinimumSize(PaneLayout::pixelsAtLeast(PaneLayout::kMinimumWidth),
                 PaneLayout::pixelsAtLeast(PaneLayout::kMinimumHeight));
  resize(1100, 720);
  menus_ = new MainMenuBar(*this, *menuBar());
  panes_ = new MainPanes;
  setCentralWidget(panes_);
  statusBar()->setObjectName(u"StatusBar1"_s);
  status_ = std::make_unique<StatusPanels>(*statusBar());
  scan_ = new ChangeScan(*this);
  Timer3_.setObjectName(u"Timer3"_s);
  Timer3_.setParent(this);
  Timer3_.setInterval(5s);
}

// The captions of the Search menu name these keys themselves, so the entries have none of their own.
void frmMain::createShortcuts() {
  const std::array keys{std::pair{QKeySequence(Qt::Key_F3), "cmdFindNext"},
                        std::pair{QKeySequence(Qt::SHIFT | Qt::Key_F3), "mnuFindPrev"},
                        std::pair{QKeySequence(Qt::CTRL | Qt::Key_F), "mnuFind"}};
  for (const auto& [key, entry] : keys) {
    const QAction* action = menus_->action(QString::fromLatin1(entry));
    connect(new QShortcut(key, this), &QShortcut::activated, action, &QAction::trigger);
  }
}

void frmMain::connectSignals() {
  connect(&Timer3_, &QTimer::timeout, this, &frmMain::Timer3_Timer);
  connect(panes_, &MainPanes::titlesEdited, this, [this] { ProjectChanged = true; });
  connect(panes_, &MainPanes::chapterOpened, this, &frmMain::EditSelectedChapter);
  connect(panes_, &MainPanes::sceneEdited, this, &frmMain::followEditing);
  connect(menus_->menu(u"mnuChapters"_s), &QMenu::aboutToShow, this, [this] {
    UpdateMenusForEditing();
    const bool hasRows = panes_->FrameChapters().listChapters().topLevelItemCount() > 0;
    if (!hasRows || !Editing()) {
      menus_->apply(chapterEntries(hasRows));
    }
  });
  connect(menus_->menu(u"mnuScene"_s), &QMenu::aboutToShow, this,
          [this] { menus_->apply(sceneEntries(panes_->FrameScenes().listScenes().topLevelItemCount() > 0)); });
}

bool frmMain::Form_Initialize() {
  if (instance_->acquire()) {
    return true;
  }
  if (toolkit().MsgBox(u"Quillane4 is already running. Are you sure you want to run another copy?"_s, Buttons::YesNo) !=
      Answer::Yes) {
    return false;
  }
  toolkit().MsgBox(u"Warning: If you open the same project twice, the last one you close will be the one saved."_s);
  return true;
}

void frmMain::Form_Load() {
  QString failure;
  try {
    StartUp(*this).run();
    return;
  } catch (const RuntimeError& error) {
    failure = QString::number(error.number()) + u" in Form_Load - "_s + error.description();
  } catch (const std::exception& error) {
    failure = QString::number(RuntimeError::Internal) + u" in Form_Load - "_s + QString::fromLocal8Bit(error.what());
  }
  ShowFatalAndExit(u"Error "_s + failure);
}

bool frmMain::Editing() const {
  return g_SceneChanges.AnyLocked();
}

void frmMain::ActivateOpenEditors() {
  for (qint32 i = 1; i <= g_SceneChanges.HighWater(); ++i) {
    const HashRecord record = g_SceneChanges.Record(i);
    if (record.Locked) {
      g_Project->SceneByID(record.ID)->Edit();
    }
  }
}

bool frmMain::refusedWhileEditing() {
  if (!Editing()) {
    return false;
  }
  toolkit().MsgBox(u"Please close all editor windows first"_s);
  ActivateOpenEditors();
  return true;
}

void frmMain::DisableMenus() {
  menus_->apply(menusWithoutProject());
  setProjectFieldsEnabled(false);
  showMessage(u"No project is open. The Project menu opens or creates one."_s);
}

void frmMain::EnableMenus() {
  menus_->apply(menusWithProject());
  setProjectFieldsEnabled(true);
  showMessage({});
}

void frmMain::setProjectFieldsEnabled(bool enabled) {
  panes_->FrameScenes().tabStrip1().setEnabled(enabled);
  panes_->FrameChapters().setTitlesEnabled(enabled);
}

void frmMain::UpdateMenusForEditing() {
  editingShown_ = Editing();
  menus_->apply(menusForEditing(editingShown_));
}

void frmMain::followEditing() {
  if (editingShown_ != Editing()) {
    UpdateMenusForEditing();
  }
}

void frmMain::StopScanTimer() {
  scan_->Stop();
}

void frmMain::StartScanTimer() {
  scan_->Start();
}

void frmMain::RefreshAll() {
  StopScanTimer();
  panes_->refill();
  showTotal();
  toolkit().DoEvents();
  StartScanTimer();
}

void frmMain::showTotal() {
  status_->setTotal(panes_->FrameChapters().ProgressiveTotal());
}

void frmMain::showMessage(const QString& text) {
  status_->setMessage(text);
}

void frmMain::sayNotBuilt(const QString& command) {
  showMessage(command + u" is not part of this version yet."_s);
}

void frmMain::EditSelectedScene() {
  panes_->EditSelectedScene();
}

void frmMain::EditSelectedChapter() {
  sayNotBuilt(u"Editing a chapter's details"_s);
}

int frmMain::CurrentTab() const {
  return panes_->FrameScenes().tabStrip1().currentIndex();
}

// A one-shot that waits until no scene is open. There is nothing to check with yet.
void frmMain::Timer3_Timer() {
  if (Closing || Editing()) {
    return;
  }
  Timer3_.stop();
}

void frmMain::CheckForUpdate(bool Silent) {
  if (!Silent) {
    sayNotBuilt(u"Check for new version"_s);
  }
}

void frmMain::Updater_InstallFile() {
  InstallerPath = Paths::programFolder() + u"Quillane4Upd.exe"_s;
  toolkit().MsgBox(u"The installer will begin when you exit Quillane. If it doesn't, run "_s + InstallerPath +
                   u" manually."_s);
}

void frmMain::mnuConfirmExit_Click() {
  if (!refusedWhileEditing()) {
    EndProgram();
  }
}

void frmMain::ShowFatalAndExit(const QString& Message) {
  toolkit().MsgBox(Message);
  ProjectChanged = false;
  EndProgram();
}

void frmMain::closeEvent(QCloseEvent* event) {
  if (Closing) {
    event->accept();
    return;
  }
  event->ignore();
  Guard("Form_QueryUnload", "frmMain")([&] { mnuConfirmExit_Click(); });
}

// What reaches the form was wanted by no control; the arrows shall not wander into the menu or the desktop.
void frmMain::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down) {
    event->accept();
    return;
  }
  QMainWindow::keyPressEvent(event);
}
