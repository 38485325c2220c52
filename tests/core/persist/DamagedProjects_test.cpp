// Any bytes at all, given as a project file: no crash, no hang, and what was read can be written and read again.

#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "support/Figures.h"
#include "support/ListeningToolkit.h"
#include "support/Mutations.h"
#include "support/SampleProject.h"
#include "support/TestHome.h"

#include <QDir>

#include <gtest/gtest.h>
#include <random>

using namespace Qt::StringLiterals;

// A file that ends too early, or in zeros where the disk never got it, still reads as a smaller book: nobody is left to
// find that out at the end of the day.
TEST(DamagedProjects, AFileThatIsCutOffIsNeverOpenedWithoutAWordNorWrittenOverUnasked) {
  const ScratchFolder scratch;
  const QString path = scratch.path(u"Larger.qn4"_s);
  makeLargerProject(15, 4);
  g_Project->FileWithPath = path;
  ASSERT_TRUE(g_Project->SaveQN4(false));
  newProject();
  const QByteArray whole = fileBytes(path);
  const QMap<QString, QByteArray> before = filesBelow(scratch.path());
  constexpr int kPlaces = 300;
  for (const bool zeros : {false, true}) {
    int told = 0;
    int opened = 0;
    for (int place = 0; place < kPlaces; ++place) {
      const qsizetype at = whole.size() * place / kPlaces;
      const QByteArray cut = whole.first(at) + (zeros ? QByteArray(whole.size() - at, '\0') : QByteArray());
      writeFile(path, cut);
      ListeningToolkit listener;
      installToolkit(&listener);
      const bool loaded = g_Project->Load(path, false);
      EXPECT_FALSE(listener.told.isEmpty()) << "cut at " << at << " without a word";
      told += listener.told.isEmpty() ? 0 : 1;
      opened += loaded ? 1 : 0;
      // Leaving saves always.
      if (loaded) {
        g_Project->SaveQN4(true);
      }
      EXPECT_TRUE(fileBytes(path) == cut) << at << ": written over";
      newProject();
      installToolkit(nullptr);
    }
    noteFigures(u"cut"_s, {zeros ? u"Zeros from there to the end"_s : u"Cut off there"_s, QString::number(kPlaces),
                           QString::number(told), QString::number(opened), QString::number(kPlaces - told)});
  }
  writeFile(path, whole);
  EXPECT_TRUE(filesBelow(scratch.path()) == before) << "a text was touched, or something was left";
}

TEST(DamagedProjects, AFileThatWasCutOffIsWrittenOverWhenTheWriterWantsThat) {
  const ScratchFolder scratch;
  const QString path = saveSmallProject(scratch.path());
  const QByteArray whole = fileBytes(path);
  newProject();
  ListeningToolkit listener;
  listener.answer = Answer::Yes;
  installToolkit(&listener);
  writeFile(path, whole.first(whole.size() - 20));
  ASSERT_TRUE(g_Project->Load(path, false));
  EXPECT_TRUE(listener.told.constLast().contains(u"3 chapters and 5 scenes were found in it; 5 files"_s));
  EXPECT_TRUE(g_Project->SaveQN4(true));
  EXPECT_TRUE(fileBytes(path) == whole) << "the user said yes";
  listener.told.clear();
  EXPECT_TRUE(g_Project->Load(path, false) && g_Project->SaveQN4(true));
  EXPECT_EQ(listener.told, QStringList());
  installToolkit(nullptr);
  newProject();
}

TEST(DamagedProjects, LoadOrFailButNeverCrashAndKeepWhatTheyGave) {
  const ScratchFolder scratch;
  const QString path = saveSmallProject(scratch.path());
  const QByteArray whole = fileBytes(path);
  const QList<QByteArray> snippets =
      QByteArray(
          "<SCENE> </SCENE> <ID> </ID> <CHAPTERS> </SCENES> <Characters> <CharID> 99999999999 -1 <RTFFile> % \xFF "
          "<![CDATA[ <PROJECT> ../../ 2147483647 /dev/zero")
          .split(' ') +
      QList<QByteArray>{QByteArray("\0", 1)};
  std::mt19937 random(42);
  int loaded = 0;
  for (int round = 0; round < 1500; ++round) {
    writeFile(path, mutated(whole, random, snippets));
    newProject();
    if (!g_Project->Load(path, false)) {
      EXPECT_EQ(g_Project->SceneCount(), 0);
      continue;
    }
    // Saving waits for the disk, so one in twenty has to do.
    if (++loaded % 20 != 0) {
      continue;
    }
    const QString again = scratch.path(u"again/Small.qn4"_s);
    QDir(scratch.path(u"again"_s)).removeRecursively();
    g_Project->FileWithPath = again;
    ASSERT_TRUE(g_Project->SaveQN4(true));
    const QByteArray written = fileBytes(again);
    newProject();
    ASSERT_TRUE(g_Project->Load(again, false));
    ASSERT_TRUE(g_Project->SaveQN4(true));
    EXPECT_EQ(fileBytes(again), written) << "round " << round;
  }
  EXPECT_GT(loaded, 300) << "most damage should cost a value and not the book";
  newProject();
}
