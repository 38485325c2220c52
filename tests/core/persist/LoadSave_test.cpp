// A project folder as a whole: what a load and a save do, in which order, and what the writer is told.

#include "core/infra/ScanPause.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "support/FailingDisk.h"
#include "support/SampleProject.h"
#include "support/ScriptedToolkit.h"
#include "support/TestHome.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class LoadSave : public ::testing::Test {
 protected:
  void SetUp() override {
    Settings().DeleteAllSettings();
    path_ = saveSmallProject(scratch_.path());
    newProject();
    logText();
  }

  /// What was logged since the last look.
  QString logText() {
    Logging().WriteActionsToLog();
    const QString text = QString::fromLatin1(fileBytes(Logging().CurrentLogFilename()));
    QFile::remove(Logging().CurrentLogFilename());
    return text;
  }

  /// The project, loaded and saved again as one/Small.qnc4, which is the open file then; its bytes.
  QByteArray savedAsSingleFile() {
    EXPECT_TRUE(g_Project->Load(path_, false));
    g_Project->FileWithPath = scratch_.path(u"one/Small.qnc4"_s);
    EXPECT_TRUE(g_Project->SaveQNC4(false));
    return fileBytes(g_Project->FileWithPath);
  }

  void expectEmptyProject() {
    EXPECT_EQ(g_Project->FileWithPath, QString());
    EXPECT_EQ(g_Project->SceneCount() + g_Project->ChapterCount() + g_Project->CharCount(), 0);
  }

  ScriptedToolkit screen_;
  ScratchFolder scratch_;
  QString path_;
};

}  // namespace

TEST_F(LoadSave, AProjectComesBackAndIsWrittenAgainByteForByte) {
  const auto before = filesBelow(scratch_.path());
  EXPECT_EQ(before.size(), 6);
  ASSERT_TRUE(g_Project->Load(path_, true));
  EXPECT_EQ(g_Project->ChapterCount(), 3);
  EXPECT_EQ(sceneAt(1)->ViewPointChar()->Title(), u"Zoë"_s);
  EXPECT_EQ(g_Project->Wordcount(false), 9) << "the unused scene and the unused chapter don't count";
  EXPECT_EQ(g_Project->Wordcount(true), 12);
  ASSERT_TRUE(g_Project->SaveQN4(false));
  EXPECT_EQ(filesBelow(scratch_.path()), before);
  ASSERT_TRUE(g_Project->SaveQN4(true));
  EXPECT_EQ(filesBelow(scratch_.path()), before);
}

// Whatever loads or saves, and however often it yields: the windows neither take input nor look at what has changed.
TEST_F(LoadSave, InputIsHeldAndTheScanWaitsUntilItIsDone) {
  int yields = 0;
  std::function<void()> look = [&] {
    ++yields;
    EXPECT_TRUE(screen_.inputHeld() && ScanPause::isActive() && g_Project->IsBusy()) << yields;
    screen_.onYield = look;
  };
  const auto watched = [&](const std::function<bool()>& work) {
    yields = 0;
    screen_.onYield = look;
    EXPECT_TRUE(work());
    screen_.onYield = nullptr;
    EXPECT_GT(yields, 2);
    EXPECT_FALSE(screen_.inputHeld() || ScanPause::isActive() || g_Project->IsBusy());
    EXPECT_EQ(screen_.pointer, Pointer::Normal);
  };
  watched([&] { return g_Project->Load(path_, true); });
  watched([] { return g_Project->SaveQN4(false); });
  screen_.expectFile(scratch_.path(u"copy/Copy.qn4"_s));
  watched([] { return g_Project->SaveAs(); });
  g_Project->FileWithPath = scratch_.path(u"one/Small.qnc4"_s);
  watched([] { return g_Project->SaveQNC4(true); });
  screen_.expectBox(u"You've loaded an all-in-one"_s);
  watched([&] { return g_Project->Load(scratch_.path(u"one/Small.qnc4"_s), true); });
  EXPECT_FALSE(screen_.askedWhileHeld) << "what is told behind a work is read with the screen at rest";
}

TEST_F(LoadSave, AMissingSceneFileFailsTheLoadAndLeavesAnEmptyProject) {
  ASSERT_TRUE(QFile::remove(scratch_.path(u"RTF/RTF_00003.rtf"_s)));
  const auto before = filesBelow(scratch_.path());
  screen_.expectErrorReport(u"There was an error loading this project. (If you moved the QN4 file"_s);
  EXPECT_FALSE(g_Project->Load(path_, true));
  expectEmptyProject();
  EXPECT_EQ(filesBelow(scratch_.path()), before);
}

