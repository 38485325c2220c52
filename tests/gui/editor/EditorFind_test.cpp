// Finding and replacing in the text of an editor, through its window and its dialog.

#include "core/text/Rtf.h"
#include "gui/editor/EditorWindow.h"
#include "gui/toolkit/RichTextBox.h"
#include "gui/views/frmFind.h"
#include "support/WaitFor.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

class EditorFindTest : public EditorTest {
 protected:
  RichTextBox& openWith(const RichText& text) {
    scene()->setTextRTF(writeRtf(text));
    editor_ = open();
    return control<RichTextBox>(*editor_, "txtMain");
  }
  RichTextBox& openWith(const QString& text) { return openWith(RichText::fromPlain(text)); }

  frmFind& dialog() { return childOf<frmFind>(*editor_, u"frmFind"_s); }
  template <class Control>
  Control& inDialog(const char* name) {
    return childOf<Control>(dialog(), QString::fromLatin1(name));
  }
  void ask(const QString& text, const QString& with = {}, bool matchCase = false) {
    if (!editor_->findChild<frmFind*>()) {
      trigger(*editor_, "mnuReplace");
    }
    inDialog<QComboBox>("cmbFind").setEditText(text);
    inDialog<QComboBox>("cmbReplace").setEditText(with);
    inDialog<QCheckBox>("chkCaseSensitive").setChecked(matchCase);
  }
  void press(const char* button) { QTest::mouseClick(&inDialog<QPushButton>(button), Qt::LeftButton); }
  RichText savedText() {
    trigger(*editor_, "mnuSave");
    return readRtf(scene()->TextRTF());
  }

  frmEditor* editor_ = nullptr;
};

/// What is selected, in bars: "one |two| three".
QString shown(const RichTextBox& pane) {
  QString text = pane.Text();
  text.insert(pane.SelStart() + pane.SelLength(), u'|');
  text.insert(pane.SelStart(), u'|');
  return text;
}

const auto kAtTop = u"Search string not found. Start at top?"_s;
const auto kAtEnd = u"Search string not found. Start at end?"_s;
const auto kNone = u"No matches"_s;

struct Step {
  const char* what;
  QString text;
  QString sought;
  qsizetype caret;
  const char* button;
  bool matchCase;
  std::vector<std::pair<QString, Answer>> asked;
  QString shown;
};

const Step kSteps[] = {
    {"behind the caret", u"a cat, a cat"_s, u"cat"_s, 0, "cmdFind", false, {}, u"a |cat|, a cat"_s},
    {"the character at the caret is skipped",
     u"a cat, a cat"_s,
     u"cat"_s,
     2,
     "cmdFind",
     false,
     {},
     u"a cat, a |cat|"_s},
    {"case is ignored", u"x ÉTÉ"_s, u"été"_s, 0, "cmdFind", false, {}, u"x |ÉTÉ|"_s},
    {"case counts", u"x Cat cat"_s, u"cat"_s, 0, "cmdFind", true, {}, u"x Cat |cat|"_s},
    {"line ends in what is sought", u"x one\r\ntwo"_s, u"e\nt"_s, 0, "cmdFind", false, {}, u"x on|e\r\nt|wo"_s},
    {"on at the top", u"a cat end"_s, u"cat"_s, 9, "cmdFind", false, {{kAtTop, Answer::Yes}}, u"a |cat| end"_s},
    {"not the very first one", u"cat"_s, u"cat"_s, 0, "cmdFind", false, {{kNone, {}}}, u"||cat"_s},
    {"backwards from the end", u"cat cat"_s, u"cat"_s, 7, "cmdFindPrev", false, {}, u"cat |cat|"_s},
    {"backwards wholly in front", u"cat cat."_s, u"cat"_s, 7, "cmdFindPrev", false, {}, u"|cat| cat."_s},
    {"on at the end", u"a cat"_s, u"cat"_s, 1, "cmdFindPrev", false, {{kAtEnd, Answer::Yes}}, u"a |cat|"_s},
    {"nothing at the end",
     u"a cat"_s,
     u"dog"_s,
     3,
     "cmdFindPrev",
     false,
     {{kAtEnd, Answer::Yes}, {kNone, {}}},
     u"a cat||"_s},
};

