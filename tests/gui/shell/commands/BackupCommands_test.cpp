// The Backups menu: the whole book into one archive, and whether that is whole.

#include "core/infra/cSHAREDSettings.h"
#include "gui/shell/BackupTest.h"
#include "support/Archives.h"
#include "support/ModalHelper.h"

#include <QFile>
#include <QPushButton>
#include <QRadioButton>

using namespace Qt::StringLiterals;

class BackupCommandsTest : public BackupTest {
 protected:
  void SetUp() override {
    BackupTest::SetUp();
    startWith(project_);
  }
};

TEST_F(BackupCommandsTest, TheCompleteBackupHoldsWhatWasJustChangedAndEndsTheReminder) {
  EXPECT_EQ(panel("backup"), u"  Use Tools - Backups and make a full backup!  "_s);
  sceneAt(1)->setTextRTF(simpleRtf("new words"));
  g_Project->Title = u"New title"_s;
  window().ProjectChanged = true;
  toolkit.expectBox(u"Backup to "_s + g_Project->TodaysBackupFolder() + u" complete."_s);
  trigger("mnuBackupProject");
  EXPECT_FALSE(toolkit.askedWhileHeld);
  EXPECT_EQ(toolkit.pointer, Pointer::Normal);
  EXPECT_TRUE(toolkit.progressCaptions.contains(u"Making Backup"_s));
  const auto members = membersOf(archive(u"_complete.zip"_s));
  EXPECT_EQ(members.size(), 2 + g_Project->SceneCount());
  EXPECT_EQ(members.value(u"RTF/RTF_00001.rtf"_s), simpleRtf("new words"));
  EXPECT_TRUE(members.value(u"Small.qn4"_s).contains("New%20title"));
  EXPECT_TRUE(othersCanRead(archive(u"_complete.zip"_s)));
  EXPECT_FALSE(window().ProjectChanged);
  EXPECT_EQ(panel("backup"), QString());
  EXPECT_TRUE(settingsText().contains(u"LASTFULLBACKUP, %1 "_s.arg(Clock::dayNumber(Clock::today()))))
      << "kept at once";
  start();
  EXPECT_EQ(panel("backup"), QString());
}

TEST_F(BackupCommandsTest, AFailureNamesItsCausesAndKeepsTheReminder) {
  QFile::remove(below(u"RTF/RTF_00002.rtf"_s));
  toolkit.expectBox(u"Backup failed. See the Quillane log file for details.\n\nThe scene \"Arrival 2\" has no file"_s);
  trigger("mnuBackupProject");
  EXPECT_EQ(panel("backup"), u"  The last backup failed  "_s);
  EXPECT_FALSE(Settings().IsSettingPresent(u"LastFullBackup"_s));
  EXPECT_TRUE(logText().contains(u"_complete.zip failed"_s));
  EXPECT_TRUE(membersOf(archive(u"_complete.zip"_s)).contains(u"RTF/RTF_00001.rtf"_s)) << "the others are there";
}

TEST_F(BackupCommandsTest, VerifyTellsWhatIsWholeAndWhatIsNot) {
  toolkit.expectBox(u"There is no complete backup of this book yet."_s);
  trigger("mnuVerifyBackup");
  toolkit.expectBox(u"complete."_s);
  trigger("mnuBackupProject");
  const QString complete = archive(u"_complete.zip"_s);
  toolkit.expectBox(u" is whole: all 7 files in it were read back, and their checksums are right."_s);
  trigger("mnuVerifyBackup");
  QByteArray bytes = fileBytes(complete);
  const qsizetype content = bytes.indexOf("RTF_00001.rtf") + 80;
  bytes[content] = static_cast<char>(~bytes[content]);
  writeFile(complete, bytes);
  toolkit.expectBox(u" is damaged. 1 of the 7 files in it can't be read back:\nRTF/RTF_00001.rtf"_s);
  trigger("mnuVerifyBackup");
  writeFile(complete, "no archive");
  toolkit.expectBox(u" can't be read: "_s);
  trigger("mnuVerifyBackup");
  EXPECT_FALSE(toolkit.askedWhileHeld);
}

TEST_F(BackupCommandsTest, HowCopiesAreMadeIsSettledHereToo) {
  const WhenModal settings([](QWidget& modal) {
    childOf<QRadioButton>(modal, u"optSequential"_s).click();
    childOf<QPushButton>(modal, u"cmdOK"_s).click();
  });
  trigger("mnuSetupAutobackup");
  EXPECT_TRUE(Settings().sGet(u"AutoBackupSequential"_s, false).toBool());
}
