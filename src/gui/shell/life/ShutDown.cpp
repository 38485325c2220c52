#include "core/infra/Guard.h"
#include "core/infra/InstallerFile.h"
#include "core/infra/SilentToolkit.h"
#include "core/infra/ToldText.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLang.h"
#include "core/infra/cSharedLogging.h"
#include "core/layout/PrintState.h"
#include "core/model/Globals.h"
#include "core/model/SceneEditor.h"
#include "core/model/clsProject.h"
#include "core/persist/RescueFolder.h"
#include "core/spell/cSharedSpell.h"
#include "gui/editor/DictionaryInstaller.h"
#include "gui/sheets/EntitySheets.h"
#include "gui/shell/main/BookBackups.h"
#include "gui/shell/main/ChapterPane.h"
#include "gui/shell/main/MainPanes.h"
#include "gui/shell/main/ScenePane.h"
#include "gui/shell/main/StrayEditors.h"
#include "gui/shell/main/frmMain.h"
#include "gui/toolkit/ProportionalSplitter.h"
#include "gui/toolkit/WindowSettings.h"
#include "gui/views/ListView.h"

#include <QApplication>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

/// What of the book stands in memory alone; empty when nothing does.
QString whatWouldBeLost() {
  if (g_Project->ReloadWanted()) {
    return {};  // what another program has left is what shall stay
  }
  const QString& path = g_Project->FileWithPath;
  if (const qint32 unsaved = g_Project->UnsavedTexts(); unsaved > 0 && !path.isEmpty()) {
    return translated(u"The text of %1 scene(s) could not be written to %2. Please make room or free the files."_s)
        .arg(unsaved)
        .arg(g_Project->RTFFolder());
  }
  return g_Project->HoldsUnsaved()
             ? translated(u"The book isn't saved. What was changed since it was last saved would be lost."_s)
             : QString();
}

void logAndTell(const QString& text) {
  Logging().LogEvent(text);
  toolkit().MsgBox(text);
}

/// While it lives nobody is asked and nothing is shown.
class Unattended {
 public:
  Unattended() { installToolkit(&nobody_); }
  ~Unattended() { installToolkit(&screen_); }
  Unattended(const Unattended&) = delete;
  Unattended& operator=(const Unattended&) = delete;

 private:
  Toolkit& screen_ = toolkit();
  SilentToolkit nobody_;
};

/// In the place of the path of a rescued book.
const QString kNowhere = u"nowhere"_s;

/// How often, and after how long each time, the end looks whether a save has come to its own.
constexpr int kWaits = 100;
constexpr int kWaitMs = 50;

}  // namespace

// The end of the program. Each step stands for itself: none may keep the next from running.

void frmMain::EndProgram() {
  if (Closing || g_Project->IsBusy() || !panes_->mayLeaveNotes() || ending_) {
    return;
  }
  Closing = true;
  StopScanTimer();
  Timer3.stop();
  const Guard guard("EndProgram", "frmMain");
  guard([&] { storeSettings(); });
  // The book as it was opened.
  guard([&] { backups_->makeDue(); });
  toolkit().DoEvents();
  // A project without a file is empty, unless a save was given up: then the book is in memory alone, and the save
  // asks once more.
  if (!g_Project->FileWithPath.isEmpty() || !g_Project->IsEmpty()) {
    if (!session_.isOnlyLookedAt()) {
      guard([&] { SaveProject(true); });
    }
    bool mayLeave = false;
    guard([&] { mayLeave = g_Project->ReadOnly() ? session_.mayLeaveReadOnly() : mayLeaveBook(); });
    if (ending_) {
      return;  // the system didn't wait for the answer
    }
    if (!mayLeave) {
      Closing = false;
      StartScanTimer();
      return;
    }
  }
  guard([&] { giveUpTransfers(); });
  guard([&] { forgetRescue(); });
  // Rows would ask the empty book for what they show.
  guard([&] { clearLists(); });
  guard([&] { g_Project = std::make_unique<clsProject>(); });
  if (settingsLoaded_) {
    guard([&] { Settings().SaveSettings(g_SettingsFile); });
  }
  guard([] { Spell().SaveCustomDict(); });
  unloadForms();
  guard([&] { startInstaller(); });
  Logging().LogEnd();
  endProcess();
}

