// Other programs, other copies of ours and other copies of the book: whose words are on the disk afterwards.

#include "core/infra/Clock.h"
#include "core/infra/FolderLock.h"
#include "core/infra/SilentToolkit.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/persist/Backups.h"
#include "support/SampleProject.h"
#include "support/ScriptedToolkit.h"
#include "support/TestHome.h"
#include "support/TestLanguage.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

const QByteArray kTheirs = "{\\rtf1 theirs}";
const QString kChanged = u"Another program has changed"_s;

class OtherPrograms : public ::testing::Test {
 protected:
  void SetUp() override {
    path_ = saveSmallProject(folder());
    newProject();
    Clock::set(QDateTime(QDate(2026, 11, 21), QTime(12, 0)));
  }
  void TearDown() override {
    newProject();
    Clock::set({});
  }

  QString folder() const { return scratch_.path(u"book"_s); }
  QString file(const QString& name) const { return scratch_.path(u"book/"_s + name); }
  QByteArray sceneFile(int number) const { return fileBytes(file(u"RTF/RTF_0000%1.rtf"_s.arg(number))); }
  void leaveTheirs(int number) const { writeFile(file(u"RTF/RTF_0000%1.rtf"_s.arg(number)), kTheirs); }

  ScriptedToolkit screen_;
  ScratchFolder scratch_;
  QString path_;
};

}  // namespace

TEST_F(OtherPrograms, ATextThatBothHaveChangedIsKeptAsTheWriterSays) {
  const struct {
    QString choice;
    QByteArray stays, beside;
    bool saved;
  } cases[] = {{u"Keep both"_s, simpleRtf("mine"), kTheirs, true},
               {u"Keep mine"_s, simpleRtf("mine"), {}, true},
               {u"Take theirs"_s, kTheirs, {}, true},
               {QString(), kTheirs, {}, false}};
  for (const auto& [choice, stays, beside, saved] : cases) {
    ASSERT_TRUE(g_Project->Load(path_, false));
    sceneAt(2)->setTextRTF(simpleRtf("mine"));
    leaveTheirs(2);
    screen_.expectChoice(kChanged, choice);
    EXPECT_EQ(g_Project->SaveQN4(true), saved) << choice;
    EXPECT_EQ(sceneFile(2), stays) << choice;
    EXPECT_EQ(sceneAt(2)->TextRTF(), saved ? stays : simpleRtf("mine")) << choice;
    EXPECT_EQ(fileBytes(file(u"RTF/RTF_00002 (conflict 2026-11-21).rtf"_s)), beside) << choice;
    EXPECT_EQ(g_Project->HoldsUnsaved(), !saved) << choice;
    QFile::remove(file(u"RTF/RTF_00002 (conflict 2026-11-21).rtf"_s));
    newProject();
    writeFile(file(u"RTF/RTF_00002.rtf"_s), simpleRtf("four five"));
  }
}

TEST_F(OtherPrograms, AnEditorsOwnSaveAsksToo) {
  ASSERT_TRUE(g_Project->Load(path_, false));
  leaveTheirs(1);
  sceneAt(1)->setTextRTF(simpleRtf("mine"));
  screen_.expectChoice(u"The text of 'Arrival 1'"_s, QString());
  sceneAt(1)->Save(false, true);
  EXPECT_TRUE(sceneAt(1)->RTFChanged());
  EXPECT_EQ(sceneFile(1), kTheirs);
  // Nobody being there, both are kept.
  SilentToolkit nobody;
  installToolkit(&nobody);
  sceneAt(1)->Save(false, true);
  installToolkit(&screen_);
  EXPECT_EQ(sceneFile(1), simpleRtf("mine"));
  EXPECT_EQ(fileBytes(file(u"RTF/RTF_00001 (conflict 2026-11-21).rtf"_s)), kTheirs);
}

