// Writes as a writer does: the process that the tests of a killed editor let die.
//
//   edit_a_scene HOME PROJECT [sequential]   opens the first scene's editor, types words that are numbered, lets the
//                                            timer of the copies come round behind each and saves behind some
//
// HOME is the folder for settings and log. It prints "kept N" when the timer has been there behind the word N, and what
// a user is told.
#include "core/infra/Clock.h"
#include "core/infra/Paths.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "faults/ChangedBook.h"
#include "gui/editor/frmEditor.h"
#include "gui/shell/life/RegisterWindows.h"
#include "gui/toolkit/RichTextBox.h"
#include "support/ListeningToolkit.h"

#include <QAction>
#include <QApplication>
#include <QTimer>

#include <csignal>
#include <cstdio>
#include <memory>

namespace {

constexpr int kWords = 6;
constexpr int kSavedBehind = 3;

frmEditor* openEditor() {
  g_Project->SceneByID(1)->Edit();
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    if (auto* const editor = dynamic_cast<frmEditor*>(window)) {
      return editor;
    }
  }
  return nullptr;
}

void type(const frmEditor& editor, const QString& word) {
  auto* const pane = editor.findChild<RichTextBox*>(QStringLiteral("txtMain"));
  pane->setSelStart(pane->Text().size());
  pane->setSelText(word);
}

void letTimerComeRound(const frmEditor& editor) {
  auto* const timer = editor.findChild<QTimer*>(QStringLiteral("TimerBackup"));
  timer->start(0);
  while (timer->interval() == 0) {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
}

void write(frmEditor& editor) {
  for (int number = 1; number <= kWords; ++number) {
    type(editor, QStringLiteral(" w%1").arg(number));
    {
      const CountedCalls counted;
      letTimerComeRound(editor);
    }
    std::printf("kept %d\n", number);
    std::fflush(stdout);
    if (number % kSavedBehind == 0) {
      const CountedCalls counted;
      editor.findChild<QAction*>(QStringLiteral("mnuSave"))->trigger();
    }
  }
}

}  // namespace

int main(int argc, char** argv) {
  std::signal(SIGUSR1, SIG_IGN);
  const QApplication application(argc, argv);
  const QStringList arguments = QCoreApplication::arguments();
  if (arguments.size() < 3) {
    std::puts("edit_a_scene HOME PROJECT [sequential]");
    return 2;
  }
  Paths::overrideFolders(arguments[1]);
  // A copy's name has the minute: one that turns would be another number of calls.
  Clock::set(Clock::now());
  ListeningToolkit screen;
  installToolkit(&screen);
  registerWindows();
  if (arguments.size() > 3) {
    Settings().sSet(QStringLiteral("AutoBackupSequential"), true);
    Settings().sSet(QStringLiteral("SequentialFrequency"), 0);
  }
  frmEditor* const editor = g_Project->Load(arguments[2], false) ? openEditor() : nullptr;
  if (editor != nullptr) {
    write(*editor);
  }
  for (const QString& text : screen.told) {
    std::printf("told: %s\n", qUtf8Printable(text.simplified()));
  }
  const bool done = editor != nullptr;
  g_Project = std::make_unique<clsProject>();
  delete editor;
  installToolkit(nullptr);
  return done ? 0 : 1;
}
