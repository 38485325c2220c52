// Backups: what the archives of the day hold, what a damaged book can't spoil, and what is told when one isn't whole.

#include "core/persist/Backups.h"

#include "core/infra/Clock.h"
#include "core/infra/FolderLock.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/Globals.h"
#include "core/model/LongWork.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/persist/BackupsProject.h"
#include "core/persist/BackupsView.h"
#include "core/persist/SceneCopy.h"
#include "core/text/Rtf.h"
#include "support/Archives.h"
#include "support/FailingDisk.h"
#include "support/SampleProject.h"
#include "support/ScriptedToolkit.h"
#include "support/TestHome.h"

#include <QDir>
#include <QFile>
#include <QScopedValueRollback>

#include <functional>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

using Result = BackupOutcome::Result;

class Backups : public ::testing::Test {
 protected:
  void SetUp() override {
    Clock::set(QDateTime(QDate(2026, 11, 20), QTime(9, 5)));
    path_ = saveSmallProject(scratch_.path(u"book"_s));
    writeFile(g_SettingsFile, "KEY,1\r\n");
    day_ = g_Project->TodaysBackupFolder();
  }
  void TearDown() override {
    newProject();
    Clock::set({});
  }

  static bool fails(bool complete, const QString& cause) {
    const BackupOutcome outcome = backUpProject(*g_Project, complete, false);
    return outcome.result == Result::Failed && outcome.causes.join(u'\n').contains(cause);
  }

  ScriptedToolkit screen_;
  ScratchFolder scratch_;
  QScopedValueRollback<QString> settings_{g_SettingsFile, scratch_.path(u"Quillane4.ini"_s)};
  QString path_;
  QString day_;
};

}  // namespace

TEST_F(Backups, TheDaysArchiveHoldsTheLastVersionOfBookAndSettings) {
  ASSERT_TRUE(g_Project->BackupProject(false, false));
  const QString archive = day_ + u"Small.zip"_s;
  EXPECT_EQ(membersOf(archive).keys(), (QStringList{u"Quillane4.ini"_s, u"Small.qn4"_s}));
  const QByteArray first = fileBytes(archive);
  ASSERT_TRUE(g_Project->BackupProject(false, false));
  EXPECT_EQ(fileBytes(archive), first);

  g_Project->Title = u"Changed"_s;
  ASSERT_TRUE(g_Project->SaveQN4(false));
  ASSERT_TRUE(g_Project->BackupProject(false, false));
  EXPECT_EQ(membersOf(archive).value(u"Small.qn4"_s), fileBytes(path_));
  EXPECT_EQ(newestBackup(path_).value_or(Backup()).text, fileBytes(path_));
  EXPECT_TRUE(othersCanRead(archive));
}

TEST_F(Backups, TheCompleteArchiveHoldsEverySceneAndCanBeVerified) {
  writeFile(g_Project->RTFFolder() + u"notOfTheBook.rtf"_s, "x");
  const BackupOutcome outcome = backUpProject(*g_Project, true, false);
  EXPECT_EQ(outcome.result, Result::Made);
  ASSERT_EQ(outcome.archive, day_ + u"Small_complete.zip"_s);
  const auto members = membersOf(outcome.archive);
  EXPECT_EQ(members.size(), 2 + g_Project->SceneCount());
  EXPECT_EQ(members.value(u"RTF/"_s + sceneAt(1)->RTFFilename()), sceneAt(1)->TextRTF());
  EXPECT_TRUE(othersCanRead(outcome.archive));
  EXPECT_TRUE(g_Project->BackupProject(true, true));
  EXPECT_TRUE(QFile::exists(g_Project->Path() + u"Autobackups/SmallFri_complete.zip"_s));
  EXPECT_TRUE(g_Project->BackupThisFile(path_, day_ + u"One.zip"_s));
  EXPECT_EQ(membersOf(day_ + u"One.zip"_s).keys(), QStringList{u"Small.qn4"_s});
  EXPECT_FALSE(g_Project->BackupThisFile(path_ + u"gone"_s, day_ + u"One.zip"_s));

  const BackupCheck whole = verifyBackup(*g_Project, outcome.archive);
  EXPECT_TRUE(whole.isWhole());
  EXPECT_EQ(whole.members, members.size());
  QByteArray bytes = fileBytes(outcome.archive);
  const qsizetype content = bytes.indexOf(QByteArray(sceneAt(1)->RTFFilename().toLatin1())) + 80;
  bytes[content] = static_cast<char>(~bytes[content]);
  writeFile(outcome.archive, bytes);
  const BackupCheck damaged = verifyBackup(*g_Project, outcome.archive);
  ASSERT_EQ(damaged.damaged.size(), 1);
  EXPECT_TRUE(damaged.damaged.first().startsWith(u"RTF/"_s + sceneAt(1)->RTFFilename()));
  writeFile(outcome.archive, "no archive");
  EXPECT_FALSE(verifyBackup(*g_Project, outcome.archive).failure.isEmpty());
}

