// The window of the copies, used as a writer does.

#include "gui/shell/windows/frmBackupViewer.h"

#include "core/model/clsChapter.h"
#include "gui/shell/BackupTest.h"
#include "gui/toolkit/RichTextBox.h"

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

class BackupViewer : public BackupTest {
 protected:
  void SetUp() override {
    BackupTest::SetUp();
    Clock::set(QDateTime(QDate(2026, 11, 21), QTime(9, 5)));
    older_ = writeCopy(u"RTF_00001_Scene_1.rtf"_s, simpleRtf("\\b Older\\b0  words"), -60, kDay);
    writeCopy(u"RTF_00001_Scene_1_9.05AM.rtf"_s, simpleRtf("Middle words"), -40, kDay);
    writeCopy(u"RTF_00003_Scene_1.rtf"_s, simpleRtf("departing"), -30, kDay);
    writeCopy(u"RTF_99999_Scene_1.rtf"_s, simpleRtf("of a scene that has gone"), -20, kDay);
    startWith(project_);
  }

  frmBackupViewer& openViewer() {
    trigger("mnuAutobackups");
    auto& form = control<frmBackupViewer>("frmBackupViewer");
    // It stands beside the main window and is active with it: only the focus tells which of them hears keys.
    EXPECT_TRUE(soon([&] { return QApplication::activeWindow() == &form; }));
    return form;
  }
  QTreeWidget& tree() { return control<QTreeWidget>("TreeView1"); }
  ListView& copies() { return list("ListView1"); }
  QStringList files() {
    QStringList names;
    for (int i = 0; i < copies().rowCount(); ++i) {
      names.append(copies().text(i, 2));
    }
    return names;
  }
  void chooseDay(const QString& day) {
    const auto found = tree().findItems(day, Qt::MatchExactly | Qt::MatchRecursive);
    ASSERT_EQ(found.size(), 1) << qPrintable(day);
    tree().setCurrentItem(found.first());
  }
  QPushButton& button(const char* name) { return control<QPushButton>(name); }
  void press(const char* name) { QTest::mouseClick(&button(name), Qt::LeftButton); }
  QString text() { return control<RichTextBox>("RichTextBox1").Text(); }

  QString older_;
  const QDate kDay{2026, 11, 20};
};

TEST_F(BackupViewer, ShowsDaysCopiesAndTextsByKeysAlone) {
  openViewer();
  ASSERT_EQ(tree().topLevelItemCount(), 1);
  EXPECT_EQ(tree().topLevelItem(0)->text(0), u"AutoBackups"_s);
  EXPECT_TRUE(tree().topLevelItem(0)->isExpanded());
  EXPECT_FALSE(button("cmdDelete").isEnabled());
  QTest::keyClick(&tree(), Qt::Key_Home);
  EXPECT_EQ(copies().rowCount(), 0) << "the root has no files of its own";
  QTest::keyClick(&tree(), Qt::Key_Down);
  EXPECT_EQ(files(), (QStringList{u"RTF_00001_Scene_1.rtf"_s, u"RTF_00001_Scene_1_9.05AM.rtf"_s,
                                  u"RTF_00003_Scene_1.rtf"_s, u"RTF_99999_Scene_1.rtf"_s}));
  EXPECT_EQ(cell("ListView1", 0, 0), u"Arrival 1"_s);
  EXPECT_EQ(cell("ListView1", 3, 0), u"(not in the book now)"_s);
  EXPECT_FALSE(button("cmdRestore").isEnabled());
  QTest::keyClick(&tree(), Qt::Key_Tab);
  EXPECT_TRUE(copies().hasFocus());
  EXPECT_EQ(text(), u"Older words"_s);
  EXPECT_TRUE(control<RichTextBox>("RichTextBox1").formatAt(0).bold);
  EXPECT_TRUE(control<RichTextBox>("RichTextBox1").isReadOnly());
  EXPECT_TRUE(button("cmdDelete").isEnabled() && button("cmdRestore").isEnabled());
  EXPECT_EQ(panel("lblHint"),
            u"Highlight text with the mouse and use Ctrl-C to copy. Then you can paste the text into any scene."_s);
  QTest::keyClick(&copies(), Qt::Key_Return);
  EXPECT_TRUE(control<RichTextBox>("RichTextBox1").hasFocus());
  const QPointer<frmBackupViewer> shown = window().findChild<frmBackupViewer*>();
  QTest::keyClick(shown, Qt::Key_Escape);
  EXPECT_TRUE(soon([&] { return shown.isNull(); }));
  EXPECT_FALSE(window().ProjectChanged);
}

TEST_F(BackupViewer, ARowTellsWhatACopyIsOf) {
  sceneAt(1)->Title.clear();
  writeCopy(u"RTF_00001_Original.rtf"_s, simpleRtf("as it was"), -60, kDay);
  writeCopy(u"RTF_00001_Scene_1_Plan.rtf"_s, simpleRtf("Goal"), -60, kDay);
  writeCopy(u"_Scene_3.rtf"_s, simpleRtf("new"), -60, kDay);
  openViewer();
  chooseDay(u"2026-11-20"_s);
  QStringList titles;
  for (int row = 0; row < copies().rowCount(); ++row) {
    titles.append(cell("ListView1", row, 0));
  }
  EXPECT_EQ(titles, (QStringList{u"Original: Untitled scene"_s, u"Untitled scene"_s, u"Plan: Untitled scene"_s,
                                 u"Untitled scene"_s, u"Departure 1"_s, u"A new scene that was never saved"_s,
                                 u"(not in the book now)"_s}));
}