// Touched, copied back and synchronised files are no changes; nor is what holds the same as ours.
TEST_F(OtherPrograms, WhatOnlyLooksChangedIsNotAskedAbout) {
  ASSERT_TRUE(g_Project->Load(path_, false));
  for (const QString& name : {u"Small.qn4"_s, u"RTF/RTF_00001.rtf"_s, u"RTF/RTF_00002.rtf"_s}) {
    const QByteArray bytes = fileBytes(file(name));
    ASSERT_TRUE(QFile::remove(file(name)));
    writeFile(file(name), bytes);
  }
  sceneAt(1)->setTextRTF(simpleRtf("mine"));
  sceneAt(3)->setTextRTF(kTheirs);
  leaveTheirs(3);
  EXPECT_TRUE(g_Project->SaveQN4(true));
  EXPECT_EQ(sceneFile(1), simpleRtf("mine"));
  EXPECT_EQ(g_Project->UnsavedTexts(), 0);
}

TEST_F(OtherPrograms, AChangedProjectFileIsNotWrittenOverUnasked) {
  const QByteArray before = fileBytes(path_);
  const QByteArray theirs = fileBytes(path_).replace("<Title>Arrival<", "<Title>Theirs<");
  const auto change = [&] {
    newProject();
    writeFile(path_, before);
    ASSERT_TRUE(g_Project->Load(path_, false));
    g_Project->Title = u"Mine"_s;
    sceneAt(2)->setTextRTF(simpleRtf("mine"));
    writeFile(path_, theirs);
  };
  change();
  screen_.expectChoice(u"The plan of the book (Small.qn4, "_s, u"Take theirs"_s);
  EXPECT_FALSE(g_Project->SaveQN4(false));
  EXPECT_TRUE(g_Project->ReloadWanted());
  EXPECT_EQ(fileBytes(path_), theirs);
  EXPECT_EQ(sceneFile(2), simpleRtf("mine")) << "a text that stands against nothing";
  change();
  screen_.expectChoice(kChanged, u"Keep both"_s);
  EXPECT_TRUE(g_Project->SaveQN4(false));
  EXPECT_TRUE(fileBytes(path_).contains("<Title>Mine<"));
  EXPECT_EQ(fileBytes(file(u"Small (conflict 2026-11-21).qn4"_s)), theirs);
  EXPECT_TRUE(g_Project->SaveQN4(false)) << "asked once";
  screen_.expectBox(u"shows those of scenes): Small (conflict 2026-11-21).qn4"_s);
  EXPECT_TRUE(g_Project->Load(path_, false));
}

TEST_F(OtherPrograms, AnOlderCopyAsksBeforeItReplacesTheBook) {
  const QByteArray book = fileBytes(path_).replace("<WordCount>3<", "<WordCount>3000<");
  QFile::copy(path_, file(u"Small.bak"_s));
  writeFile(path_, book);
  const auto open = [&](const QString& name) {
    ASSERT_TRUE(g_Project->Load(file(name), false));
    sceneAt(1)->setTextRTF(simpleRtf("older"));
  };
  open(u"Small.bak"_s);
  screen_.expectChoice(u"3,009 words"_s, QString());
  EXPECT_FALSE(g_Project->SaveQN4(true));
  screen_.expectChoice(u"You opened Small.bak"_s, u"Save under a new name"_s);
  screen_.expectFile(path_);
  screen_.expectBox(u"There's already a project in that location."_s);
  screen_.expectFile(scratch_.path(u"older/Older.qn4"_s));
  EXPECT_TRUE(g_Project->SaveQN4(true));
  EXPECT_EQ(screen_.choices.constLast().byDefault, 0);
  EXPECT_EQ(fileBytes(path_), book);
  EXPECT_EQ(sceneFile(1), simpleRtf("one two three"));
  EXPECT_EQ(fileBytes(scratch_.path(u"older/RTF/RTF_00001.rtf"_s)), simpleRtf("older"));
  EXPECT_TRUE(g_Project->SaveQN4(true)) << "asked once";

  // A copy of its own name has the same texts.
  QFile::copy(file(u"Small.bak"_s), file(u"Copy.qn4"_s));
  open(u"Copy.qn4"_s);
  screen_.expectChoice(u"You opened Copy.qn4"_s, QString());
  sceneAt(1)->Save(false, true);
  EXPECT_EQ(sceneFile(1), simpleRtf("one two three"));
  EXPECT_TRUE(sceneAt(1)->RTFChanged());
  screen_.expectChoice(u"Small.qn4 ("_s, u"Replace"_s);
  sceneAt(1)->Save(false, true);
  EXPECT_EQ(sceneFile(1), simpleRtf("older"));
  EXPECT_TRUE(g_Project->SaveQN4(true));
}

