// Saves as a writer does: the process that the tests of faulty saves let die.
//
//   save_a_book HOME change PROJECT [SNAPSHOT]   loads a book, changes it and saves it; where that fails, keeps a copy
//                                                of the book's folder at SNAPSHOT and saves once more
//   save_a_book HOME first PROJECT               saves a new book, which has to ask for its place
//   save_a_book HOME scene PROJECT               loads a book and saves the new text of its first scene alone
//   save_a_book HOME split PROJECT               loads a book, splits its first scene and saves what is left of that
//
// HOME is the folder for settings and log. It prints what a user is told, and how each save went. The exit status is 0
// when the last save was done.
#include "core/exchange/ProgressLog.h"
#include "core/infra/Paths.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/persist/ProjectSaver.h"
#include "core/persist/SceneSplit.h"
#include "core/text/Rtf.h"
#include "faults/ChangedBook.h"
#include "support/ListeningToolkit.h"
#include "support/SampleProject.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <csignal>
#include <cstdio>
#include <filesystem>
#include <utility>

namespace {

ListeningToolkit& screen() {
  static ListeningToolkit listening;
  return listening;
}

void printTold() {
  for (const QString& text : std::exchange(screen().told, {})) {
    std::printf("told: %s\n", qUtf8Printable(text.simplified()));
  }
}

bool report(bool done) {
  const qint32 texts = g_Project->UnsavedTexts();
  printTold();
  std::printf("%s, %d texts due\n", done ? "saved" : "not saved", texts);
  return done && texts == 0;
}

bool countedSave() {
  bool done = false;
  {
    const CountedCalls counted;
    done = g_Project->SaveQN4(true);
  }
  return report(done);
}

bool saveChanges(const QString& snapshot) {
  changeBook();
  if (countedSave()) {
    return true;
  }
  if (snapshot.isEmpty()) {
    return false;
  }
  std::filesystem::copy(QFileInfo(g_Project->FileWithPath).path().toStdString(), snapshot.toStdString(),
                        std::filesystem::copy_options::recursive);
  return report(g_Project->SaveQN4(true));
}

bool saveScene() {
  const auto scene = g_Project->SceneByID(1);
  scene->setTextRTF(newText(1));
  {
    const CountedCalls counted;
    scene->Save();
  }
  return report(true);
}

bool splitScene() {
  const auto scene = g_Project->SceneByID(1);
  const std::vector<RichText> pieces = SceneSplit::cut(readRtf(scene->TextRTF()), u" ");
  bool done = false;
  {
    const CountedCalls counted;
    done = SceneSplit::addBehind(*scene, {writeRtf(pieces.at(1)), writeRtf(pieces.at(2))}).isEmpty();
    scene->setTextRTF(writeRtf(pieces.front()));
    scene->Save();
  }
  return report(done);
}

bool saveFirst(const QString& place) {
  makeSmallProject();
  screen().place = place;
  return countedSave();
}

bool saveAsTold(const QString& what, const QString& file, const QString& snapshot) {
  if (what == QStringLiteral("first")) {
    return saveFirst(file);
  }
  if (!g_Project->Load(file, false)) {
    printTold();
    return false;
  }
  if (what == QStringLiteral("split")) {
    return splitScene();
  }
  return what == QStringLiteral("scene") ? saveScene() : saveChanges(snapshot);
}

}  // namespace

int main(int argc, char** argv) {
  std::signal(SIGUSR1, SIG_IGN);
  const QCoreApplication application(argc, argv);
  const QStringList arguments = QCoreApplication::arguments();
  if (arguments.size() < 4) {
    std::puts("save_a_book HOME change|first|scene|split PROJECT [SNAPSHOT]");
    return 2;
  }
  Paths::overrideFolders(arguments[1]);
  installToolkit(&screen());
  behindEachSave() = &WriteProgressLog;
  const bool done = saveAsTold(arguments[2], arguments[3], arguments.value(4));
  {
    // What closing a book does to its folder is a part of it.
    const CountedCalls counted;
    g_Project = std::make_unique<clsProject>();
  }
  installToolkit(nullptr);
  return done ? 0 : 1;
}
