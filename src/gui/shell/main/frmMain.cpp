#include "gui/shell/main/frmMain.h"

#include "Version.h"
#include "core/infra/Clock.h"
#include "core/infra/Guard.h"
#include "core/infra/Paths.h"
#include "core/infra/ScanPause.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/SceneEditor.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/planning/WordTarget.h"
#include "gui/shell/main/BookBackups.h"
#include "gui/shell/main/ChangeScan.h"
#include "gui/shell/main/ChapterPane.h"
#include "gui/shell/main/DiskWatch.h"
#include "gui/shell/main/MainMenuBar.h"
#include "gui/shell/main/MainPanes.h"
#include "gui/shell/main/PaneLayout.h"
#include "gui/shell/main/PopupMenus.h"
#include "gui/shell/main/RowDrags.h"
#include "gui/shell/main/ScenePane.h"
#include "gui/shell/main/SceneTabs.h"
#include "gui/shell/main/StatusPanels.h"
#include "gui/shell/main/StrayEditors.h"
#include "gui/shell/main/UpdateCheck.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/toolkit/Mnemonics.h"
#include "gui/toolkit/WindowTitle.h"
#include "gui/views/ListView.h"

#include <QApplication>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QShortcut>
#include <QStatusBar>

#include <chrono>

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "frmMain";

const QString kCloseFirst = shownText(u"Please close all editor windows first"_s);
const QString kNoProject = shownText(u"no project is open"_s);
const QString kEditing = shownText(u"please close all editor windows first"_s);

}  // namespace

/// What the window itself is for, with or without a project.
class frmMain::OwnCommands : public CommandGroup {
 public:
  explicit OwnCommands(frmMain& main) : main_(main) {}

  void bind(MenuBindings& menu) override {
    menu.bind("mnuConfirmExit", [this] { main_.mnuConfirmExit_Click(); });
    menu.bind("mnuEditScene", [this] { main_.EditSelectedScene(); });
    menu.bind("mnuMoveChapterUp", [this] { main_.drags_->moveChapter(-1); });
    menu.bind("mnuMoveChapterDown", [this] { main_.drags_->moveChapter(1); });
    menu.bind("mnuMoveSceneUp", [this] { main_.drags_->moveScene(-1); });
    menu.bind("mnuMoveSceneDown", [this] { main_.drags_->moveScene(1); });
    menu.bind("mnuMoveSceneToPrevious", [this] { main_.drags_->moveScenesToNeighbour(-1); });
    menu.bind("mnuMoveSceneToNext", [this] { main_.drags_->moveScenesToNeighbour(1); });
  }

 private:
  frmMain& main_;
};

frmMain::frmMain(QString commandLine)
    : endProcess([] { QCoreApplication::exit(); }), commandLine_(std::move(commandLine)), session_(*this) {
  setObjectName(u"frmMain"_s);
  createParts();
  addCommands(std::make_unique<OwnCommands>(*this));
  createShortcuts();
  connectSignals();
  menus_->apply(menusBeforeStart());
  showTitle();
}

// The bar hears of the mouse that leaves it when the parts that tell of that have gone.
frmMain::~frmMain() {
  menus_->disconnect(this);
}

void frmMain::addCommands(std::unique_ptr<CommandGroup> group) {
  menus_->addCommands(*group);
  commands_.push_back(std::move(group));
}

void frmMain::createParts() {
  setMinimumSize(PaneLayout::pixelsAtLeast(PaneLayout::kMinimumWidth),
                 PaneLayout::pixelsAtLeast(PaneLayout::kMinimumHeight));
  // All columns and tabs can be read then.
  resize(QSize(1440, 820).boundedTo(screen()->availableSize() * 19 / 20));
  menus_ = new MainMenuBar(*menuBar(), QUILLANE_DEVELOPMENT);
  panes_ = new MainPanes;
  setCentralWidget(panes_);
  statusBar()->setObjectName(u"StatusBar1"_s);
  status_ = std::make_unique<StatusPanels>(*statusBar());
  drags_ = new RowDrags(*this);
  popups_ = new PopupMenus(*this);
  scan_ = std::make_unique<ChangeScan>(*this);
  disk_ = std::make_unique<DiskWatch>(*this);
  backups_ = std::make_unique<BookBackups>(*this);
  Timer3.setObjectName(u"Timer3"_s);
  Timer3.setParent(this);
  Timer3.setInterval(5s);
}

