#include "gui/toolkit/TextHistory.h"

#include "core/text/RtfSamples.h"
#include "gui/toolkit/RichTextBox.h"

#include <QInputMethodEvent>
#include <QTest>
#include <QTextDocument>

#include <gtest/gtest.h>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int kDocuments = 40;
constexpr int kEditsEach = 250;
constexpr quint32 kMark = 0x0000C0;

RichText cleaned(RichText text) {
  text.formatCharacters(0, -1, [](CharFormat& format) { format.colour.reset(); });
  text.setDefaultTab(0);  // of the whole text, no part of a state
  return text;
}

/// A box with its history, and beside it the states that the history should know.
struct Written {
  RichTextBox box;
  TextHistory history{box, [] { return RichTextBox::Colour(); }};
  std::vector<RichText> states;
  size_t state = 0;

  explicit Written(const RichText& text) { load(text); }

  void load(const RichText& text) {
    box.setRichText(text);
    history.clear();
    states = {now()};
    state = 0;
  }
  RichText now() const { return cleaned(box.richText()); }

  /// Something was done. An empty text is no state to come back to once it is written into.
  void changed() {
    const RichText is = now();
    if (is == states[state]) {
      return;
    }
    states.resize(state + 1);
    if (states[state].isEmpty() && state > 0 && states[state - 1] == is) {
      states.pop_back();
      --state;
      return;
    }
    if (states[state].isEmpty()) {
      states[state] = is;
      return;
    }
    states.push_back(is);
    if (states.size() > TextHistory::kSteps + 1) {
      states.erase(states.begin());
    }
    state = states.size() - 1;
  }
  void undo() {
    if (box.hasCaretFormat()) {
      history.undo();  // and nothing of the text with it
      return;
    }
    history.undo();
    state -= state > 0 ? 1 : 0;
  }
  void redo() {
    history.redo();
    state += state + 1 < states.size() ? 1 : 0;
  }
  void expectState(const std::string& where) const {
    ASSERT_EQ(now(), states[state]) << where;
    ASSERT_EQ(history.canUndo(), state > 0 || box.hasCaretFormat()) << where;
    ASSERT_EQ(history.canRedo(), state + 1 < states.size()) << where;
  }
};

void type(RichTextBox& box, const QString& text) {
  for (const QChar unit : text) {
    QTest::sendKeyEvent(QTest::Click, &box, Qt::Key_unknown, QString(unit), Qt::NoModifier);
  }
}

void compose(RichTextBox& box, const QString& preedit, const QString& commit = {}) {
  QInputMethodEvent event(preedit, {});
  event.setCommitString(commit);
  QCoreApplication::sendEvent(&box, &event);
}

/// One change of any kind.
void changeAnyhow(Written& written, QRandomGenerator& random) {
  RichTextBox& box = written.box;
  const auto below = [&](qsizetype limit) { return random.bounded(static_cast<int>(limit)); };
  if (box.Text().isEmpty()) {
    return box.setSelText(u"words"_s);
  }
  const qsizetype from = below(box.Text().size() + 1);
  const qsizetype room = box.Text().size() - from;
  box.select(from, below(3) == 0 ? below(room + 1) : below(3));
  switch (below(14)) {
    case 0:
      return QTest::keyClick(&box, Qt::Key_Backspace);
    case 1:
      return QTest::keyClick(&box, Qt::Key_Delete);
    case 2:
      return QTest::keyClick(&box, Qt::Key_Return, below(2) == 0 ? Qt::NoModifier : Qt::ShiftModifier);
    case 3:
      return box.setSelBold(!box.SelBold());
    case 4:
      return box.setSelItalic(!box.SelItalic());
    case 5:
      return box.setSelFontSize(8 + below(9));
    case 6:
      return box.setSelAlignment(static_cast<ParagraphFormat::Alignment>(below(4)));
    case 7:
      return box.setSelRichText(randomRichText(random, 1));
    case 8:
      return box.colourRanges({{from, qMin<qsizetype>(room, 20), kMark}, {0, 3, {}}});
    case 9:
      box.selectAll();
      return below(4) == 0 ? box.setSelText({}) : box.setSelUnderline(!box.SelUnderline());
    case 10:
      return box.setSelText(u"one\r\ntwo \U0001F600"_s);
    case 11:
      return box.asOneChange([&] {
        box.setSelText(u"x"_s);
        box.setSelStart(0);
        box.setSelText(u"y"_s);
      });
    case 12:
      box.replaceAll(QString(QChar(u'a' + below(3))), below(2) == 0 ? u"b"_s : u"two "_s, Qt::CaseInsensitive);
      return;
    default:
      return type(box, QString(QChar(u'a' + below(3))));
  }
}