TEST_F(LoadSave, FilesThatAreNoProjectAreToldAndLeaveNothing) {
  const QByteArray whole = fileBytes(path_);
  const QList<std::pair<QByteArray, QString>> cases{
      {"", u"project data"_s},
      {"hello", u"project data"_s},
      {QByteArray(whole).replace("<LastFileIndex1>", "<Last>"), u"project data"_s},
      {QByteArray(whole).replace("<RTFFile>RTF_00002.rtf", "<RTFFile>"), u"load scenes"_s},
  };
  for (const auto& [content, step] : cases) {
    makeSmallProject();
    writeFile(path_, content);
    screen_.expectErrorReport(u"There was an error loading this project."_s);
    if (content.size() < 10) {
      screen_.expectChoice(u"No book could be read from it; 5 files with the texts of scenes stand beside it."_s, {});
    }
    EXPECT_FALSE(g_Project->Load(path_, true));
    EXPECT_FALSE(screen_.askedWhileHeld || g_Project->IsBusy() || ScanPause::isActive())
        << "told with the screen at rest";
    EXPECT_TRUE(logText().contains(step));
    expectEmptyProject();
  }
  screen_.expectErrorReport(u"There was an error loading this project."_s);
  EXPECT_FALSE(g_Project->Load(scratch_.path(u"absent.qn4"_s), false));
  EXPECT_TRUE(logText().contains(u"unable to extract project data from "_s + scratch_.path(u"absent.qn4"_s)));
}

TEST_F(LoadSave, OnlyChangedScenesAreWrittenAndWithProgressThoseThatHaveGone) {
  ASSERT_TRUE(g_Project->Load(path_, false));
  const QString untouched = scratch_.path(u"RTF/RTF_00001.rtf"_s);
  const QString changed = scratch_.path(u"RTF/RTF_00002.rtf"_s);
  writeFile(untouched, "changed behind the program's back");
  sceneAt(2)->setTextRTF(simpleRtf("new words here now"));
  ASSERT_TRUE(g_Project->SaveQN4(false));
  EXPECT_EQ(fileBytes(untouched), "changed behind the program's back");
  EXPECT_EQ(fileBytes(changed), simpleRtf("new words here now"));
  EXPECT_TRUE(fileBytes(path_).contains("<WordCount>4</WordCount>"));
  ASSERT_TRUE(g_Project->SaveQN4(true));
  EXPECT_EQ(fileBytes(untouched), "changed behind the program's back");
  ASSERT_TRUE(QFile::remove(untouched));
  ASSERT_TRUE(g_Project->SaveQN4(true));
  EXPECT_EQ(fileBytes(untouched), simpleRtf("one two three"));
}

TEST_F(LoadSave, ASceneThatNobodyHasWrittenInGetsItsFileToo) {
  ASSERT_TRUE(g_Project->Load(path_, false));
  g_Project->ChapterByID(1)->Addscene(std::make_shared<clsScene>());
  ASSERT_TRUE(g_Project->SaveQN4(false));
  newProject();
  ASSERT_TRUE(g_Project->Load(path_, false)) << "a scene without its file";
  EXPECT_EQ(g_Project->SceneCount(), 6);
  EXPECT_EQ(sceneAt(6)->TextRTF(), QByteArray());
}

TEST_F(LoadSave, ANewProjectAsksForItsFileAndRefusesAFolderThatHoldsOne) {
  makeSmallProject();
  screen_.expectFile(scratch_.path(u"Other.qn4"_s));
  screen_.expectBox(u"There's already a project in that location. Please choose a different folder."_s);
  screen_.expectFile(scratch_.path(u"sub/deeper/Other.qn4"_s));
  ASSERT_TRUE(g_Project->SaveQN4(true));
  ASSERT_EQ(screen_.fileQuestions.size(), 2);
  EXPECT_EQ(screen_.fileQuestions[1].folder, scratch_.path() + u'/') << "the refused folder is offered again";
  EXPECT_EQ(filesBelow(scratch_.path(u"sub/deeper"_s)).size(), 6);
  EXPECT_EQ(Settings().sGet(u"LastProjectFile"_s).toString(), scratch_.path(u"sub/deeper/Other.qn4"_s));
}

TEST_F(LoadSave, ANameWithADotGetsItsExtension) {
  ASSERT_TRUE(g_Project->Load(path_, false));
  screen_.expectFile(scratch_.path(u"two/Vol. 2"_s));
  ASSERT_TRUE(g_Project->SaveAs());
  EXPECT_EQ(g_Project->FileWithPath, scratch_.path(u"two/Vol. 2.qn4"_s));
  EXPECT_TRUE(QFile::exists(g_Project->FileWithPath));
  g_Project->FileWithPath.clear();
  screen_.expectFile(scratch_.path(u"three/Dr. No"_s));
  ASSERT_TRUE(g_Project->SaveQN4(false));
  EXPECT_EQ(g_Project->FileWithPath, scratch_.path(u"three/Dr. No.qn4"_s));
  for (const auto& [given, taken] :
       {std::pair{u"four/a.qn4"_s, u"four/a.qn4"_s}, {u"five/b.QNC4"_s, u"five/b.qn4"_s}}) {
    screen_.expectFile(scratch_.path(given));
    ASSERT_TRUE(g_Project->SaveAs());
    EXPECT_EQ(g_Project->FileWithPath, scratch_.path(taken));
  }
}

