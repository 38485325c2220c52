// What could lose a writer's words: full disks, other folders, files that lie, and yields at the wrong moment.

#include "core/infra/RuntimeError.h"
#include "core/infra/SilentToolkit.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "support/FailingDisk.h"
#include "support/SampleProject.h"
#include "support/ScriptedToolkit.h"
#include "support/TestHome.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QScopedValueRollback>

#include <functional>
#include <gtest/gtest.h>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Nobody at the screen, and one yield that fails.
class FailingYield : public SilentToolkit {
 public:
  void DoEvents() override {
    if (++yields_ == at) {
      throw RuntimeError(RuntimeError::Internal);
    }
  }
  /// Whether the yield that was to fail last time was reached; counts anew.
  bool failsAgain() { return std::exchange(yields_, 0) >= at - 1; }

  int at = 0;

 private:
  int yields_ = 0;
};

class Safety : public ::testing::Test {
 protected:
  void SetUp() override {
    path_ = saveSmallProject(scratch_.path(u"book"_s));
    newProject();
  }

  /// Replaces text in the stored project file.
  void edit(const QByteArray& from, const QByteArray& to) {
    QByteArray text = fileBytes(path_);
    ASSERT_TRUE(text.contains(from));
    writeFile(path_, text.replace(from, to));
  }

  ScriptedToolkit screen_;
  ScratchFolder scratch_;
  QString path_;
};

}  // namespace

TEST_F(Safety, ASceneFileIsSoughtInTheProjectsFolderAndNowhereElse) {
  writeFile(scratch_.path(u"victim.txt"_s), "mine");
  for (const QByteArray& name : {QByteArray("../../victim.txt"), QByteArray("..\\..\\victim.txt"), QByteArray("..")}) {
    edit("<RTFFile>RTF_00002.rtf<", "<RTFFile>" + name + "<");
    screen_.expectErrorReport(u"There was an error loading this project."_s);
    EXPECT_FALSE(g_Project->Load(path_, false)) << name.constData();
    edit("<RTFFile>" + name + "<", "<RTFFile>RTF_00002.rtf<");
  }
  EXPECT_EQ(fileBytes(scratch_.path(u"victim.txt"_s)), "mine");
}

TEST_F(Safety, ASaveThatHadToAskForAnotherPlaceWritesEveryTextThere) {
  ASSERT_TRUE(g_Project->Load(path_, false));
  ASSERT_TRUE(QDir().mkpath(scratch_.path(u"wall/Small.qn4"_s)));
  g_Project->FileWithPath = scratch_.path(u"wall/Small.qn4"_s);
  screen_.expectBox(u"Unable to save project."_s);
  screen_.expectFile(scratch_.path(u"new/Small.qn4"_s));
  ASSERT_TRUE(g_Project->SaveQN4(false));
  newProject();
  EXPECT_TRUE(g_Project->Load(scratch_.path(u"new/Small.qn4"_s), false));

  ASSERT_TRUE(QDir().mkpath(scratch_.path(u"wall/Small.qnc4"_s)));
  g_Project->FileWithPath = scratch_.path(u"wall/Small.qn4"_s);
  screen_.expectBox(u"Unable to save project."_s);
  screen_.expectFile(scratch_.path(u"single/Small.qn4"_s));
  ASSERT_TRUE(g_Project->SaveQNC4(false));
  EXPECT_TRUE(fileBytes(scratch_.path(u"single/Small.qnc4"_s)).contains("<SCENERTF>"));
}

TEST_F(Safety, ATextThatHasChangedAndIsAsLongAsBeforeIsWritten) {
  ASSERT_TRUE(g_Project->Load(path_, false));
  const QByteArray edited = simpleRtf("one two thref");
  ASSERT_EQ(edited.size(), sceneAt(1)->TextRTF().size());
  sceneAt(1)->setTextRTF(edited);
  ASSERT_TRUE(g_Project->SaveQN4(true));
  EXPECT_EQ(fileBytes(sceneAt(1)->RTFFileWithPath()), edited);
}