// Nobody may be there to answer, and the system waits for a moment only.
void frmMain::SaveAtOnce() {
  const Unattended nobody;
  const Guard guard("SaveAtOnce", "frmMain");
  guard([] { g_Project->SaveEditorWindows(); });
  for (SceneEditor* const editor : strayTexts()) {
    guard([&] { editor->SaveQuietly(); });
  }
  guard([&] { panes_->storeTypedNote(); });
  guard([&] {
    if (keepTypedOnSheets()) {
      ProjectChanged = true;
    }
  });
  if (session_.isOnlyLookedAt()) {
    return;
  }
  bool saved = false;
  guard([&] { saved = !g_Project->FileWithPath.isEmpty() && g_Project->SaveQN4(false); });
  guard([&] {
    // Also in the middle of another save, which may be waiting for an answer that will not come.
    if (g_Project->HoldsUnsaved() || (!saved && (ProjectChanged || g_Project->IsBusy()))) {
      const QString kept = RescueFolder(*g_Project).keepBook();
      Settings().sSet(u"RescuedBook"_s, kept.isEmpty() ? kNowhere : kept);
      rescued_ = true;
    } else {
      forgetRescue();
    }
  });
}

// What an earlier run has kept stays offered.
void frmMain::forgetRescue() {
  if (std::exchange(rescued_, false)) {
    Settings().DeleteSettingByName(u"RescuedBook"_s);
  }
}

void frmMain::EndAtOnce() {
  if (std::exchange(ending_, true)) {
    return;
  }
  Closing = true;
  StopScanTimer();
  Timer3.stop();
  Logging().LogEvent(u"Ended by the system"_s);
  const Guard guard("EndAtOnce", "frmMain");
  guard([&] { SaveAtOnce(); });
  guard([&] { giveUpTransfers(); });
  finishAtOnce(kWaits);
}

// A load or save that is under way comes to its end first, and a question that it waits with is cancelled: what could
// not be saved in its middle is saved behind it.
void frmMain::finishAtOnce(int waits) {
  const Unattended nobody;
  const Guard guard("EndAtOnce", "frmMain");
  if (g_Project->IsBusy() && waits > 0) {
    if (QWidget* const question = QApplication::activeModalWidget()) {
      question->close();
    }
    QTimer::singleShot(kWaitMs, this, [this, waits] { finishAtOnce(waits - 1); });
    return;
  }
  if (waits < kWaits) {
    guard([&] { SaveAtOnce(); });
  }
  guard([&] { storeSettings(); });
  guard([&] {
    if (settingsLoaded_) {
      Settings().SaveSettings(g_SettingsFile);
    }
  });
  guard([] { Spell().SaveCustomDict(); });
  Logging().LogEnd();
  endProcess();
}

// A transfer waits in a loop of its own, which the end of the process's doesn't end.
void frmMain::giveUpTransfers() {
  Q_EMIT leaving();
  DictionaryInstaller::CancelRunning();
}

void frmMain::startInstaller() {
  if (InstallerPath.isEmpty()) {
    return;
  }
  if (!isStillThat(InstallerPath, InstallerHash)) {
    Files().EraseFile(InstallerPath);
    logAndTell(toldText(shownText(
        u"The installer isn't what was downloaded any more, and isn't started. Please download it again."_s)));
  } else if (!toolkit().runProgram(InstallerPath, {}, false)) {
    logAndTell(toldText(shownText(u"The installer could not be started. Please run %1 manually."_s), {InstallerPath}));
  }
}

/// Whether the program may end: not over what is in memory alone, unless the user says so.
bool frmMain::mayLeaveBook() {
  const QString lost = whatWouldBeLost();
  return lost.isEmpty() || toolkit().MsgBox(lost + translated(u" Do you want to leave the program all the same?"_s),
                                            Buttons::NoUnlessYes) == Answer::Yes;
}

// A start that failed before the settings were read has nothing to store: it would wipe out what they hold.
void frmMain::storeSettings() {
  if (!settingsLoaded_) {
    return;
  }
  PrintState::current().store();
  storeLayout();
  Q_EMIT layoutStored();
}

void frmMain::storeLayout() {
  if (!isVisible()) {
    return;
  }
  storeWindow(u"Main"_s, *this);
  for (const auto& [name, list] :
       {std::pair{u"MainChap"_s, &panes_->chapters().listChapters()}, {u"MainScn"_s, &panes_->scenes().listScenes()}}) {
    storeColumns(name, *list);
    Settings().sSet(name + u"Filled"_s, list->isFilled());
  }
  const double left = panes_->scenes().splitterLeft();
  const double width = panes_->scenes().frameWidth();
  if (!isMinimized() && left > 0 && width > 0) {
    Settings().sSet(u"SplitPercent"_s, panes_->scenes().splitter().fraction());
    Settings().sSet(u"ChapterSplit"_s, panes_->splitter().fraction());
    Settings().sSet(u"DescriptionSplit"_s, panes_->chapters().splitter().fraction());
  }
}

// From the last to the first, this window at the end.
void frmMain::unloadForms() {
  const QWidgetList windows = QApplication::topLevelWidgets();
  for (QWidget* window : windows) {
    if (window != this && window->isVisible() && window->isWindow()) {
      window->close();
    }
  }
  hide();
}