TEST_F(OtherPrograms, ABookThatIsOpenElsewhereIsOpenedReadOnlyAnywayOrNot) {
  const auto before = filesBelow(folder());
  auto elsewhere = std::make_unique<FolderLock>(folder());
  screen_.expectChoice(u"This book is open already"_s, QString());
  EXPECT_FALSE(g_Project->Load(path_, false));
  EXPECT_EQ(g_Project->SceneCount(), 0);

  screen_.expectChoice(u"This book is open already"_s, u"Open read-only"_s);
  ASSERT_TRUE(g_Project->Load(path_, false));
  EXPECT_TRUE(g_Project->ReadOnly());
  g_Project->Title = u"Not to be saved"_s;
  sceneAt(1)->setTextRTF(simpleRtf("mine"));
  sceneAt(1)->Save(false, true);
  EXPECT_FALSE(g_Project->SaveQN4(true) || g_Project->SaveQNC4(true));
  EXPECT_EQ(filesBelow(folder()), before);
  EXPECT_TRUE(g_Project->HoldsUnsaved());
  screen_.expectFile(path_);
  screen_.expectBox(u"opened read-only. Please choose a different folder."_s);
  screen_.expectFile(scratch_.path(u"own/Own.qn4"_s));
  EXPECT_TRUE(g_Project->SaveAs());
  EXPECT_FALSE(g_Project->ReadOnly() || g_Project->HoldsUnsaved());
  EXPECT_EQ(fileBytes(scratch_.path(u"own/RTF/RTF_00001.rtf"_s)), simpleRtf("mine"));
  EXPECT_EQ(filesBelow(folder()), before);

  screen_.expectChoice(u"This book is open already"_s, u"Open anyway"_s);
  ASSERT_TRUE(g_Project->Load(path_, false));
  EXPECT_TRUE(!g_Project->ReadOnly() && g_Project->SaveQN4(true));
  elsewhere.reset();
  ASSERT_TRUE(g_Project->Load(path_, false));
  EXPECT_TRUE(FolderLock(folder()).other()) << "now it is ours";
  newProject();
  EXPECT_FALSE(QFile::exists(file(FolderLock::fileName())));
}

TEST_F(OtherPrograms, AFolderThatHasGoneIsAskedAboutAndNotMadeAnew) {
  ASSERT_TRUE(g_Project->Load(path_, false));
  const QString away = scratch_.path(u"away"_s);
  ASSERT_TRUE(QDir().rename(folder(), away));
  screen_.expectChoice(u"isn't there any more"_s, QString());
  EXPECT_FALSE(g_Project->SaveQN4(true));
  EXPECT_FALSE(QFile::exists(folder()));
  EXPECT_EQ(g_Project->FileWithPath, path_);
  screen_.expectChoice(u"isn't there any more"_s, u"Save somewhere else"_s);
  screen_.expectFile(scratch_.path(u"other/Other.qn4"_s));
  EXPECT_TRUE(g_Project->SaveQN4(true));
  EXPECT_EQ(filesBelow(scratch_.path(u"other"_s)).size(), 6);
}

