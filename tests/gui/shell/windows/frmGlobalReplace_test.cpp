// A text replaced in the whole book, from the main window's menu to the files.

#include "gui/shell/windows/frmGlobalReplace.h"

#include "core/text/Rtf.h"
#include "gui/shell/BackupTest.h"
#include "gui/toolkit/RichTextBox.h"
#include "support/Archives.h"
#include "support/FailingDisk.h"
#include "support/Required.h"
#include "support/WaitFor.h"

#include <QCheckBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

class GlobalReplaceTest : public BackupTest {
 protected:
  void SetUp() override {
    BackupTest::SetUp();
    startWith(project_);
    for (qint32 i = 1; i <= 5; ++i) {
      const auto scene = sceneAt(i);
      scene->setTextRTF(simpleRtf(i == 2 ? "nothing" : "{\\b Cal} saw a calf. CalCal"));
      scene->Title = u"Cal %1"_s.arg(i);
      scene->DescText = u"cal and Cal"_s;
    }
    g_Project->SaveQN4(false);
    window().RefreshAll();
  }
  frmGlobalReplace& open() {
    trigger("mnuGlobalReplace");
    auto& form = required(window().findChild<frmGlobalReplace*>(), u"frmGlobalReplace"_s);
    EXPECT_TRUE(waitUntilActive(form));
    return form;
  }
  void replace(frmGlobalReplace& form, const QString& find, const QString& with, const QString& told) {
    childOf<QLineEdit>(form, u"txtLookfor"_s).setText(find);
    childOf<QLineEdit>(form, u"txtReplaceWith"_s).setText(with);
    toolkit.expectBox(told);
    QTest::keyClick(&form, Qt::Key_Return);
  }
  static QString text(qint32 scene) { return sceneAt(scene)->ConvertedToBodyText(); }
  static QByteArray fileOf(qint32 scene) { return fileBytes(sceneAt(scene)->RTFFileWithPath()); }
  static QString result(frmGlobalReplace& form) { return childOf<QLabel>(form, u"lblResult"_s).text(); }

  const QString kBefore = u"Cal saw a calf. CalCal"_s;
};

TEST_F(GlobalReplaceTest, EverySceneIsChangedInItsFormatsBehindABackupAndItsRowFollows) {
  const QByteArray untouched = fileOf(2);
  frmGlobalReplace& form = open();
  childOf<QCheckBox>(form, u"chkWholeWordOnly"_s).click();
  replace(form, u"cal"_s, u"Long Bal"_s, u"Replaced 16 occurrences"_s);
  EXPECT_TRUE(toolkit.progressCaptions.contains(u"Replacing. Scenes done, of 5: 4"_s));
  EXPECT_FALSE(toolkit.askedWhileHeld);
  EXPECT_EQ(text(5), u"Long Bal saw a Long Balf. Long BalLong Bal"_s);
  const RichText written = readRtf(fileOf(1));
  EXPECT_EQ(written.plainText(), text(5));
  EXPECT_TRUE(written.charFormatAt(7).bold && !written.charFormatAt(8).bold);
  EXPECT_EQ(fileOf(2), untouched);
  EXPECT_EQ(sceneAt(1)->Title + sceneAt(1)->DescText, u"Cal 1cal and Cal"_s) << "only where the case is minded";
  EXPECT_TRUE(membersOf(archive(u"_complete.zip"_s)).value(u"RTF/RTF_00001.rtf"_s).contains("{\\b Cal} saw"));
  EXPECT_TRUE(result(form).startsWith(u"4 scenes were changed.\n"_s));
  QMetaObject::invokeMethod(&control<QTimer>("TimerScanScenes"), "timeout");
  EXPECT_EQ(control<RichTextBox>("txtBody").Text(), kBefore) << "the scan rests while the window is open";
  // A second one doesn't write over the backup of the first.
  replace(form, u"Long "_s, {}, u"Replaced 16 occurrences"_s);
  EXPECT_EQ(text(1), u"Bal saw a Balf. BalBal"_s);
  EXPECT_TRUE(membersOf(archive(u"_complete.zip"_s)).value(u"RTF/RTF_00001.rtf"_s).contains("Long Bal"));
  const QDir day(Files().PathOnly(archive()), u"Small_complete_*.zip"_s);
  ASSERT_EQ(day.count(), 1);
  EXPECT_TRUE(membersOf(day.filePath(day[0])).value(u"RTF/RTF_00001.rtf"_s).contains("{\\b Cal} saw"));
  window().ProjectChanged = false;
  QTest::keyClick(&form, Qt::Key_Escape);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(window().ProjectChanged);
  EXPECT_TRUE(soon([this] { return control<RichTextBox>("txtBody").Text() == text(1); }));
}