TEST_F(Safety, AFullDiskIsToldAndNoSaveCountsAsDone) {
  if (!FailingDisk::available()) {
    GTEST_SKIP() << "a full disk can't be simulated here";
  }
  ASSERT_TRUE(g_Project->Load(path_, false));
  g_Project->DescText = QString(200000, u'x');
  ASSERT_TRUE(g_Project->SaveQN4(false));
  // The last one fails as late as the file is closed.
  const auto whole = static_cast<qint64>(fileBytes(path_).size());
  for (const qint64 room : {qint64{100}, qint64{70000}, qint64{150000}, whole - 1}) {
    const QByteArray before = fileBytes(path_);
    FailingDisk disk(room);
    screen_.expectBox(u"Unable to save project. Please use Save As and choose a different location.\n\nDisk full"_s);
    screen_.expectFile({});
    screen_.expectBox(u"No project file specified. Save cancelled."_s);
    EXPECT_FALSE(g_Project->SaveQN4(false));
    disk.clear();
    EXPECT_EQ(fileBytes(path_), before) << "the old book is gone";
    EXPECT_EQ(filesBelow(QFileInfo(path_).path()).size(), 6) << "something was left beside it";
    EXPECT_EQ(g_Project->SceneCount(), 5);
    g_Project->FileWithPath = path_;
    ASSERT_TRUE(g_Project->SaveQN4(false));
    EXPECT_EQ(fileBytes(path_).count("<PROJECT>"), 1);
  }
}

// What a yield leads to may fail: no book is lost over it, whichever yield it is.
TEST_F(Safety, AFailureInAYieldCostsNoBook) {
  const QByteArray before = fileBytes(path_);
  FailingYield nobody;
  installToolkit(&nobody);
  for (nobody.at = 1; nobody.failsAgain(); ++nobody.at) {
    newProject();
    const bool loaded = g_Project->Load(path_, true);
    EXPECT_EQ(g_Project->SceneCount(), loaded ? 5 : 0) << nobody.at;
    EXPECT_EQ(g_Project->FileWithPath, loaded ? path_ : QString()) << nobody.at << ": an empty book with a name";
  }
  EXPECT_GT(nobody.at, 10);
  EXPECT_EQ(fileBytes(path_), before);
  for (nobody.at = 1; nobody.failsAgain(); ++nobody.at) {
    g_Project->Title = u"Title "_s + QString::number(nobody.at);
    const QByteArray old = fileBytes(path_);
    const bool saved = g_Project->SaveQN4(true);
    const QByteArray now = fileBytes(path_);
    EXPECT_TRUE(now == old || (now != old && now.endsWith("</QUILLANE4>\r\n"))) << nobody.at;
    EXPECT_EQ(saved, now != old) << nobody.at;
    const QScopedValueRollback calm(nobody.at, 0);
    EXPECT_TRUE(g_Project->SaveQN4(false)) << "the next save is refused";
  }
  EXPECT_GT(nobody.at, 4);
  installToolkit(&screen_);
}

TEST_F(Safety, NothingBeginsInTheMiddleOfALoadOrSave) {
  const QString other = scratch_.path(u"other/Other.qn4"_s);
  ASSERT_TRUE(g_Project->Load(path_, false));
  g_Project->FileWithPath = other;
  ASSERT_TRUE(g_Project->SaveQN4(true));
  screen_.onYield = [&] { EXPECT_FALSE(g_Project->Load(other, false)); };
  ASSERT_TRUE(g_Project->Load(path_, true));
  EXPECT_EQ(g_Project->FileWithPath, path_);
  screen_.onYield = [&] {
    EXPECT_FALSE(g_Project->SaveQN4(true));
    for (int i = 0; i < 100; ++i) {
      g_Project->Addscene(std::make_shared<clsScene>());
    }
  };
  ASSERT_TRUE(g_Project->SaveQN4(true));
  EXPECT_EQ(g_Project->FileWithPath, path_);
}

// The fields behind a name whose closing tag is missing would hide behind it for ever.
TEST_F(Safety, ARatingNameWithoutItsClosingTagDoesNotHideLaterFields) {
  edit("<FieldTitle1></FieldTitle1>", "<FieldTitle1>Tension");
  ASSERT_TRUE(g_Project->Load(path_, false));
  EXPECT_EQ(g_Project->FieldTitle(1), u"Tension"_s);
  g_Project->setFieldTitle(2, u"Humour"_s);
  g_Project->setDeadlineDate(1, 46000);
  ASSERT_TRUE(g_Project->SaveQN4(false));
  newProject();
  ASSERT_TRUE(g_Project->Load(path_, false));
  EXPECT_EQ(g_Project->FieldTitle(2), u"Humour"_s);
  EXPECT_EQ(g_Project->DeadlineDate(1), 46000);
}