// The captions of the Search menu name these keys themselves, so the entries have none of their own.
void frmMain::createShortcuts() {
  const std::array keys{std::pair{QKeySequence(Qt::Key_F3), "cmdFindNext"},
                        std::pair{QKeySequence(Qt::SHIFT | Qt::Key_F3), "mnuFindPrev"},
                        std::pair{QKeySequence(Qt::CTRL | Qt::Key_F), "mnuFind"}};
  for (const auto& [key, entry] : keys) {
    QAction* const action = menus_->action(QString::fromLatin1(entry));
    connect(new QShortcut(key, this), &QShortcut::activated, this, guarded("Form_KeyDown", kModule, [this, action] {
              action->isEnabled() ? action->trigger() : sayWhyNot(*action);
            }));
  }
}

void frmMain::connectSignals() {
  connect(&Timer3, &QTimer::timeout, this, guarded("Timer3_Timer", kModule, this, &frmMain::Timer3_Timer));
  const auto keepInMind = [this] {
    ProjectChanged = true;
    showTitle();
  };
  connect(panes_, &MainPanes::titlesEdited, this, guarded("txtTitle_Change", kModule, keepInMind));
  connect(panes_, &MainPanes::notesChanged, this, guarded("ListNotes_Change", kModule, keepInMind));
  connect(panes_, &MainPanes::noteSaved, this, guarded("cmdSave_Click", kModule, [this] { session().saveChange(); }));
  connect(menus_, &MainMenuBar::chosen, this, guarded("mnu_Click", kModule, [this] { showRest(); }));
  connect(menus_, &MainMenuBar::hinted, this,
          guarded("mnu_MouseMove", kModule, [this](const QString& note) { status_->setHint(note); }));
  connect(menus_, &MainMenuBar::refused, this,
          guarded("mnu_Shortcut", kModule, [this](const QAction* menu) { sayWhyNot(*menu); }));
  connect(panes_, &MainPanes::chapterOpened, this,
          guarded("ListChapters_DblClick", kModule, this, &frmMain::EditSelectedChapter));
  connect(panes_, &MainPanes::sceneEdited, this,
          guarded("ListScenes_DblClick", kModule, this, &frmMain::followEditing));
  connect(menus_->menu(u"mnuOpenRecent"_s), &QMenu::aboutToShow, this,
          guarded("mnuOpenRecent_Click", kModule, [this] { session_.lookForRecent(); }));
  connect(panes_, &MainPanes::removalWanted, this,
          guarded("ListChapters_KeyUp", kModule, this, &frmMain::triggerEntry));
}

bool frmMain::Editing() const {
  return g_SceneChanges.AnyLocked();
}

void frmMain::ActivateOpenEditors() {
  for (const qint32 id : g_SceneChanges.lockedIDs()) {
    g_Project->SceneByID(id)->Edit();
  }
}

bool frmMain::refusedWhileEditing() {
  if (!Editing()) {
    return false;
  }
  toolkit().MsgBox(kCloseFirst);
  ActivateOpenEditors();
  return true;
}

// Their words go with the program, and no book that is open takes them.
bool frmMain::refusedOverStrayTexts() {
  const QList<SceneEditor*> strays = strayTexts();
  if (strays.isEmpty()) {
    return false;
  }
  toolkit().MsgBox(kCloseFirst);
  for (SceneEditor* const editor : strays) {
    editor->Activate();
  }
  return true;
}

void frmMain::DisableMenus() {
  showMenus(false);
}

void frmMain::EnableMenus() {
  showMenus(true);
}

void frmMain::showMenus(bool withProject) {
  projectShown_ = withProject;
  menus_->apply(withProject ? menusWithProject() : menusWithoutProject(), withProject ? QString() : kNoProject);
  panes_->setProjectOpen(withProject);
  editingShown_ = Editing();
  if (editingShown_) {
    menus_->apply(menusForEditing(true), kEditing);
  }
  showRest();
  showSaves();
}

void frmMain::UpdateMenusForEditing() {
  if (editingShown_ != Editing()) {
    // What was said of open scenes, or of none, is true no more.
    showRest();
  }
  editingShown_ = Editing();
  if (editingShown_ || projectShown_) {
    menus_->apply(menusForEditing(editingShown_), kEditing);
  } else {
    // Two of the entries need a project besides.
    menus_->apply(menusWithoutProject(), kNoProject);
  }
}

void frmMain::followEditing() {
  showBook();
  if (editingShown_ != Editing()) {
    UpdateMenusForEditing();
  }
}

