// What opening, editing and saving does to a text: its colour, fonts without a name and indents, and nothing else.

#include "core/infra/cSHAREDSettings.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/text/Rtf.h"
#include "gui/editor/EditorWindow.h"
#include "gui/editor/frmEditor.h"
#include "gui/toolkit/RichTextBox.h"
#include "support/SampleProject.h"

#include <QDir>
#include <QDirIterator>
#include <QLineEdit>
#include <QTest>
#include <QToolButton>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

class EditorTextTest : public EditorTest {
 protected:
  /// Opens the scene with this text, lets it be worked on, saves it and gives what it holds then.
  QByteArray savedAs(const QByteArray& rtf, const std::function<void(frmEditor&)>& work) {
    scene()->setTextRTF(rtf);
    frmEditor* const editor = open();
    work(*editor);
    trigger(*editor, "mnuSaveAndExit");
    deleteUnloaded();
    return scene()->TextRTF();
  }
  QByteArray savedWithAnX(const QByteArray& rtf) {
    return savedAs(rtf, [this](frmEditor& editor) {
      control<RichTextBox>(editor, "txtMain").moveCursor(QTextCursor::Start);
      QTest::keyClicks(&control<RichTextBox>(editor, "txtMain"), u"x"_s);
    });
  }
};

/// What the rules ask for, done to a text by hand.
RichText expectedOf(RichText text, std::optional<quint32> colour) {
  text.formatParagraphs(0, -1, [](ParagraphFormat& format) {
    const bool hasIndent = format.leftIndent != 0 || format.rightIndent != 0 || format.firstIndent != 0;
    if (!hasIndent && format.list == ListMark()) {
      format.firstIndent = 200;
    }
  });
  text.insert(0, u"x");
  text.formatCharacters(0, -1, [&](CharFormat& format) {
    format.colour = colour;
    format.fontName = format.fontName.isEmpty() ? u"Arial"_s : format.fontName;
    format.halfPoints = format.halfPoints == 0 ? 20 : format.halfPoints;
  });
  return text;
}

RichText motleyText() {
  RichText text =
      RichText::fromPlain(u"Plain, bold, odd.\r\n\r\nCentred\u00a0line\r\n\ttabbed \u2028 and \U0001F600 last"_s);
  text.formatCharacters(7, 4, [](CharFormat& format) { format.bold = true; });
  text.formatCharacters(13, 3, [](CharFormat& format) {
    format = {{.halfPoints = 27,
               .italic = true,
               .strikeOut = true,
               .smallCaps = true,
               .underline = CharLook::Underline::Wavy,
               .script = CharFormat::Script::Superscript},
              u"Courier New"_s};
    format.colour = 0xFF;
    format.background = 0x00FFFF;
  });
  text.formatParagraphs(22, 3, [](ParagraphFormat& format) {
    format.alignment = ParagraphFormat::Alignment::Centre;
    format.spaceBefore = 120;
    format.rightIndent = 333;
    format.tabStops = {{700, TabStop::Kind::Left}};
  });
  return text;
}

TEST_F(EditorTextTest, ATextThatNobodyEditedKeepsItsBytesWhateverElseIsSaved) {
  const QByteArray rtf =
      "{\\rtf1\\ansi{\\fonttbl{\\f7 Courier;}}{\\stylesheet{\\s0 N;}}\\f7 one\\par\\trowd a\\cell\\row}";
  const auto reTitled = [this](frmEditor& editor) {
    QTest::keyClicks(&control<QLineEdit>(editor, "txtTitle"), u" again"_s);
    trigger(editor, "mnuSave");
  };
  const auto typedAndTakenBack = [this](frmEditor& editor) {
    type(editor, u"xy"_s);
    QTest::keyClick(&control<RichTextBox>(editor, "txtMain"), Qt::Key_Backspace);
    QTest::keyClick(&control<RichTextBox>(editor, "txtMain"), Qt::Key_Backspace);
  };
  EXPECT_EQ(savedAs(rtf, [](frmEditor&) {}), rtf);
  EXPECT_EQ(savedAs(rtf, reTitled), rtf);
  EXPECT_TRUE(scene()->Title.contains(u"again"_s));
  EXPECT_EQ(savedAs(rtf, typedAndTakenBack), rtf);
  EXPECT_EQ(fileBytes(scene()->RTFFileWithPath()), rtf);
  EXPECT_NE(savedWithAnX(rtf), rtf);
}

TEST_F(EditorTextTest, SavingChangesColourFontsWithoutANameAndMissingIndentsAndNothingElseHoweverOften) {
  const RichText text = motleyText();
  const QByteArray once = savedWithAnX(writeRtf(text));
  EXPECT_EQ(readRtf(once), expectedOf(text, {}));
  EXPECT_FALSE(once.contains("\\fcharset0 ;"));
  EXPECT_EQ(readRtf(savedWithAnX(once)), expectedOf(readRtf(once), {}));
  Settings().sSet(u"EditorFG"_s, 0x8000);
  EXPECT_EQ(readRtf(savedWithAnX(writeRtf(text))), expectedOf(text, 0x8000U)) << "a colour of the user's own";
}

