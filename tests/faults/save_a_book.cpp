// Loads a book, changes it as a writer does, and saves it: the process that the tests of faulty saves let die.
//
//   save_a_book PROJECT [again]     "again" saves a second time behind a first save that failed
//
// It prints what a user would be told, and "saved" or "not saved" for each save. The exit status is 0 when the last
// save was done.
#include "core/infra/Paths.h"
#include "core/infra/SilentToolkit.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "faults/ChangedBook.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <cstdio>

namespace {

/// Prints what is told and cancels what is asked.
class PrintingToolkit : public SilentToolkit {
 public:
  Answer MsgBox(const QString& text, Buttons buttons) override {
    say(text);
    return SilentToolkit::MsgBox(text, buttons);
  }
  void ShowErrorReport(const QString& text, const QString&) override { say(text); }

 private:
  static void say(const QString& text) { std::printf("told: %s\n", qUtf8Printable(text.simplified())); }
};

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  const QStringList arguments = QCoreApplication::arguments();
  const QTemporaryDir program;
  Paths::overrideFolders(program.path());
  PrintingToolkit screen;
  installToolkit(&screen);
  if (arguments.size() < 2 || !g_Project->Load(arguments[1], false)) {
    std::puts("not loaded");
    return 2;
  }
  changeBook();
  const auto save = [] {
    const bool done = g_Project->SaveQN4(true);
    const qint32 texts = g_Project->UnsavedTexts();
    std::printf("%s, %d texts due\n", done ? "saved" : "not saved", texts);
    return done && texts == 0;
  };
  bool done = save();
  if (!done && arguments.contains(QStringLiteral("again"))) {
    done = save();
  }
  g_Project = std::make_unique<clsProject>();
  installToolkit(nullptr);
  return done ? 0 : 1;
}