TEST_F(Safety, ANewSceneNeverTakesTheFileOfAnother) {
  edit("<LastFileIndex4>5<", "<LastFileIndex4>1<");
  ASSERT_TRUE(g_Project->Load(path_, false));
  const auto scene = std::make_shared<clsScene>();
  chapterAt(1)->Addscene(scene);
  scene->setTextRTF(simpleRtf("new"));
  ASSERT_TRUE(g_Project->SaveQN4(false));
  EXPECT_EQ(scene->RTFFilename(), u"RTF_00006.rtf"_s);
  EXPECT_EQ(fileBytes(scratch_.path(u"book/RTF/RTF_00002.rtf"_s)), simpleRtf("four five"));
}

TEST_F(Safety, NumbersAtTheEndOfTheirRangeStillGiveFreshOnes) {
  edit("<LastFileIndex4>5<", "<LastFileIndex4>2147483647<");
  edit("<ID>5</ID>\r\n\t\t<Title>Cut", "<ID>2147483647</ID>\r\n\t\t<Title>Cut");
  screen_.expectBox(u"Cut scenes (1)"_s);
  ASSERT_TRUE(g_Project->Load(path_, false));
  const auto scene = std::make_shared<clsScene>();
  chapterAt(1)->Addscene(scene);
  EXPECT_EQ(scene->ID(), 5);
  scene->Save();
  EXPECT_EQ(scene->RTFFilename(), u"RTF_00006.rtf"_s);
}

TEST_F(Safety, AFailedReadKeepsTheTextInMemory) {
  ASSERT_TRUE(g_Project->Load(path_, false));
  const auto scene = sceneAt(1);
  ASSERT_TRUE(QFile::remove(scene->RTFFileWithPath()));
  EXPECT_FALSE(scene->LoadRTF());
  EXPECT_EQ(scene->TextRTF(), simpleRtf("one two three"));
}

TEST_F(Safety, ATextThatCouldNotBeReadIsNotOverwrittenWithNothing) {
  ASSERT_TRUE(g_Project->Load(path_, false));
  g_Project->FileWithPath = path_;
  ASSERT_TRUE(g_Project->SaveQNC4(false));
  QByteArray single = fileBytes(g_Project->FileWithPath);
  writeFile(g_Project->FileWithPath, single.replace(simpleRtf("four five").toBase64(), "?!"));
  screen_.expectBox(u"You've loaded an all-in-one"_s);
  screen_.expectBox(u"could not be read"_s);
  ASSERT_TRUE(g_Project->Load(QString(g_Project->FileWithPath), false));
  screen_.expectChoice(u"You opened Small.qnc4"_s, u"Replace"_s);
  ASSERT_TRUE(g_Project->SaveQN4(true));
  const QString file = scratch_.path(u"book/RTF/RTF_00002.rtf"_s);
  EXPECT_EQ(fileBytes(file), simpleRtf("four five"));
  sceneAt(2)->setTextRTF(simpleRtf("anew"));
  ASSERT_TRUE(g_Project->SaveQN4(false));
  EXPECT_EQ(fileBytes(file), simpleRtf("anew"));
}

TEST_F(Safety, TheProjectFileKeepsItsNameWhateverItsLetters) {
  ASSERT_TRUE(g_Project->Load(path_, false));
  g_Project->FileWithPath = scratch_.path(u"My.Novel/Book.QN4"_s);
  ASSERT_TRUE(g_Project->SaveQN4(true));
  EXPECT_EQ(g_Project->FileWithPath, scratch_.path(u"My.Novel/Book.QN4"_s));
  g_Project->FileWithPath = scratch_.path(u"My.Novel/plain"_s);
  ASSERT_TRUE(g_Project->SaveQN4(false));
  EXPECT_TRUE(QFileInfo::exists(scratch_.path(u"My.Novel/plain.qn4"_s)));
}
