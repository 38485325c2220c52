#include "core/infra/Guard.h"
#include "core/infra/SilentToolkit.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/persist/RescueFolder.h"
#include "gui/shell/main/ChapterPane.h"
#include "gui/shell/main/MainPanes.h"
#include "gui/shell/main/ScenePane.h"
#include "gui/shell/main/frmMain.h"
#include "gui/toolkit/WindowSettings.h"
#include "gui/views/ListView.h"

#include <QApplication>

using namespace Qt::StringLiterals;

namespace {

/// What of the book stands in memory alone; empty when nothing does.
QString whatWouldBeLost() {
  if (g_Project->ReloadWanted()) {
    return {};  // what another program has left is what shall stay
  }
  const QString& path = g_Project->FileWithPath;
  if (const qint32 unsaved = g_Project->UnsavedTexts(); unsaved > 0 && !path.isEmpty()) {
    return u"The text of %1 scene(s) could not be written to %2."_s.arg(unsaved).arg(g_Project->Path() + u"RTF"_s);
  }
  return g_Project->HoldsUnsaved()
             ? u"The book could not be saved. What was changed since it was last saved would be lost."_s
             : QString();
}

}  // namespace

// The end of the program. Each step stands for itself: none may keep the next from running.

void frmMain::EndProgram() {
  if (Closing || g_Project->IsBusy()) {
    return;
  }
  Closing = true;
  StopScanTimer();
  Timer3.stop();
  const Guard guard("EndProgram", "frmMain");
  guard([&] { storeSettings(); });
  toolkit().DoEvents();
  // A project without a file is empty, unless a save was given up: then the book is in memory alone, and the save
  // asks once more.
  if (!g_Project->FileWithPath.isEmpty() || !g_Project->IsEmpty()) {
    guard([&] { SaveProject(true); });
    bool mayLeave = true;
    guard([&] { mayLeave = g_Project->ReadOnly() ? session_.mayLeaveReadOnly() : mayLeaveBook(); });
    if (!mayLeave) {
      Closing = false;
      StartScanTimer();
      return;
    }
  }
  guard([&] { g_Project = std::make_unique<clsProject>(); });
  if (settingsLoaded_) {
    guard([&] { Settings().SaveSettings(g_SettingsFile); });
  }
  unloadForms();
  if (!InstallerPath.isEmpty()) {
    guard([&] { toolkit().runProgram(InstallerPath, {}, false); });
  }
  Logging().LogEnd();
  endProcess();
}

// Nobody may be there to answer, and the system waits for a moment only.
void frmMain::SaveAtOnce() {
  Toolkit& screen = toolkit();
  SilentToolkit nobody;
  installToolkit(&nobody);
  const Guard guard("SaveAtOnce", "frmMain");
  guard([] { g_Project->SaveEditorWindows(); });
  guard([] {
    if (!g_Project->FileWithPath.isEmpty()) {
      g_Project->SaveQN4(false);
    }
  });
  guard([] {
    if (g_Project->HoldsUnsaved()) {
      Settings().sSet(u"RescuedBook"_s, RescueFolder(*g_Project).keepBook());
    }
  });
  installToolkit(&screen);
}

void frmMain::EndAtOnce() {
  if (std::exchange(Closing, true)) {
    return;
  }
  StopScanTimer();
  Timer3.stop();
  Logging().LogEvent(u"Ended by the system"_s);
  const Guard guard("EndAtOnce", "frmMain");
  guard([&] { SaveAtOnce(); });
  guard([&] { storeSettings(); });
  guard([&] {
    if (settingsLoaded_) {
      Settings().SaveSettings(g_SettingsFile);
    }
  });
  Logging().LogEnd();
  endProcess();
}

/// Whether the program may end: not over what is in memory alone, unless the user says so.
bool frmMain::mayLeaveBook() {
  const QString lost = whatWouldBeLost();
  return lost.isEmpty() ||
         toolkit().MsgBox(lost +
                              u" Do you want to leave the program all the same? If not, please make room or free the "
                              "files and leave again."_s,
                          Buttons::NoUnlessYes) == Answer::Yes;
}

// A start that failed before the settings were read has nothing to store: it would wipe out what they hold.
void frmMain::storeSettings() {
  if (!settingsLoaded_) {
    return;
  }
  Settings().sSet(u"DblSpaced"_s, g_DblSpaced);
  Settings().sSet(u"12Spaced"_s, g_12Spaced);
  Settings().sSet(u"FontSize"_s, static_cast<int>(g_FontSize));
  Settings().sSet(u"FontName"_s, g_FontName);
  storeLayout();
}

void frmMain::storeLayout() {
  if (!isVisible()) {
    return;
  }
  storeWindow(u"Main"_s, *this);
  storeColumns(u"MainChap"_s, panes_->chapters().listChapters());
  storeColumns(u"MainScn"_s, panes_->scenes().listScenes());
  const double left = panes_->scenes().splitterLeft();
  const double width = panes_->scenes().frameWidth();
  if (!isMinimized() && left > 0 && width > 0) {
    Settings().sSet(u"SplitPercent"_s, panes_->sceneSplit());
    Settings().sSet(u"ChapterSplit"_s, panes_->chapterSplit());
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