TEST_F(EditorFindTest, SearchesGoOnFromTheCaretAndAskAtTheEnds) {
  RichTextBox& pane = openWith(QString());
  for (const Step& step : kSteps) {
    pane.setRichText(RichText::fromPlain(step.text));
    pane.setSelStart(step.caret);
    ask(step.sought, {}, step.matchCase);
    for (const auto& [text, answer] : step.asked) {
      toolkit.expectBox(text, answer);
    }
    press(step.button);
    EXPECT_EQ(shown(pane), step.shown) << step.what;
  }
}

TEST_F(EditorFindTest, AnObjectPartsTheTextAroundIt) {
  RichTextBox& pane = openWith(readRtf("{\\rtf1 x in{\\footnote note}side inside\\par}"));
  ask(u"inside"_s);
  press("cmdFind");
  EXPECT_EQ(shown(pane), u"x in\uFFFCside |inside|"_s);
}

TEST_F(EditorFindTest, KeysSearchAgainAndAskWhenThereIsNothingToSearchFor) {
  RichTextBox& pane = openWith(u"x one two one two"_s);
  QTest::keyClick(&pane, Qt::Key_F3);
  EXPECT_TRUE(waitUntilActive(dialog()));
  auto& field = required(inDialog<QComboBox>("cmbFind").lineEdit(), u"line"_s);
  QTest::keyClicks(&field, u"TWO"_s);
  QTest::keyClick(&field, Qt::Key_Return);
  EXPECT_EQ(shown(pane), u"x one |two| one two"_s);
  QTest::keyClick(&field, Qt::Key_F3);
  EXPECT_EQ(shown(pane), u"x one two one |two|"_s);
  QTest::keyClick(&field, Qt::Key_F3, Qt::ShiftModifier);
  EXPECT_EQ(shown(pane), u"x one |two| one two"_s);
  QTest::keyClick(&field, Qt::Key_Escape);
  EXPECT_FALSE(dialog().isVisible());
  EXPECT_TRUE(waitUntilActive(*editor_));
  EXPECT_TRUE(pane.hasFocus());
  QTest::keyClick(&pane, Qt::Key_F3);
  EXPECT_EQ(shown(pane), u"x one two one |two|"_s);
  QTest::keyClick(&pane, Qt::Key_F3, Qt::ShiftModifier);
  EXPECT_EQ(shown(pane), u"x one |two| one two"_s);
}

TEST_F(EditorFindTest, ASearchThatComesFromOutsideShowsItsFirstMatchAndGoesOn) {
  RichTextBox& pane = openWith(u"cat, dog, Cat"_s);
  scene()->setCurrentSearchString(u"bird"_s);
  EXPECT_EQ(shown(pane), u"||cat, dog, Cat"_s);
  scene()->setCurrentSearchString(u"cat"_s);
  EXPECT_EQ(shown(pane), u"|cat|, dog, Cat"_s);
  trigger(*editor_, "mnuFindNext");
  EXPECT_EQ(shown(pane), u"cat, dog, |Cat|"_s);
}