// What was saved by an editor while a save yielded is not in the file that this save wrote.
TEST_F(OtherPrograms, WhatAnEditorSavesDuringASaveCountsAsUnsaved) {
  ASSERT_TRUE(g_Project->Load(path_, false));
  sceneAt(5)->fEditor_Changed();
  int yields = 0;
  std::function<void()> during = [&] {
    if (++yields == 4) {
      sceneAt(1)->fEditor_Changed();
    }
    screen_.onYield = during;
  };
  screen_.onYield = during;
  EXPECT_TRUE(g_Project->SaveQN4(true));
  screen_.onYield = nullptr;
  EXPECT_GE(yields, 4);
  EXPECT_TRUE(g_Project->EditedSinceSave());
  EXPECT_TRUE(g_Project->SaveQN4(true));
  EXPECT_FALSE(g_Project->EditedSinceSave());
}

// A harmless save in between settles nothing.
TEST_F(OtherPrograms, AnOlderCopyAsksAlsoAfterASaveThatReplacedNothing) {
  QFile::copy(path_, file(u"Copy.qn4"_s));
  ASSERT_TRUE(g_Project->Load(file(u"Copy.qn4"_s), false));
  g_Project->Title = u"A copy"_s;
  ASSERT_TRUE(g_Project->SaveQN4(true));
  sceneAt(1)->setTextRTF(simpleRtf("older"));
  screen_.expectChoice(u"You opened Copy.qn4"_s, u"Save under a new name"_s);
  screen_.expectFile(file(u"Another.qn4"_s));
  screen_.expectBox(u"There's already a project in that location."_s);
  screen_.expectFile({});
  screen_.expectBox(u"Save cancelled."_s);
  sceneAt(1)->Save(false, true);
  EXPECT_EQ(sceneFile(1), simpleRtf("one two three"));
}

TEST_F(OtherPrograms, WhoHasChangedNothingLeavesTheOtherPlanAlone) {
  ASSERT_TRUE(g_Project->Load(path_, false));
  const QByteArray theirs = fileBytes(path_).replace("<Title>Arrival<", "<Title>Theirs<");
  writeFile(path_, theirs);
  EXPECT_TRUE(g_Project->SaveQN4(true));
  EXPECT_EQ(fileBytes(path_), theirs);
  g_Project->Title = u"Mine"_s;
  screen_.expectChoice(u"The plan of the book"_s, QString());
  EXPECT_FALSE(g_Project->SaveQN4(true));
}

TEST_F(OtherPrograms, TheirsIsTakenOnlyWhole) {
  const auto offered = [&] { return screen_.choices.constLast().choices; };
  for (const QByteArray& left : {QByteArray(), kTheirs.chopped(1)}) {
    ASSERT_TRUE(g_Project->Load(path_, false));
    sceneAt(1)->setTextRTF(simpleRtf("mine"));
    writeFile(file(u"RTF/RTF_00001.rtf"_s), left);
    screen_.expectChoice(u"cut off or empty"_s, QString());
    EXPECT_FALSE(g_Project->SaveQN4(true));
    EXPECT_EQ(offered(), QStringList({u"Keep both"_s, u"Keep mine"_s})) << left;
    newProject();
    writeFile(file(u"RTF/RTF_00001.rtf"_s), simpleRtf("one two three"));
  }
  ASSERT_TRUE(g_Project->Load(path_, false));
  g_Project->Title = u"Mine"_s;
  writeFile(path_, fileBytes(path_).chopped(30));
  screen_.expectChoice(u"cut off or empty"_s, QString());
  EXPECT_FALSE(g_Project->SaveQN4(true));
  EXPECT_FALSE(offered().contains(u"Take theirs"_s));
}

TEST_F(OtherPrograms, APlanThatIsWrittenDuringTheSaveIsKeptBeside) {
  ASSERT_TRUE(g_Project->Load(path_, false));
  const QByteArray theirs = fileBytes(path_).replace("<Title>Arrival<", "<Title>Theirs<");
  g_Project->Title = u"Mine"_s;
  screen_.onYield = [&] { writeFile(path_, theirs); };
  EXPECT_TRUE(g_Project->SaveQN4(true));
  EXPECT_TRUE(fileBytes(path_).contains("<Title>Mine<"));
  EXPECT_EQ(fileBytes(file(u"Small (conflict 2026-11-21).qn4"_s)), theirs);
}