void frmMain::StopScanTimer() {
  scan_->stop();
  disk_->stop();
}

void frmMain::StartScanTimer() {
  scan_->start();
  disk_->start();
}

void frmMain::RefreshAll() {
  const ScanPause pause;
  panes_->refill();
  showTotal();
  showBook();
  Q_EMIT refreshed();
  // What is typed meanwhile waits: a command that has moved a row isn't begun again in the middle of itself.
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void frmMain::clearLists() {
  panes_->ClearLists();
  Q_EMIT listsCleared();
}

void frmMain::showTotal() {
  const qint32 words = panes_->chapters().ProgressiveTotal();
  status_->setTotal(words, targetSummary(*g_Project, words, Clock::dayNumber(Clock::today())));
}

void frmMain::showInLanguage() {
  const ScanPause pause;
  status_->showAgain();
  panes_->showInLanguage();
  showTotal();
  showBook();
}

void frmMain::showMessage(const QString& text) {
  status_->setMessage(text);
}

// The told words stand at the end; before them goes what a writer looks for among the windows.
void frmMain::showTitle() {
  const QString program = u"Quillane 4 by Brackenlight Software"_s;
  const QString book = session_.nameOfBook();
  const QString state = g_Project->ReadOnly() ? translated(u" (read-only)"_s) : QString();
  setWindowTitle(book.isEmpty() ? program : literalTitle(book) + state + u"[*] \u2013 "_s + program);
  // Asked twice a second: the desktop hears only of what is new.
  const bool unsaved = !book.isEmpty() && (ProjectChanged.isUnsaved() || g_Project->HoldsUnsaved());
  if (unsaved != isWindowModified()) {
    setWindowModified(unsaved);
  }
}

void frmMain::showSaves() {
  using Rest = StatusPanels::Rest;
  const SaveNote& saves = g_Project->LastSaves();
  if (projectShown_) {
    status_->setRest(saves.text(), saves.failed() ? Rest::Lasting : Rest::Passing);
  } else {
    status_->setRest(u"No project is open. The Project menu opens or creates one."_s);
  }
}

void frmMain::showBook() {
  showTitle();
  showSaves();
}

/// A key of the menu that goes nowhere says why.
void frmMain::sayWhyNot(const QAction& action) {
  const QString why = MainMenuBar::whyNot(action);
  if (!why.isEmpty()) {
    showMessage(withColon(commandName(withoutMnemonic(action.text()))) + u' ' + translated(why));
  }
}

void frmMain::EditSelectedScene() {
  panes_->EditSelectedScene();
}

void frmMain::EditSelectedChapter() {
  triggerEntry(u"mnuEditChapter"_s);
}

void frmMain::triggerEntry(const QString& name) {
  // The lists may be others than when the menus were opened last.
  popups_->mnuChapters_Click();
  popups_->mnuScene_Click();
  QAction& entry = *menus_->action(name);
  entry.isEnabled() ? entry.trigger() : sayWhyNot(entry);
}

// A one-shot that waits until no scene is open, no work under way and no question up.
void frmMain::Timer3_Timer() {
  if (Closing || Editing() || g_Project->IsBusy() || QApplication::activeModalWidget() != nullptr) {
    return;
  }
  Timer3.stop();
  checkForUpdateByItself(*this);
}

void frmMain::Updater_InstallFile(const QByteArray& hash) {
  InstallerHash = hash;
  InstallerPath = Paths::programFolder() + u"Quillane4Upd.exe"_s;
  toolkit().MsgBox(translated(u"The installer will begin when you exit Quillane. If it doesn't, run %1 manually."_s)
                       .arg(InstallerPath));
}

void frmMain::mnuConfirmExit_Click() {
  if (!refusedWhileEditing() && !refusedOverStrayTexts()) {
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
  Guard("Form_QueryUnload", kModule)([&] { mnuConfirmExit_Click(); });
}

// What reaches the form was wanted by no control. The arrows shall not wander into the menu or the desktop; a key of
// the menu comes here when its entry is switched off.
void frmMain::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down) {
    event->accept();
    return;
  }
  QAction* action = nullptr;
  Guard("Form_KeyDown", kModule)([&] { action = menus_->actionOf(QKeySequence(event->keyCombination())); });
  if (action != nullptr && !Closing) {
    event->accept();
    sayWhyNot(*action);
    return;
  }
  QMainWindow::keyPressEvent(event);
}
