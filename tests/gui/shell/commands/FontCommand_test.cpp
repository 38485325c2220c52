// One font for the texts of all scenes.

#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/persist/BookFont.h"
#include "core/persist/ProjectSaver.h"
#include "core/text/Rtf.h"
#include "gui/editor/frmEditor.h"
#include "gui/shell/MainWindow.h"
#include "gui/toolkit/RichTextBox.h"
#include "gui/views/DefaultFont.h"
#include "support/FailingDisk.h"
#include "support/ModalHelper.h"
#include "support/SampleProject.h"

#include <QDir>
#include <QFile>
#include <QListWidget>
#include <QTest>

using namespace Qt::StringLiterals;

class FontCommandTest : public ShellTest {
 protected:
  void SetUp() override {
    ShellTest::SetUp();
    startWith(smallProject());
  }
  /// Chooses the command and, in the dialog, the last font in 14 points, or leaves that by Escape.
  void setFont(Qt::Key last = Qt::Key_Return) {
    const WhenModal whenUp([&](QWidget& dialog) {
      EXPECT_EQ(dialog.windowTitle(), u"Set font across all scenes"_s);
      auto& fonts = childOf<QListWidget>(dialog, u"lstFonts"_s);
      auto& sizes = childOf<QListWidget>(dialog, u"lstSizes"_s);
      fonts.setCurrentRow(fonts.count() - 1);
      sizes.setCurrentItem(sizes.findItems(u"14"_s, Qt::MatchExactly).first());
      QTest::keyClick(&sizes, last);
    });
    trigger("mnuSetAllSceneFont");
  }
  static QByteArray onDisk(qint32 scene) { return fileBytes(sceneAt(scene)->RTFFileWithPath()); }
  /// The scenes whose files have the font throughout.
  static QList<qint32> inNewFont() {
    QList<qint32> found;
    const QString family = DefaultFont::fromSettings().name;
    for (qint32 i = 1; i <= g_Project->SceneCount(); ++i) {
      const RichText text = readRtf(onDisk(i));
      bool whole = true;
      for (qsizetype run = 0; run < text.runCount(); ++run) {
        const CharFormat& format = *text.run(run).format;
        whole = whole && format.fontName == family && format.halfPoints == 28;
      }
      EXPECT_EQ(onDisk(i), sceneAt(i)->TextRTF());
      EXPECT_FALSE(sceneAt(i)->RTFChanged());
      found += whole ? QList<qint32>{i} : QList<qint32>();
    }
    return found;
  }
};

TEST_F(FontCommandTest, NameAndSizeOfAllTextsChangeAndNothingElse) {
  const auto first = sceneAt(1);
  first->setTextRTF(
      "{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}{\\f1 Times New "
      "Roman;}}{\\colortbl;\\red255\\green0\\blue0;}\\pard\\f0\\fs20 "
      "one {\\b\\f1\\fs48\\cf1 two} {\\i three}\\par}");
  first->Save();
  const qint32 words = g_Project->Wordcount(true);
  setFont(Qt::Key_Escape);
  EXPECT_FALSE(window().ProjectChanged);
  setFont();
  EXPECT_EQ(inNewFont(), (QList<qint32>{1, 2, 3, 4, 5})) << "unused ones too";
  const RichText text = readRtf(first->TextRTF());
  EXPECT_EQ(text.plainText(), u"one two three"_s);
  EXPECT_TRUE(text.charFormatAt(4).bold && text.charFormatAt(8).italic);
  EXPECT_EQ(text.charFormatAt(4).colour, 0x0000FFU);
  EXPECT_FALSE(text.charFormatAt(0).bold);
  EXPECT_EQ(control<RichTextBox>("txtBody").richText().charFormatAt(4).halfPoints, 28);
  EXPECT_EQ(g_Project->Wordcount(true), words);
  EXPECT_TRUE(window().ProjectChanged);
  EXPECT_EQ(panel("numberfiles"), u"The font was set in 5 of 5 scenes."_s);
  sceneAt(2)->Edit();
  toolkit.expectBox(u"Please close all editor windows first"_s);
  trigger("mnuSetAllSceneFont");
}