TEST_F(GlobalReplaceTest, WithTheCaseMindedTitlesAndDescriptionsAreChangedAndSavedToo) {
  frmGlobalReplace& form = open();
  childOf<QCheckBox>(form, u"chkCaseSensitive"_s).click();
  replace(form, u"Cal"_s, u"Bal"_s, u"Replaced 12 occurrences"_s);
  EXPECT_EQ(text(1), u"Bal saw a calf. BalBal"_s);
  EXPECT_EQ(sceneAt(2)->Title + sceneAt(2)->DescText, u"Bal 2cal and Bal"_s);
  EXPECT_TRUE(result(form).contains(u"5 scenes were changed. Titles or descriptions have changed in 5"_s));
  EXPECT_TRUE(fileBytes(project_).contains("Bal%202"));
  replace(form, u"Bal"_s, u"Bal"_s, u"Both texts are the same"_s);
}

TEST_F(GlobalReplaceTest, NothingToReplaceChangesNothing) {
  frmGlobalReplace& form = open();
  replace(form, {}, u"x"_s, u"Please type the text that is to be replaced."_s);
  replace(form, u"not there"_s, u"x"_s, u"Replaced 0 occurrences"_s);
  EXPECT_FALSE(QFile::exists(archive(u"_complete.zip"_s)));
  form.close();
  EXPECT_TRUE(window().ProjectChanged);
}

TEST_F(GlobalReplaceTest, AnOpenSceneEndsItAndWhatWasChangedBeforeStays) {
  const QString told = u"Global search/replace cancelled. One or more scenes are open in edit windows.\n\n"_s;
  frmGlobalReplace& form = open();
  g_SceneChanges.LockRec(sceneAt(4)->ID());
  replace(form, u"Cal"_s, u"Bal"_s, told + u"2 scenes were changed before."_s);
  EXPECT_EQ(text(3).left(3) + text(4).left(3), u"BalCal"_s);
  EXPECT_TRUE(fileOf(3).contains("Bal"));
  g_SceneChanges.UnLockRec(sceneAt(4)->ID());
  g_SceneChanges.LockRec(sceneAt(1)->ID());
  replace(form, u"Bal"_s, u"Cal"_s, told + u"No scene was changed before."_s);
  g_SceneChanges.UnLockRec(sceneAt(1)->ID());
}

TEST_F(GlobalReplaceTest, ItCanBeStoppedBetweenTwoScenes) {
  frmGlobalReplace& form = open();
  const std::function<void()> stop = [&] {
    // Nothing else offers a stop.
    toolkit.progressCaptions.last() == u"Replacing"_s ? toolkit.pressStop() : void(toolkit.onYield = stop);
  };
  toolkit.onYield = stop;
  replace(form, u"Cal"_s, u"Bal"_s, u"stopped. Replaced 4 occurrences.\n\n1 scene was changed before."_s);
  EXPECT_EQ(text(1).left(3) + text(5).left(3), u"BalCal"_s);
  EXPECT_EQ(g_Project->UnsavedTexts(), 0);
}

TEST_F(GlobalReplaceTest, WithoutABackupTheWriterIsAskedFirst) {
  QFile::remove(sceneAt(2)->RTFFileWithPath());
  frmGlobalReplace& form = open();
  toolkit.expectBox(u"\n\nReplace all the same?"_s, Answer::No);
  childOf<QLineEdit>(form, u"txtLookfor"_s).setText(u"Cal"_s);
  childOf<QPushButton>(form, u"cmdOK"_s).click();
  EXPECT_EQ(toolkit.lastButtons, Buttons::NoUnlessYes);
  EXPECT_EQ(text(1), kBefore);
  EXPECT_EQ(result(form), u"No scene was changed."_s);
  toolkit.expectBox(u"The scene \"Cal 2\" has no file of its text."_s, Answer::Yes);
  replace(form, u"Cal"_s, {}, u"Replaced 16 occurrences"_s);
  EXPECT_EQ(text(1), u" saw a f. "_s);
}

TEST_F(GlobalReplaceTest, ASceneThatCanNotBeSavedIsLeftAsItWas) {
  if (!FailingDisk::available()) {
    GTEST_SKIP();
  }
  frmGlobalReplace& form = open();
  const QByteArray before = fileOf(1);
  // There is room for the backup, and none for what is put in.
  const qint64 room = 100000;
  toolkit.expectBox(u"Global search/replace stopped. The scene \"Cal 1\" could not be saved: "_s);
  childOf<QLineEdit>(form, u"txtLookfor"_s).setText(u"Cal"_s);
  childOf<QLineEdit>(form, u"txtReplaceWith"_s).setText(QString(room, u'x'));
  {
    const FailingDisk disk(room);
    childOf<QPushButton>(form, u"cmdOK"_s).click();
  }
  EXPECT_TRUE(toolkit.boxes.last().endsWith(u"\n\nIt is as it was before. No scene was changed before."_s));
  EXPECT_EQ(fileOf(1), before);
  EXPECT_EQ(text(1), kBefore);
  EXPECT_EQ(g_Project->UnsavedTexts(), 0) << "nothing to ask about at the end";
  EXPECT_FALSE(membersOf(archive(u"_complete.zip"_s)).isEmpty());
}