TEST_F(BackupViewer, ACopyBecomesANewSceneBehindItsOwn) {
  const QByteArray was = sceneAt(1)->TextRTF();
  openViewer();
  chooseDay(u"2026-11-20"_s);
  copies().SelectRow(0);
  press("cmdRestore");
  ASSERT_EQ(chapterAt(1)->SceneCount(), 3);
  const auto restored = chapterAt(1)->SceneByIndex(2);
  EXPECT_EQ(restored->Title, u"Arrival 1 (copy of "_s + cell("ListView1", 0, 1) + u')');
  EXPECT_EQ(restored->TextRTF(), fileBytes(older_));
  EXPECT_EQ(chapterAt(1)->SceneByIndex(1)->TextRTF(), was);
  EXPECT_TRUE(panel("lblInfo").contains(u"is scene 2 of \"Arrival\" now."_s));
  EXPECT_TRUE(window().ProjectChanged);
  EXPECT_EQ(list("ListScenes").rowCount(), 3) << "the main window has followed";

  // That of a scene which has gone comes to the chapter that is selected.
  list("ListChapters").SelectRow(1);
  copies().SelectRow(3);
  press("cmdRestore");
  EXPECT_EQ(chapterAt(2)->SceneByIndex(3)->ConvertedToBodyText(), u"of a scene that has gone"_s);
  EXPECT_TRUE(chapterAt(2)->SceneByIndex(3)->Title.startsWith(u"RTF_99999_Scene_1 (copy of "_s));
  EXPECT_EQ(fileBytes(restored->RTFFileWithPath()), fileBytes(older_)) << "it is on the disk at once";
  EXPECT_FALSE(window().ProjectChanged.isUnsaved());
  EXPECT_EQ(fileBytes(below(u"RTF/RTF_00001.rtf"_s)), was);
}

TEST_F(BackupViewer, DeletesWhatIsSelectedAfterAQuestion) {
  const auto book = filesBelow(folder.path(u"Small/RTF"_s));
  openViewer();
  chooseDay(u"2026-11-20"_s);
  copies().SelectRow(0);
  copies().setFocus();
  QTest::keyClick(&copies(), Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_FALSE(button("cmdRestore").isEnabled()) << "one at a time";
  toolkit.expectBox(u"Are you sure you want to delete the selected files?"_s, Answer::No);
  press("cmdDelete");
  EXPECT_EQ(files().size(), 4);
  toolkit.expectBox(u"Are you sure"_s, Answer::Yes);
  copies().setFocus();
  QTest::keyClick(&copies(), Qt::Key_Delete);
  EXPECT_EQ(files(), (QStringList{u"RTF_00003_Scene_1.rtf"_s, u"RTF_99999_Scene_1.rtf"_s}));
  EXPECT_FALSE(QFile::exists(older_));
  EXPECT_EQ(text(), u"departing"_s);
  QTest::keyClick(&copies(), Qt::Key_A, Qt::ControlModifier);
  toolkit.expectBox(u"Are you sure"_s, Answer::Yes);
  press("cmdDelete");
  EXPECT_EQ(files(), QStringList());
  EXPECT_FALSE(button("cmdDelete").isEnabled());
  EXPECT_EQ(text(), QString());
  EXPECT_FALSE(window().ProjectChanged);
  EXPECT_EQ(filesBelow(folder.path(u"Small/RTF"_s)), book);
}

TEST_F(BackupViewer, AnArchiveCanBeReadVerifiedAndRestoredFrom) {
  toolkit.expectBox(u"complete."_s);
  trigger("mnuBackupProject");
  const QByteArray was = sceneAt(3)->TextRTF();
  sceneAt(3)->setTextRTF(simpleRtf("changed since"));
  openViewer();
  EXPECT_FALSE(button("cmdVerify").isEnabled());
  tree().currentItem()->setExpanded(true);
  chooseDay(u"Small_complete.zip"_s);
  ASSERT_EQ(copies().rowCount(), 5);
  copies().SelectRow(2);
  EXPECT_EQ(text(), u"six seven eight nine"_s);
  EXPECT_FALSE(button("cmdDelete").isEnabled());
  EXPECT_EQ(button("cmdDelete").toolTip(), u"What is in an archive stays there."_s);
  press("cmdRestore");
  EXPECT_EQ(chapterAt(2)->SceneByIndex(2)->TextRTF(), was);
  toolkit.expectBox(u"is whole: all 7 files"_s);
  press("cmdVerify");
  writeFile(archive(u"_complete.zip"_s), "no archive");
  copies().SelectRow(0);
  EXPECT_TRUE(text().startsWith(u"This copy can't be read: "_s));
  EXPECT_FALSE(button("cmdRestore").isEnabled());
}

TEST_F(BackupViewer, SaysWhatIsMissing) {
  openViewer();
  chooseDay(u"2026-11-20"_s);
  QFile::remove(older_);
  writeFile(below(u"Autobackups/2026-11-20/RTF_00003_Scene_1.rtf"_s), {});
  copies().SelectRow(0);
  EXPECT_TRUE(text().startsWith(u"This copy can't be read: "_s));
  EXPECT_FALSE(button("cmdRestore").isEnabled());
  EXPECT_EQ(button("cmdRestore").toolTip(), u"This copy can't be read."_s);
  copies().SelectRow(2);
  EXPECT_EQ(text(), u"This copy has no content"_s);
  ASSERT_TRUE(QDir(below(u"Autobackups"_s)).removeRecursively());
  tree().setCurrentItem(tree().topLevelItem(0));
  chooseDay(u"2026-11-20"_s);
  EXPECT_EQ(copies().rowCount(), 0);
  trigger("mnuAutobackups");
  EXPECT_EQ(tree().topLevelItemCount(), 0);
  EXPECT_TRUE(control<QLabel>("lblNothing").isVisible());
  EXPECT_FALSE(control<QLabel>("lblHint").isVisible());
}