TEST_F(LoadSave, GivingUpTheQuestionKeepsTheProjectInMemory) {
  makeSmallProject();
  screen_.expectFile({});
  screen_.expectBox(u"No project file specified. Save cancelled."_s);
  EXPECT_FALSE(g_Project->SaveQN4(true));
  EXPECT_EQ(g_Project->SceneCount(), 5);
  EXPECT_EQ(g_Project->FileWithPath, QString());
}

TEST_F(LoadSave, ASingleFileHoldsTheTextsAndTurnsIntoAFolderAgain) {
  const QByteArray single = savedAsSingleFile();
  EXPECT_EQ(filesBelow(scratch_.path(u"one"_s)).size(), 1);
  EXPECT_TRUE(single.contains("\t\t<SCENERTF>\r\n\t\t\t<![CDATA[" + simpleRtf("one two three").toBase64() +
                              "]]>\r\n\t\t</SCENERTF>\r\n"));
  newProject();
  screen_.expectBox(u"You've loaded an all-in-one 'qnc4' project file."_s);
  ASSERT_TRUE(g_Project->Load(scratch_.path(u"one/Small.qnc4"_s), false));
  EXPECT_FALSE(sceneAt(1)->WordsStale());
  ASSERT_TRUE(g_Project->SaveQN4(false));
  auto folder = filesBelow(scratch_.path(u"one"_s));
  folder.remove(u"Small.qnc4"_s);
  EXPECT_EQ(folder.value(u"Small.qn4"_s), fileBytes(path_));
  EXPECT_EQ(folder.size(), 6);
}

TEST_F(LoadSave, TextThatIsNoBase64LosesThatTextAloneAndIsLogged) {
  QByteArray text = savedAsSingleFile();
  text.replace(simpleRtf("four five").toBase64(), "*not base64*");
  text.replace(simpleRtf("ten").toBase64(), simpleRtf("ten").toBase64().insert(8, "\r\n  ").replace('=', ""));
  const QByteArray unmarked = simpleRtf("eleven twelve").toBase64();
  text.replace("<![CDATA[" + unmarked + "]]>", unmarked);
  writeFile(g_Project->FileWithPath, text);
  screen_.expectBox(u"You've loaded an all-in-one"_s);
  screen_.expectBox(u"could not be read, and they are empty now:\nArrival 2"_s);
  ASSERT_TRUE(g_Project->Load(QString(g_Project->FileWithPath), false));
  EXPECT_EQ(sceneAt(2)->TextRTF(), "");
  EXPECT_EQ(sceneAt(4)->TextRTF(), simpleRtf("ten"));
  EXPECT_EQ(sceneAt(5)->TextRTF(), simpleRtf("eleven twelve"));
  EXPECT_TRUE(logText().contains(u"scene 'Arrival 2'"_s));
}

// A single file with one text that can't be decoded and one that isn't there, saved as a folder that has no such files.
TEST_F(LoadSave, AProjectWithUnreadTextsIsSavedWholeAndOpensAgain) {
  QByteArray text = savedAsSingleFile();
  text.replace("Arrival%202", "");
  text.replace(simpleRtf("four five").toBase64(), "e1x*broken");
  const qsizetype block = text.indexOf("\t\t<SCENERTF>");
  text.remove(block, text.indexOf("</SCENERTF>\r\n", block) + 13 - block);
  writeFile(g_Project->FileWithPath, text);
  screen_.expectBox(u"You've loaded an all-in-one"_s);
  screen_.expectBox(u"Arrival 1\nUntitled scene"_s);
  ASSERT_TRUE(g_Project->Load(QString(g_Project->FileWithPath), false));
  ASSERT_TRUE(g_Project->SaveQN4(false));
  EXPECT_EQ(fileBytes(scratch_.path(u"one/RTF/RTF_00002.rtf.undecoded"_s)), "e1x*broken");
  const QString saved = g_Project->FileWithPath;
  g_Project->FileWithPath = scratch_.path(u"two/Small.qnc4"_s);
  ASSERT_TRUE(g_Project->SaveQNC4(false));
  EXPECT_EQ(fileBytes(g_Project->FileWithPath), text) << "what wasn't read is handed on as it was";
  screen_.expectBox(u"Arrival 1 (RTF_00001.rtf, 3 words); Untitled scene (RTF_00002.rtf, 2 words)"_s);
  ASSERT_TRUE(g_Project->Load(saved, false));
  EXPECT_EQ(g_Project->SceneCount(), 5);
  EXPECT_EQ(sceneAt(1)->TextRTF() + sceneAt(2)->TextRTF(), "");
  EXPECT_EQ(sceneAt(3)->TextRTF(), simpleRtf("six seven eight nine"));
}