TEST_F(Backups, ADamagedMemberIsMendedByTheNextCompleteBackup) {
  const QString archive = backUpProject(*g_Project, true, false).archive;
  QByteArray bytes = fileBytes(archive);
  const qsizetype content = bytes.indexOf(QByteArray(sceneAt(1)->RTFFilename().toLatin1())) + 80;
  bytes[content] = static_cast<char>(~bytes[content]);
  writeFile(archive, bytes);
  EXPECT_TRUE(g_Project->BackupProject(true, false));
  EXPECT_TRUE(verifyBackup(*g_Project, archive).isWhole());
  writeFile(archive, "no archive");
  EXPECT_TRUE(g_Project->BackupProject(true, false));
  EXPECT_TRUE(verifyBackup(*g_Project, archive).isWhole());
  const QDir day(g_Project->TodaysBackupFolder(), u"*_complete_damaged_*.zip"_s);
  ASSERT_EQ(day.count(), 1U);
  EXPECT_EQ(fileBytes(day.filePath(day[0])), "no archive");
}

TEST_F(Backups, WhatIsNotInTheArchiveIsTold) {
  const auto remove = [](const QString& file) { return QFile::remove(file); };
  ASSERT_TRUE(g_Project->BackupProject(true, false));
  const QString missing = sceneAt(2)->RTFFileWithPath();
  ASSERT_TRUE(remove(missing));
  EXPECT_TRUE(fails(true, u"The scene \""_s + sceneAt(2)->Title + u"\" has no file"_s));
  EXPECT_TRUE(membersOf(day_ + u"Small_complete.zip"_s).contains(u"RTF/"_s + sceneAt(2)->RTFFilename()));
  EXPECT_TRUE(g_Project->BackupProject(false, false));

  // No settings yet are no failure.
  ASSERT_TRUE(remove(g_SettingsFile) && remove(day_ + u"Small.zip"_s));
  EXPECT_TRUE(g_Project->BackupProject(false, false));
  EXPECT_EQ(membersOf(day_ + u"Small.zip"_s).keys(), QStringList{u"Small.qn4"_s});

  ASSERT_TRUE(remove(path_));
  EXPECT_TRUE(fails(false, u"File not found"_s));
  EXPECT_EQ(membersOf(day_ + u"Small.zip"_s).keys(), QStringList{u"Small.qn4"_s});
}

TEST_F(Backups, ABookThatWasCutOffDoesNotSpoilItsBackup) {
  ASSERT_TRUE(g_Project->BackupProject(false, false));
  const QByteArray whole = fileBytes(path_);
  writeFile(path_, whole.chopped(40));
  EXPECT_TRUE(fails(false, u"it is incomplete"_s));
  EXPECT_EQ(newestBackup(path_).value_or(Backup()).text, whole);
  // Better than nothing.
  QFile::remove(day_ + u"Small.zip"_s);
  EXPECT_TRUE(g_Project->BackupProject(false, false));
}

