// What opening and saving does to a text: its colour and indents, and nothing else.

#include "core/infra/cSHAREDSettings.h"
#include "core/text/Rtf.h"
#include "gui/editor/EditorWindow.h"
#include "gui/editor/frmEditor.h"
#include "gui/toolkit/RichTextBox.h"
#include "support/SampleProject.h"
#include "support/WaitFor.h"

#include <QComboBox>
#include <QDirIterator>
#include <QLineEdit>
#include <QTest>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

class EditorTextTest : public EditorTest {
 protected:
  /// Opens the scene with this text, saves it unedited and gives what it holds then.
  QByteArray savedAs(const QByteArray& rtf) {
    scene()->setTextRTF(rtf);
    frmEditor* const editor = open();
    trigger(*editor, "mnuSaveAndExit");
    deleteUnloaded();
    return scene()->TextRTF();
  }
};

/// What the rules ask for, done to a text by hand.
RichText expectedOf(RichText text, std::optional<quint32> colour) {
  text.formatCharacters(0, -1, [&](CharFormat& format) { format.colour = colour; });
  text.formatParagraphs(0, -1, [](ParagraphFormat& format) {
    format.leftIndent = 0;
    format.firstIndent = 200;
  });
  return text;
}

RichText motleyText() {
  RichText text =
      RichText::fromPlain(u"Plain, bold, odd.\r\n\r\nCentred\u00a0line\r\n\ttabbed \u2028 and \U0001F600 last"_s);
  text.formatCharacters(7, 4, [](CharFormat& format) { format.bold = true; });
  text.formatCharacters(13, 3, [](CharFormat& format) {
    format = {
        {27, false, true, true, true, true, false, CharFormat::Script::Superscript}, u"Courier New"_s, 0xFF, 0x00FFFF};
  });
  text.formatParagraphs(22, 3, [](ParagraphFormat& format) {
    format.alignment = ParagraphFormat::Alignment::Centre;
    format.spaceBefore = 120;
    format.rightIndent = 333;
    format.tabStops = {{700, TabStop::Kind::Left}};
  });
  return text;
}

TEST_F(EditorTextTest, SavingUneditedTextChangesItsColourAndIndentsAndNothingElseHoweverOften) {
  const RichText text = motleyText();
  const QByteArray once = savedAs(writeRtf(text));
  EXPECT_EQ(readRtf(once), expectedOf(text, {}));
  EXPECT_EQ(savedAs(once), once);
  Settings().sSet(u"EditorFG"_s, 0x8000);
  EXPECT_EQ(readRtf(savedAs(writeRtf(text))), expectedOf(text, 0x8000U)) << "a colour of the user's own";
}

TEST_F(EditorTextTest, FilesOfOtherProgramsKeepTheirWordsAndFormats) {
  if (sharedFolder().isEmpty()) {
    GTEST_SKIP();
  }
  QDirIterator files(sharedFolder() + u"/rtf-corpus"_s, {u"*.rtf"_s}, QDir::Files);
  int looked = 0;
  while (files.hasNext()) {
    const QString path = files.next();
    const QByteArray rtf = fileBytes(path);
    EXPECT_EQ(readRtf(savedAs(rtf)), expectedOf(readRtf(rtf), {})) << path;
    ++looked;
  }
  EXPECT_GT(looked, 10);
}

TEST_F(EditorTextTest, AnEditLeavesTheRestOfTheTextAsItWas) {
  RichText expected = expectedOf(motleyText(), {});
  scene()->setTextRTF(writeRtf(motleyText()));
  frmEditor* const editor = open();
  auto& pane = control<RichTextBox>(*editor, "txtMain");
  pane.moveCursor(QTextCursor::Start);
  QTest::keyClicks(&pane, u"So "_s);
  trigger(*editor, "mnuSave");
  expected.insert(0, u"So ");
  EXPECT_EQ(readRtf(scene()->TextRTF()), expected);
}

TEST_F(EditorTextTest, KeysAndButtonsFormatTheSelection) {
  const std::tuple<Qt::Key, const char*, bool CharFormat::*> styles[] = {
      {Qt::Key_B, "cmdBold", &CharFormat::bold},
      {Qt::Key_I, "cmdItalic", &CharFormat::italic},
      {Qt::Key_U, "cmdUnderline", &CharFormat::underline}};
  frmEditor* const editor = open();
  auto& pane = control<RichTextBox>(*editor, "txtMain");
  for (const auto& style : styles) {
    const auto savedStyle = [&] {
      trigger(*editor, "mnuSave");
      return readRtf(scene()->TextRTF()).charFormatAt(1).*std::get<2>(style);
    };
    pane.selectAll();
    QTest::keyClick(&pane, std::get<0>(style), Qt::ControlModifier);
    EXPECT_TRUE(savedStyle()) << std::get<1>(style);
    QTest::mouseClick(&control<QToolButton>(*editor, std::get<1>(style)), Qt::LeftButton);
    EXPECT_FALSE(savedStyle()) << std::get<1>(style);
  }
}

TEST_F(EditorTextTest, ATypedFontSizeIsTakenFromFiveToBelowThirtyTwo) {
  frmEditor* const editor = open();
  auto& pane = control<RichTextBox>(*editor, "txtMain");
  auto& size = required(control<QComboBox>(*editor, "cmbFontSize").lineEdit(), u"field for the font size"_s);
  pane.selectAll();
  const auto enter = [&](const QString& text) {
    size.selectAll();
    QTest::keyClicks(&size, text);
    QTest::keyClick(&size, Qt::Key_Return);
    trigger(*editor, "mnuSave");
    return readRtf(scene()->TextRTF()).charFormatAt(1).halfPoints;
  };
  EXPECT_EQ(enter(u"5"_s), 10);
  EXPECT_EQ(enter(u"31.5"_s), 63);
  EXPECT_EQ(enter(u"32"_s), 63);
  EXPECT_EQ(size.text(), u"31.5"_s);
  EXPECT_EQ(enter(u"4.9"_s), 63);
  EXPECT_EQ(enter(u"x"_s), 63);
}

TEST_F(EditorTextTest, TheListsOfTheFontBarAreFilledWithoutTouchingTheText) {
  frmEditor* const editor = open();
  auto& fonts = control<QComboBox>(*editor, "cmbFont");
  control<RichTextBox>(*editor, "txtMain").selectAll();
  EXPECT_TRUE(waitFor([&] { return fonts.count() > 0; }));
  EXPECT_EQ(fonts.currentText(), u"Arial"_s);
  EXPECT_EQ(control<QComboBox>(*editor, "cmbFontSize").currentText(), u"10"_s);
  editor->close();
}

}  // namespace