TEST(TextHistoryTest, AnyChangesAreTakenBackAndAgainToTheLetterAndTheFormat) {
  QRandomGenerator random(11);
  Written written{RichText()};
  for (int document = 0; document < kDocuments; ++document) {
    written.load(randomRichText(random));
    for (int step = 0; step < kEditsEach; ++step) {
      const int kind = random.bounded(10);
      for (int times = random.bounded(4); kind < 4 && times >= 0; --times) {
        kind < 2 ? written.undo() : written.redo();
      }
      if (kind >= 4) {
        changeAnyhow(written, random);
        written.changed();
      }
      ASSERT_NO_FATAL_FAILURE(
          written.expectState("text " + std::to_string(document) + ", step " + std::to_string(step)));
    }
  }
}

/// What stands there after each of so many undos.
QStringList goneBack(Written& written, int times) {
  QStringList seen;
  for (; times > 0; --times) {
    written.history.undo();
    seen.append(written.box.Text());
  }
  return seen;
}

TEST(TextHistoryTest, WordsThatWereAllDeletedComeBackAndAnEmptyTextIsNoStateBetween) {
  Written written{RichText::fromPlain(u"all the words\r\nof a scene")};
  written.box.selectAll();
  QTest::keyClick(&written.box, Qt::Key_Delete);
  EXPECT_EQ(goneBack(written, 1), QStringList{u"all the words\r\nof a scene"_s});
  written.history.redo();
  EXPECT_EQ(written.box.Text(), QString());
  type(written.box, u"ab"_s);
  EXPECT_EQ(goneBack(written, 2), (QStringList{u"a"_s, u"all the words\r\nof a scene"_s}));

  written.load({});
  type(written.box, u"xy"_s);
  EXPECT_EQ(goneBack(written, 2), (QStringList{u"x"_s, u"x"_s})) << "nothing was there before";
}

TEST(TextHistoryTest, MarksAreNoStepAndTextComesBackInTheOneColour) {
  Written written{RichText::fromPlain(u"one two")};
  RichTextBox& box = written.box;
  box.colourRanges({{0, 3, kMark}});
  box.select(4, 3);
  box.setSelColor(kMark);
  EXPECT_FALSE(written.history.canUndo());
  box.select(2, 3);
  QTest::keyClick(&box, Qt::Key_Delete);
  written.history.undo();
  EXPECT_EQ(box.Text(), u"one two"_s);
  EXPECT_EQ(box.SelStart(), 5);
  EXPECT_EQ(box.formatAt(3).colour, RichTextBox::Colour());
  EXPECT_EQ(box.formatAt(0).colour, kMark) << "what wasn't touched keeps its marks";
}

TEST(TextHistoryTest, WhatAnInputMethodPutsTogetherIsOneStepAndNothingBeforeItIsWritten) {
  Written written{RichText::fromPlain(u"one two")};
  RichTextBox& box = written.box;
  box.setSelStart(3);
  compose(box, u"k"_s);
  compose(box, u"か"_s);
  EXPECT_FALSE(written.history.canUndo());
  EXPECT_EQ(box.PlainText(), u"one two"_s);
  EXPECT_FALSE(box.isEdited());
  compose(box, {}, u"火"_s);
  compose(box, {}, u"é"_s);  // as a dead key ends
  EXPECT_EQ(box.Text(), u"one火é two"_s);
  EXPECT_EQ(goneBack(written, 3), (QStringList{u"one火 two"_s, u"one two"_s, u"one two"_s}));

  // In place of a selection, which goes when the first key comes.
  box.select(4, 3);
  compose(box, u"h"_s);
  compose(box, u"ha"_s, u"하"_s);  // the next syllable has begun
  compose(box, {}, u"나"_s);
  EXPECT_EQ(box.Text(), u"one 하나"_s);
  EXPECT_EQ(goneBack(written, 2), (QStringList{u"one 하"_s, u"one two"_s}));
}

}  // namespace