TEST_F(FontCommandTest, WhenItIsStoppedWhatIsDoneStaysDone) {
  for (int i = 0; i < 60; ++i) {
    const auto scene = std::make_shared<clsScene>();
    scene->setTextRTF(simpleRtf("more"));
    g_Project->Addscene(scene);
  }
  window().SaveProject(false);
  // The first yield is that of its beginning.
  toolkit.onYield = [this] { toolkit.pressStop(); };
  toolkit.expectBox(u"The font was set in 0 of 65 scenes, then it was stopped. The others are as they were."_s);
  setFont();
  EXPECT_FALSE(window().ProjectChanged);
  EXPECT_TRUE(inNewFont().isEmpty());
  EXPECT_EQ(toolkit.progressWindowsShown, 1);
  EXPECT_FALSE(toolkit.inputHeld());
  const DefaultFont font = DefaultFont::fromSettings();
  const BookFont::Outcome outcome = BookFont(font.name, font.points).apply([](qint32 done) { return done < 2; });
  EXPECT_EQ(outcome.done, 2);
  EXPECT_EQ(inNewFont(), (QList<qint32>{1, 2}));
}

TEST_F(FontCommandTest, ADiskThatIsFullEndsItWithEachTextWhole) {
  if (!FailingDisk::available()) {
    GTEST_SKIP();
  }
  const QByteArray large = simpleRtf(QByteArray("not lost ").repeated(20000));
  sceneAt(3)->setTextRTF(large);
  sceneAt(3)->Save();
  toolkit.expectBox(u"The font was set in 2 of 5 scenes. It ended at \"Departure 1\": "_s);
  {
    const FailingDisk disk(100000);
    setFont();
  }
  EXPECT_EQ(inNewFont(), (QList<qint32>{1, 2}));
  EXPECT_EQ(onDisk(3), large);
  EXPECT_EQ(sceneAt(3)->TextRTF(), large);
  EXPECT_TRUE(window().ProjectChanged);
}

TEST_F(FontCommandTest, WhatCannotBeKeptIsCopiedFirst) {
  const QByteArray table =
      "{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}}{\\header\\pard head\\par}\\pard\\f0\\fs20 one two three\\par}";
  sceneAt(1)->setTextRTF(table);
  window().SaveProject(false);
  toolkit.expectBox(u"The text of 1 scene held what could not be kept: "_s);
  setFont();
  EXPECT_TRUE(toolkit.boxes.join(u' ').endsWith(u"Arrival 1"));
  EXPECT_EQ(inNewFont().size(), 5);
  EXPECT_TRUE(filesBelow(g_Project->TodaysBackupFolder()).values().contains(table));
}

// Its texts are those of the other project file too.
TEST_F(FontCommandTest, InAnOlderCopyItAsksFirstAndGoesOnUnderTheNewName) {
  const QString copy = folder.path(u"Small/Copy.qn4"_s);
  ASSERT_TRUE(QFile::copy(g_Project->FileWithPath, copy));
  const QByteArray theirs = onDisk(1);
  window().LoadProject(copy, false);
  toolkit.expectChoice(u"You opened Copy.qn4"_s, {});
  setFont();
  EXPECT_EQ(panel("numberfiles"), u"The font was not set: all texts are as they were."_s);
  toolkit.expectChoice(u"You opened Copy.qn4"_s, u"Save under a new name"_s);
  toolkit.expectFile(folder.path(u"Other/Other.qn4"_s));
  setFont();
  EXPECT_EQ(g_Project->FileWithPath, folder.path(u"Other/Other.qn4"_s));
  EXPECT_EQ(inNewFont().size(), 5);
  EXPECT_EQ(fileBytes(folder.path(u"Small/RTF/RTF_00001.rtf"_s)), theirs);
}

TEST_F(FontCommandTest, InABookWithoutAPlaceItSaysHowToKeepIt) {
  g_Project->FileWithPath.clear();
  toolkit.expectBox(u"5 of 5 scenes.\n\nThe book has no file yet: save it to keep this."_s);
  setFont();
}

TEST_F(FontCommandTest, ATextThatCouldNotBeReadStays) {
  ASSERT_TRUE(QDir(folder.path()).mkdir(u"Other"_s));
  const QString single = folder.path() + u"/Other/Book.qnc4"_s;
  ASSERT_TRUE(ProjectSaver(*g_Project).saveCopy(single));
  QByteArray book = fileBytes(single);
  const qsizetype text = book.indexOf("<SCENERTF>") + 10;
  writeFile(single, book.replace(text, book.indexOf("</SCENERTF>") - text, "?not Base64?"));
  toolkit.expectBox(u"IMPORTANT!"_s);
  toolkit.expectBox(u"The text of these scenes could not be read"_s);
  window().LoadProject(single, false);
  ASSERT_TRUE(sceneAt(1)->TextUnread());
  toolkit.expectBox(u"The text of 1 scene could not be read when the book was opened, and is as it was:\nArrival 1"_s);
  setFont();
  EXPECT_TRUE(sceneAt(1)->TextUnread());
  EXPECT_FALSE(sceneAt(2)->RTFChanged());
}