TEST_F(Backups, FailuresAreToldAndTheNextOneWorks) {
  const QString log = Logging().CurrentLogFilename();
  Logging().OverrideLogFilename(scratch_.path(u"log.txt"_s));
  const QString backups = QDir::cleanPath(g_Project->Path() + u"Autobackups"_s);
  writeFile(backups, "a file");
  EXPECT_TRUE(fails(false, u"Path not found"_s));
  QFile::remove(backups);
  if (FailingDisk::available()) {
    FailingDisk disk(10);
    EXPECT_TRUE(fails(true, u"Disk full"_s));
  }
  const QByteArray lines = fileBytes(Logging().CurrentLogFilename());
  EXPECT_TRUE(lines.contains("Small.zip failed\r\n") && lines.contains("Not in the backup: "));
  ASSERT_TRUE(QDir().rename(scratch_.path(u"book"_s), scratch_.path(u"moved"_s)));
  EXPECT_TRUE(fails(false, u"is not there"_s));
  EXPECT_FALSE(QFile::exists(scratch_.path(u"book"_s)));
  ASSERT_TRUE(QDir().rename(scratch_.path(u"moved"_s), scratch_.path(u"book"_s)));
  EXPECT_TRUE(g_Project->BackupProject(false, false));
  EXPECT_TRUE(fileBytes(Logging().CurrentLogFilename()).contains("Small.zip complete\r\n"));
  Logging().OverrideLogFilename(log);
}

TEST_F(Backups, NoneIsMadeWhereThereIsNothingOrNoTimeForIt) {
  {
    const BusyMark busy(*g_Project);
    EXPECT_EQ(backUpProject(*g_Project, false, false).result, Result::Skipped);
  }
  newProject();
  EXPECT_EQ(backUpProject(*g_Project, true, false).result, Result::Skipped);
  const FolderLock elsewhere(QDir::cleanPath(scratch_.path(u"book"_s)));
  screen_.expectChoice(u"This book is open already"_s, u"Open read-only"_s);
  ASSERT_TRUE(g_Project->Load(path_, false));
  EXPECT_EQ(backUpProject(*g_Project, true, false).causes, QStringList{u"The book is opened read-only."_s});
  EXPECT_FALSE(QFile::exists(scratch_.path(u"book/Autobackups"_s)));
}

TEST_F(Backups, TheViewerSeesCopiesAndArchivesAndTouchesNothingElse) {
  EXPECT_EQ(backupFolders(*g_Project), QStringList());
  ASSERT_TRUE(g_Project->BackupProject(true, false));
  ASSERT_TRUE(backUpScene(*sceneAt(1)) && backUpOriginal(*sceneAt(2)));
  writeFile(g_Project->Path() + u"Autobackups/loose.rtf"_s, "x");
  ASSERT_EQ(backupFolders(*g_Project), QStringList{u"2026-11-20"_s});
  const QList<FileObject> copies = backupCopies(*g_Project, u"2026-11-20"_s);
  ASSERT_EQ(copies.size(), 2);
  EXPECT_EQ(sceneOfCopy(*g_Project, copies.first().Name), sceneAt(1));
  EXPECT_EQ(sceneOfCopy(*g_Project, copies.last().Name), sceneAt(2));
  EXPECT_EQ(sceneOfCopy(*g_Project, u"RTF_99999_Scene_1.rtf"_s), nullptr);

  const QString archive = backupArchives(*g_Project, u"2026-11-20"_s).value(0).Path;
  const ArchiveListing listing = filesInBackup(archive);
  ASSERT_EQ(listing.files.size(), 2 + g_Project->SceneCount()) << qPrintable(listing.failure);
  const QString member = listing.files.constLast().name;
  const std::shared_ptr<clsScene> scene = sceneOfCopy(*g_Project, member);
  ASSERT_NE(scene, nullptr);
  EXPECT_EQ(restoreFromBackup(archive, member).content, scene->TextRTF());
  EXPECT_FALSE(restoreFromBackup(archive, u"gone.rtf"_s).failure.isEmpty());
  EXPECT_FALSE(filesInBackup(copies.first().Path).failure.isEmpty());

  ASSERT_TRUE(QFile::link(g_Project->RTFFolder(), g_Project->Path() + u"Autobackups/link"_s));
  EXPECT_FALSE(deleteBackup(*g_Project, g_Project->Path() + u"Autobackups/link/"_s + sceneAt(1)->RTFFilename()));
  EXPECT_FALSE(deleteBackup(*g_Project, path_));
  EXPECT_TRUE(QFile::exists(path_) && QFile::exists(sceneAt(1)->RTFFileWithPath()));
  EXPECT_TRUE(deleteBackup(*g_Project, copies.first().Path));
  EXPECT_EQ(backupCopies(*g_Project, u"2026-11-20"_s).size(), 1);
}

