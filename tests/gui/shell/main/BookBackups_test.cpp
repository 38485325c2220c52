// What comes by itself when a book is opened: the day's archive, and the offer to look at copies that are younger than
// what was saved.

#include "gui/shell/main/BookBackups.h"

#include "core/infra/FolderLock.h"
#include "core/infra/cSHAREDSettings.h"
#include "gui/shell/BackupTest.h"
#include "gui/shell/windows/frmBackupViewer.h"
#include "gui/toolkit/RichTextBox.h"
#include "support/Archives.h"

#include <QFile>
#include <QLabel>

using namespace Qt::StringLiterals;

class BookBackupsTest : public BackupTest {
 protected:
  bool archiveComes() {
    hurry("TimerBookBackups");
    return soon([this] { return QFile::exists(archive()); });
  }
  frmBackupViewer* viewer() { return window().findChild<frmBackupViewer*>(); }
};

TEST_F(BookBackupsTest, TheDaysArchiveComesWhenTheBookIsShownAndHoldsNoInputBack) {
  startWith(project_);
  EXPECT_FALSE(QFile::exists(archive())) << "the window comes first";
  const int yields = toolkit.yields;
  ASSERT_TRUE(archiveComes());
  EXPECT_EQ(toolkit.yields, yields);
  EXPECT_FALSE(toolkit.askedWhileHeld);
  EXPECT_EQ(membersOf(archive()).value(u"Small.qn4"_s), fileBytes(project_));
  EXPECT_TRUE(othersCanRead(archive()));
  EXPECT_FALSE(window().ProjectChanged);
  EXPECT_TRUE(logText().contains(u"Small.zip complete"_s));

  const QDateTime packed = Files().FileDate(archive());
  EXPECT_TRUE(Files().SetFileDateTime(archive(), packed.addSecs(-100)));
  window().LoadProject(project_, false);
  window().backups().makeDue();
  EXPECT_EQ(membersOf(archive()).size(), 2);
}

TEST_F(BookBackupsTest, NoOpenedBookGoesWithoutOne) {
  const QString other = smallProject(u"Other"_s);
  startWith(project_);
  window().session().CloseProject();
  EXPECT_TRUE(QFile::exists(archive()));
  QFile::remove(archive());
  window().LoadProject(project_, false);
  window().LoadProject(other, false);
  EXPECT_TRUE(QFile::exists(archive()));
  QFile::remove(archive());
  window().LoadProject(project_, false);
  endProgram();
  EXPECT_TRUE(QFile::exists(archive()));
}

TEST_F(BookBackupsTest, AReadOnlyBookGetsNone) {
  const FolderLock elsewhere(QDir::cleanPath(folder.path(u"Small"_s)));
  toolkit.expectChoice(u"This book is open already"_s, u"Open read-only"_s);
  startWith(project_);
  window().backups().makeDue();
  EXPECT_FALSE(QFile::exists(below(u"Autobackups"_s)));
  EXPECT_FALSE(panel("backup").contains(u"failed"_s));
}

TEST_F(BookBackupsTest, AFailureIsToldUntilABackupWorks) {
  startWith(project_);
  writeFile(below(u"Autobackups"_s), "a file in the way");
  hurry("TimerBookBackups");
  ASSERT_TRUE(soon([this] { return panel("backup") == u"  The last backup failed  "_s; }));
  EXPECT_TRUE(control<QLabel>("backup").isVisible());
  EXPECT_TRUE(control<QLabel>("backup").toolTip().contains(u"Small.zip"_s));
  EXPECT_TRUE(panel("numberfiles").startsWith(u"Today's backup of the book failed: "_s));
  EXPECT_TRUE(logText().contains(u"Small.zip failed"_s));
  QFile::remove(below(u"Autobackups"_s));
  window().LoadProject(project_, false);
  window().backups().makeDue();
  EXPECT_FALSE(panel("backup").contains(u"failed"_s));
}

TEST_F(BookBackupsTest, AYoungerCopyWithOtherWordsIsOfferedOnce) {
  const QString copy = writeCopy(u"RTF_00001_Scene_1.rtf"_s, simpleRtf("typed and never saved"), 5);
  writeCopy(u"RTF_00002_Scene_2.rtf"_s, simpleRtf("four five"), 5);
  writeCopy(u"RTF_00001_Scene_1_Plan.rtf"_s, simpleRtf("planned and never saved"), 5);
  toolkit.expectBox(u"Backup copies hold words that were never saved to the book:\nArrival 1"_s, Answer::No);
  startWith(project_);
  hurry("TimerBookBackups");
  ASSERT_TRUE(soon([this] { return !toolkit.boxes.isEmpty(); }));
  EXPECT_FALSE(toolkit.boxes.last().contains(u"Arrival 2"_s));
  EXPECT_EQ(viewer(), nullptr);
  EXPECT_TRUE(settingsText().contains(u"COPIESSEEN_"_s)) << "kept at once";
  endProgram();

  QFile::remove(archive());
  start();
  ASSERT_TRUE(archiveComes());
  EXPECT_EQ(toolkit.boxes.size(), 1) << "what was refused isn't offered again";
  endProgram();

  writeCopy(u"RTF_00001_Scene_1.rtf"_s, simpleRtf("typed later still"), 6);
  writeCopy(u"RTF_00002_Scene_2.rtf"_s, simpleRtf("typed in another"), 6);
  toolkit.expectBox(u"Backup copies hold words that were never saved to the book:\n"_s, Answer::Yes);
  start();
  hurry("TimerBookBackups");
  ASSERT_TRUE(soon([this] { return viewer() != nullptr && viewer()->isVisible(); }));
  endProgram();
  toolkit.expectBox(u"Backup copies hold words that were never saved to the book:\n"_s, Answer::Yes);
  start();
  hurry("TimerBookBackups");
  ASSERT_TRUE(soon([this] { return viewer() != nullptr && viewer()->isVisible(); })) << "looking is no answer";
  EXPECT_EQ(control<RichTextBox>("RichTextBox1").Text(), u"typed later still"_s);
  EXPECT_EQ(list("ListView1").SelectedTags().size(), 1);
  EXPECT_FALSE(window().ProjectChanged);
  window().session().CloseProject();
  EXPECT_TRUE(soon([this] { return viewer() == nullptr; })) << "it goes with its book";
}

TEST_F(BookBackupsTest, NoBoxComesInTheWayOfAnEditor) {
  writeCopy(u"RTF_00001_Scene_1.rtf"_s, simpleRtf("typed and never saved"), 5);
  startWith(project_);
  sceneAt(2)->Edit();
  ASSERT_TRUE(archiveComes());
  EXPECT_EQ(toolkit.boxes.size(), 0);
  toolkit.expectBox(u"Backup copies hold words that were never saved to the book:\nArrival 1 (copy of "_s, Answer::No);
  g_Project->CloseEditorWindows();
  EXPECT_TRUE(soon([this] { return toolkit.boxes.size() == 1; }));
}