TEST_F(LoadSave, ATextThatIsYoungerThanTheProjectFileIsCountedAnew) {
  QByteArray book = fileBytes(path_);
  book.replace("<WordCount>3<", "<WordCount>77<").replace("<WordCount>2<", "<WordCount>88<");
  writeFile(path_, book);
  const auto age = [&](const QString& name, int seconds) {
    QFile file(scratch_.path(u"RTF/"_s + name));
    EXPECT_TRUE(file.open(QIODevice::ReadWrite));
    EXPECT_TRUE(file.setFileTime(QFileInfo(path_).lastModified().addSecs(seconds), QFile::FileModificationTime));
  };
  age(u"RTF_00001.rtf"_s, 1);
  age(u"RTF_00002.rtf"_s, -1);
  ASSERT_TRUE(g_Project->Load(path_, false));
  EXPECT_EQ(sceneAt(1)->Wordcount(), 3);
  EXPECT_EQ(sceneAt(2)->Wordcount(), 88) << "the file was not looked into";
}

TEST_F(LoadSave, CountsThatAreHeldStayUntilTheTextIsWritten) {
  ASSERT_TRUE(g_Project->Load(path_, false));
  const auto scene = sceneAt(1);
  scene->HoldCounts();
  scene->setTextRTF(simpleRtf("five words of an editor"));
  EXPECT_EQ(scene->Wordcount(), 3);
  QByteArray single;
  scene->DataAsXML(single, true);
  EXPECT_TRUE(single.contains("<WordCount>5<")) << "there the text goes along";
  scene->HoldCounts();
  scene->setTextRTF(simpleRtf("two words"));
  ASSERT_TRUE(g_Project->SaveQN4(false));
  EXPECT_TRUE(fileBytes(path_).contains("<WordCount>2<"));
  EXPECT_EQ(scene->Wordcount(), 2);
}

TEST_F(LoadSave, ThePlainMirrorIsWrittenOnlyWhenSwitchedOn) {
  ASSERT_TRUE(g_Project->Load(path_, false));
  ASSERT_TRUE(g_Project->SaveQN4(true));
  EXPECT_FALSE(QFileInfo::exists(scratch_.path(u"Data"_s)));
  Settings().sSet(u"CreateTextToo"_s, true);
  ASSERT_TRUE(g_Project->SaveQN4(false));
  EXPECT_EQ(fileBytes(scratch_.path(u"Data/Plain_00001.txt"_s)).trimmed(), "one two three");
  logText();
  ASSERT_TRUE(QFile::remove(scratch_.path(u"Data/Plain_00001.txt"_s)) &&
              QDir().mkpath(scratch_.path(u"Data/Plain_00001.txt/in the way"_s)));
  ASSERT_TRUE(g_Project->SaveQN4(false));
  EXPECT_TRUE(logText().contains(u"Could not save "_s + scratch_.path(u"Data/Plain_00001.txt"_s)));
  ASSERT_TRUE(QDir(scratch_.path(u"Data/Plain_00001.txt"_s)).removeRecursively());
  ASSERT_TRUE(g_Project->SaveQN4(false));
  Settings().sSet(u"CreateTextToo"_s, u" 0 "_s);
  ASSERT_TRUE(QFile::remove(scratch_.path(u"Data/Plain_00001.txt"_s)));
  ASSERT_TRUE(g_Project->SaveQN4(false));
  EXPECT_FALSE(QFileInfo::exists(scratch_.path(u"Data/Plain_00001.txt"_s)));
}

TEST_F(LoadSave, AFailedWriteOfASceneKeepsItDueForTheNextSave) {
  ASSERT_TRUE(g_Project->Load(path_, false));
  const QString target = scratch_.path(u"RTF/RTF_00002.rtf"_s);
  const QByteArray old = fileBytes(target);
  const QByteArray text = simpleRtf(QByteArray("not lost ").repeated(20000));
  const auto scene = sceneAt(2);
  scene->setTextRTF(text);
  {
    const FailingDisk disk(100000);
    EXPECT_TRUE(g_Project->SaveQN4(false));
  }
  EXPECT_TRUE(scene->RTFChanged());
  EXPECT_TRUE(logText().contains(u"Could not save "_s + target + u" (Disk full"_s));
  EXPECT_EQ(fileBytes(target), old);
  EXPECT_TRUE(g_Project->SaveQN4(false));
  EXPECT_EQ(fileBytes(target), text);
  EXPECT_FALSE(scene->RTFChanged());
}