TEST_F(EditorFindTest, ReplaceTakesTheNextOneAndGoesOnBehindWhatItPutIn) {
  RichText text = RichText::fromPlain(u"x cat catcat, Cat end"_s);
  text.formatCharacters(2, 1, [](CharFormat& format) { format.bold = true; });
  text.formatCharacters(3, 2, [](CharFormat& format) { format.italic = true; });
  RichTextBox& pane = openWith(text);
  ask(u"cat"_s, u"bobcat"_s);
  const QString after[] = {u"x |bobcat| catcat, Cat end"_s, u"x bobcat |bobcat|cat, Cat end"_s,
                           u"x bobcat bobcat|bobcat|, Cat end"_s, u"x bobcat bobcatbobcat, |bobcat| end"_s};
  for (const QString& expected : after) {
    press("cmdReplace");
    EXPECT_EQ(shown(pane), expected);
  }
  toolkit.expectBox(kAtTop, Answer::No);
  press("cmdReplace");
  const RichText saved = savedText();
  EXPECT_TRUE(saved.charFormatAt(2).bold && saved.charFormatAt(7).bold && !saved.charFormatAt(7).italic);
  EXPECT_FALSE(saved.charFormatAt(8).bold);

  ask(u"bobcat"_s, QString());
  pane.setSelStart(8);
  press("cmdReplace");
  press("cmdReplace");
  EXPECT_EQ(shown(pane), u"x bobcat ||, bobcat end"_s) << "its neighbour too";
}

struct Replacement {
  QString text;
  QString find;
  QString with;
  bool matchCase;
  QString result;
  QString told;
};

TEST_F(EditorFindTest, ReplaceAllReplacesEveryMatchOnce) {
  const Replacement cases[] = {
      {u"cat cat Cat"_s, u"cat"_s, u"dog"_s, false, u"dog dog dog"_s, u"Replaced 3 occurrences"_s},
      {u"cat cat Cat"_s, u"cat"_s, u"dog"_s, true, u"dog dog Cat"_s, u"Replaced 2 occurrences"_s},
      {u"catcatcat"_s, u"cat"_s, u"a cat "_s, false, u"a cat a cat a cat "_s, u"Replaced 3 occurrences"_s},
      {u"catcat x cat"_s, u"cat"_s, QString(), false, u" x "_s, u"Replaced 3 occurrences"_s},
      {u"a\r\n\r\nb"_s, u"\n\n"_s, u"\n"_s, false, u"a\r\nb"_s, u"Replaced 1 occurrence"_s},
      {u"a cat"_s, u"cat"_s, u"Cat"_s, false, u"a cat"_s, u"Nothing replaced: both texts are the same"_s},
      {u"a cat"_s, u"dog"_s, u"Cat"_s, true, u"a cat"_s, u"No matches, nothing replaced"_s},
  };
  RichTextBox& pane = openWith(QString());
  for (const Replacement& each : cases) {
    pane.setRichText(RichText::fromPlain(each.text));
    ask(each.find, each.with, each.matchCase);
    press("cmdReplaceAll");
    EXPECT_EQ(pane.Text(), each.result);
    EXPECT_EQ(panel(*editor_, 4), each.told) << each.text.toStdString();
  }
}

TEST_F(EditorFindTest, ReplaceAllIsOneChangeThatKeepsObjectsFormatsAndTheCaret) {
  RichText text = readRtf("{\\rtf1 start{\\footnote note} here\\par}");
  RichText expected = text;
  for (int i = 0; i < 700; ++i) {
    RichText piece = RichText::fromPlain(i % 7 == 0 ? u"cat"_s : u"cat and\r\nCAT, "_s);
    piece.formatCharacters(0, 1, [i](CharFormat& format) { format.bold = i % 3 == 0; });
    piece.formatCharacters(1, -1, [](CharFormat& format) { format.italic = true; });
    text.append(piece);
  }
  RichTextBox& pane = openWith(text);
  expected = pane.richText();
  expected.replaceAll(u"cat", u"wild cats", Qt::CaseInsensitive);
  pane.setSelStart(pane.Text().size() - 2);
  int changes = 0;
  QObject::connect(&pane, &RichTextBox::Changed, &pane, [&] { ++changes; });
  ask(u"cat"_s, u"wild cats"_s);
  press("cmdReplaceAll");
  EXPECT_EQ(panel(*editor_, 4), u"Replaced 1,300 occurrences"_s);
  EXPECT_TRUE(pane.richText() == expected);
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(pane.SelStart(), pane.Text().size() - 2);
  EXPECT_EQ(pane.SelLength(), 0);
}

}  // namespace