TEST_F(Backups, ACopyThatIsYoungerThanItsSceneAndHasOtherWordsIsFound) {
  const QDateTime saved = Files().FileDate(sceneAt(1)->RTFFileWithPath());
  const auto copy = [&](const QString& name, const QByteArray& text, int days) {
    const QString folder = g_Project->Path() + u"Autobackups/"_s + saved.date().addDays(days).toString(Qt::ISODate);
    QDir().mkpath(folder);
    writeFile(folder + u'/' + name, text);
    Files().SetFileDateTime(folder + u'/' + name, saved.addDays(days));
  };
  const auto name = [](qint32 scene, const QString& ending) {
    return Files().FileWithoutExt(sceneAt(scene)->RTFFilename()) + ending;
  };
  copy(name(1, u"_Scene_1.rtf"_s), simpleRtf("older words"), -1);
  copy(name(1, u"_Original.rtf"_s), simpleRtf("kept words"), 3);
  copy(name(2, u"_Scene_2.rtf"_s), QByteArray(sceneAt(2)->TextRTF()).replace("\\pard", "\\pard\\cf0"), 1);
  copy(u"RTF_99999_Scene_1.rtf"_s, simpleRtf("of no scene"), 1);
  EXPECT_TRUE(youngerCopies(*g_Project).isEmpty());

  copy(name(3, u"_Scene_1.rtf"_s), simpleRtf("typed"), 1);
  copy(name(3, u"_Scene_2_9.05AM.rtf"_s), simpleRtf("typed last"), 2);
  const QList<YoungerCopy> found = youngerCopies(*g_Project);
  ASSERT_EQ(found.size(), 1);
  EXPECT_EQ(found.first().scene, sceneAt(3));
  EXPECT_EQ(fileBytes(found.first().copy.Path), simpleRtf("typed last"));
}

TEST_F(Backups, ACopyIsOneOfAPlanByWhatStandsBehindThePlaceWhateverTheScenesFileIsCalled) {
  for (const auto* const text : {u"RTF_Planning_Scene_1.rtf", u"my_plan_Scene_2_9.05am.rtf", u"My_Plan_Original.rtf"}) {
    EXPECT_FALSE(SceneCopy::isOfPlan(QString::fromUtf16(text))) << QString::fromUtf16(text);
  }
  for (const auto* const plan : {u"a_Scene_of_plans_Scene_2_Plan.rtf", u"_scene_3_plan_9.05am_2.rtf"}) {
    EXPECT_TRUE(SceneCopy::isOfPlan(QString::fromUtf16(plan))) << QString::fromUtf16(plan);
  }
}

TEST_F(Backups, CopiesOfPlansAndOfScenesThatWereNeverSavedAreFoundWhereTheBookIsOlder) {
  const QDateTime saved = Files().FileDate(path_);
  const QString folder = g_Project->Path() + u"Autobackups/"_s + saved.date().toString(Qt::ISODate) + u'/';
  QDir().mkpath(folder);
  const auto copy = [&](const QString& name, const QByteArray& text, int seconds) {
    writeFile(folder + name, text);
    Files().SetFileDateTime(folder + name, saved.addSecs(seconds));
  };
  const QString plan = Files().FileWithoutExt(sceneAt(1)->RTFFilename()) + u"_Scene_1_Plan.rtf"_s;
  copy(plan, writeRtf(RichText::fromPlain(SceneCopy::planOf(*sceneAt(1)))), 60);
  copy(u"_Scene_3.rtf"_s, simpleRtf("the book was saved with that scene"), -60);
  copy(u"_Scene_4.rtf"_s, {}, 60);
  EXPECT_TRUE(youngerCopies(*g_Project).isEmpty());

  copy(plan, simpleRtf("Description: more"), 60);
  copy(u"_Scene_3.rtf"_s, simpleRtf("one"), 60);
  copy(u"_Scene_3_9.05am.rtf"_s, simpleRtf("another"), 90);
  const QList<YoungerCopy> found = youngerCopies(*g_Project);
  ASSERT_EQ(found.size(), 3);
  EXPECT_TRUE(found[0].scene == sceneAt(1) && found[0].isOfPlan);
  EXPECT_TRUE(!found[1].scene && !found[2].scene && !found[1].isOfPlan);
}