TEST_F(OtherPrograms, ATextFolderThatHasGoneIsWrittenWhole) {
  ASSERT_TRUE(g_Project->Load(path_, false));
  ASSERT_TRUE(QDir(file(u"RTF"_s)).removeRecursively());
  sceneAt(1)->setTextRTF(simpleRtf("mine"));
  ASSERT_TRUE(g_Project->SaveQN4(false));
  EXPECT_EQ(filesBelow(folder()).size(), 6);
  // The empty folder of a stick that was pulled out.
  ASSERT_TRUE(QDir(folder()).removeRecursively() && QDir().mkpath(folder()));
  screen_.expectChoice(u"isn't there any more"_s, QString());
  EXPECT_FALSE(g_Project->SaveQN4(false));
  EXPECT_TRUE(filesBelow(folder()).isEmpty());
  // Nor do mirrors and backups make one.
  ASSERT_TRUE(QDir(folder()).removeRecursively());
  Settings().sSet(u"CreateTextToo"_s, true);
  sceneAt(1)->setTextRTF(simpleRtf("mine again"));
  sceneAt(1)->Save(false, true);
  Settings().sSet(u"CreateTextToo"_s, false);
  EXPECT_FALSE(backUpScene(*sceneAt(1)));
  EXPECT_FALSE(QFile::exists(folder()));
  EXPECT_TRUE(sceneAt(1)->SaveFailure().contains(u"isn't there any more"_s));
}

TEST_F(OtherPrograms, ANameThatIsMadeOfWhatWasTypedIsAskedAbout) {
  ASSERT_TRUE(g_Project->Load(path_, false));
  writeFile(scratch_.path(u"Vol. 2.qn4"_s), "another book");
  screen_.expectFile(scratch_.path(u"Vol. 2"_s));
  screen_.expectBox(u"Vol. 2.qn4 is there already. Do you want to replace it?"_s, Answer::No);
  EXPECT_FALSE(g_Project->SaveAs());
  EXPECT_EQ(fileBytes(scratch_.path(u"Vol. 2.qn4"_s)), "another book");
  EXPECT_EQ(g_Project->FileWithPath, path_);
}

TEST_F(OtherPrograms, ASingleFileIsLookedAtToo) {
  ASSERT_TRUE(g_Project->Load(path_, false));
  const QString single = scratch_.path(u"one/One.qnc4"_s);
  g_Project->FileWithPath = single;
  ASSERT_TRUE(g_Project->SaveQNC4(false));
  screen_.expectBox(u"You've loaded an all-in-one"_s);
  ASSERT_TRUE(g_Project->Load(single, false));
  // Its texts get files as soon as one is written.
  sceneAt(1)->setTextRTF(simpleRtf("mine"));
  sceneAt(1)->Save(false, true);
  EXPECT_FALSE(sceneAt(1)->RTFChanged());
  writeFile(single, fileBytes(single).replace("<Title>Arrival<", "<Title>Theirs<"));
  screen_.expectChoice(kChanged, u"Keep both"_s);
  EXPECT_TRUE(g_Project->SaveQNC4(false));
  EXPECT_TRUE(fileBytes(scratch_.path(u"one/One (conflict 2026-11-21).qnc4"_s)).contains("Theirs"));
}

TEST_F(OtherPrograms, TheQuestionIsInTheLanguageAndLeavesTitlesAlone) {
  const TestLanguage language(
      u"The text of '%1'||Text von <%1>\n"
      "Another program has changed what you are about to save||Geändert wurde\n"_s);
  ASSERT_TRUE(g_Project->Load(path_, false));
  sceneAt(2)->Title = u"%1 of %2"_s;
  sceneAt(2)->setTextRTF(simpleRtf("mine"));
  leaveTheirs(2);
  screen_.expectChoice(u"Geändert wurde:\n\nText von <%1 of %2> (RTF_00002.rtf, "_s, QString());
  EXPECT_FALSE(g_Project->SaveQN4(true));
}