TEST_F(EditorTextTest, FilesOfOtherProgramsKeepAllThatATextCanHold) {
  if (sharedFolder().isEmpty()) {
    GTEST_SKIP();
  }
  QDirIterator files(sharedFolder() + u"/rtf-corpus"_s, {u"*.rtf"_s}, QDir::Files);
  int looked = 0;
  while (files.hasNext()) {
    const QString path = files.next();
    const QByteArray rtf = fileBytes(path);
    EXPECT_EQ(readRtf(savedWithAnX(rtf)), expectedOf(readRtf(rtf), {})) << path;
    ++looked;
  }
  EXPECT_GT(looked, 10);
}

TEST_F(EditorTextTest, WhatCanNotBeKeptIsToldAndTheFileAsItWasIsKeptBesideTheBook) {
  const QByteArray rtf =
      "{\\rtf1{\\stylesheet{\\s0 N;}}{\\header h}a{\\deleted b}{\\shp{\\*\\shpinst{\\shptxt box\\par}}}\\trowd "
      "c\\cell\\row}";
  scene()->setTextRTF(rtf);
  scene()->Save(false, true);
  frmEditor* const editor = open();
  EXPECT_EQ(panel(*editor, 4),
            u"Not kept when saved: table layout, headers and footers, tracked deletions, text boxes, styles"_s);
  const QDir backups(g_Project->TodaysBackupFolder());
  trigger(*editor, "mnuSave");
  EXPECT_FALSE(backups.exists(u"RTF_00001_Original.rtf"_s)) << "nothing was lost yet";
  type(*editor, u"x"_s);
  trigger(*editor, "mnuSave");
  EXPECT_EQ(fileBytes(backups.filePath(u"RTF_00001_Original.rtf"_s)), rtf);
  EXPECT_EQ(panel(*editor, 4), QString());
  EXPECT_EQ(textInFile(), u"ac\tx"_s);
}

TEST_F(EditorTextTest, WithoutACopyOfWhatWouldBeLostTheUserDecides) {
  const QByteArray rtf = "{\\rtf1{\\header h}a}";
  scene()->setTextRTF(rtf);
  scene()->Save(false, true);
  frmEditor* const editor = open();
  type(*editor, u"x"_s);
  writeFile(QDir::cleanPath(g_Project->Path() + u"Autobackups"_s), "no folder");
  toolkit.expectBox(
      u"The text as it was could not be copied to the backup folder. Saving it now loses: headers and "
      u"footers.\n\nSave all the same?"_s,
      Answer::No);
  trigger(*editor, "mnuSave");
  EXPECT_EQ(fileBytes(scene()->RTFFileWithPath()), rtf);
  editor->SaveQuietly();
  const QDir rescued(Settings().sGet(u"RescuedTexts"_s).toString(), u"*.rtf"_s);
  ASSERT_EQ(rescued.count(), 1U) << "where nobody can be asked it is kept, and told of at the next start";
  EXPECT_EQ(readRtf(fileBytes(rescued.filePath(rescued[0]))).plainText(), u"ax"_s);
  toolkit.expectBox(
      u"The text as it was could not be copied to the backup folder. Saving it now loses: headers and "
      u"footers.\n\nSave all the same?"_s,
      Answer::Yes);
  trigger(*editor, "mnuSave");
  EXPECT_EQ(textInFile(), u"ax"_s);
}

TEST_F(EditorTextTest, KeysAndButtonsFormatTheSelection) {
  using IsOn = bool (*)(const CharFormat&);
  const std::tuple<Qt::Key, const char*, IsOn> styles[] = {
      {Qt::Key_B, "cmdBold", [](const CharFormat& format) { return format.bold; }},
      {Qt::Key_I, "cmdItalic", [](const CharFormat& format) { return format.italic; }},
      {Qt::Key_U, "cmdUnderline",
       [](const CharFormat& format) { return format.underline == CharLook::Underline::Single; }}};
  frmEditor* const editor = open();
  auto& pane = control<RichTextBox>(*editor, "txtMain");
  for (const auto& style : styles) {
    const auto savedStyle = [&] {
      trigger(*editor, "mnuSave");
      return std::get<2>(style)(readRtf(scene()->TextRTF()).charFormatAt(1));
    };
    pane.selectAll();
    QTest::keyClick(&pane, std::get<0>(style), Qt::ControlModifier);
    EXPECT_TRUE(savedStyle()) << std::get<1>(style);
    QTest::mouseClick(&control<QToolButton>(*editor, std::get<1>(style)), Qt::LeftButton);
    EXPECT_FALSE(savedStyle()) << std::get<1>(style);
  }
}

}  // namespace
