#include "gui/editor/TextMarkLayer.h"

#include "core/text/Rtf.h"
#include "gui/toolkit/Colours.h"
#include "gui/toolkit/RichTextBox.h"

#include <QInputMethodEvent>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>

#include <functional>
#include <gtest/gtest.h>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr auto Wrong = TextMark::Kind::Misspelling;
constexpr auto Name = TextMark::Kind::Name;

// Line ends count twice: "teh" is marked at 5, "Anne" at 12.
const QString kText = u"one\r\nteh two Anne here\r\nlast"_s;

class TextMarkLayerTest : public ::testing::Test {
 protected:
  void SetUp() override {
    box.setRichText(RichText::fromPlain(kText));
    box.resize(400, 200);
    box.show();
    layer.setMarks({{5, 3, Wrong}, {13, 4, Name}});
  }

  /// The marked stretches of the text as they are drawn, each with the first letter of its kind in front of it.
  QStringList drawn() const {
    QStringList found;
    for (QTextBlock block = box.document()->begin(); block.isValid(); block = block.next()) {
      for (const QTextLayout::FormatRange& range : block.layout()->formats()) {
        if (range.format.hasProperty(QTextFormat::ForegroundBrush)) {
          const bool isName = range.format.foreground().color() == Colours::readable(0xFF0000, box.palette());
          found.append((isName ? u"N:"_s : u"M:"_s) + block.text().mid(range.start, range.length));
        }
      }
    }
    return found;
  }
  /// The same as the layer tells it.
  QStringList told() const {
    QStringList found;
    for (const TextMark& mark : layer.marks()) {
      found.append((mark.kind == Name ? u"N:"_s : u"M:"_s) + box.Text().mid(mark.start, mark.length));
    }
    return found;
  }
  void compose(const QString& preedit, const QString& commit) {
    QInputMethodEvent event(preedit, {{QInputMethodEvent::TextFormat, 0, static_cast<int>(preedit.size()),
                                       QVariant::fromValue<QTextFormat>(QTextCharFormat())}});
    event.setCommitString(commit);
    QCoreApplication::sendEvent(&box, &event);
  }

  RichTextBox box;
  TextMarkLayer& layer = *new TextMarkLayer(box);
};

TEST_F(TextMarkLayerTest, MarksAreShownAndAreNoPartOfTheText) {
  const QSignalSpy changes(&box, &RichTextBox::Changed);
  const QByteArray rtf = box.TextRTF();
  box.select(2, 12);
  const int scrolled = box.verticalScrollBar()->value();
  layer.setMarks({{5, 3, Name}, {13, 4, Name}, {19, 1, Wrong}});
  EXPECT_EQ(drawn(), (QStringList{u"N:teh"_s, u"N:Anne"_s, u"M:e"_s}));
  EXPECT_EQ(drawn(), told());
  EXPECT_EQ(box.SelStart(), 2);
  EXPECT_EQ(box.SelLength(), 12);
  EXPECT_EQ(box.verticalScrollBar()->value(), scrolled);
  EXPECT_EQ(changes.count(), 0);
  EXPECT_FALSE(box.isEdited());
  EXPECT_EQ(box.TextRTF(), rtf);
  EXPECT_EQ(box.SelColor(), std::nullopt);
  layer.clear();
  EXPECT_TRUE(drawn().isEmpty());
}

TEST_F(TextMarkLayerTest, OneKindIsSetWithoutTheOtherAndNamesLieOnTop) {
  layer.setMarks(Name, {{7, 3, Name}});
  EXPECT_EQ(told(), (QStringList{u"M:te"_s, u"N:h t"_s}));
  layer.setMarks(Name, {});
  EXPECT_EQ(told(), QStringList{u"M:teh"_s}) << "what was under the name is there again";
}

TEST_F(TextMarkLayerTest, MarksFollowTheTextAsItIsEdited) {
  struct Case {
    const char* what;
    qsizetype start;
    qsizetype length;
    std::function<void(RichTextBox&)> edit;
    QStringList expected;
  };
  const auto keys = [](const QString& text) { return [text](RichTextBox& pane) { QTest::keyClicks(&pane, text); }; };
  const auto press = [](Qt::Key key) { return [key](RichTextBox& pane) { QTest::keyClick(&pane, key); }; };
  const auto put = [](const QString& text) { return [text](RichTextBox& pane) { pane.setSelText(text); }; };
  const QStringList both{u"M:teh"_s, u"N:Anne"_s};
  const Case cases[] = {
      {"a line in front", 3, 0, press(Qt::Key_Return), both},
      {"lines joined", 5, 0, press(Qt::Key_Backspace), both},
      {"right in front", 5, 0, keys(u"x"_s), both},
      {"inside", 6, 0, keys(u"x"_s), {u"M:txeh"_s, u"N:Anne"_s}},
      {"behind", 8, 0, keys(u"xy"_s), {u"M:tehxy"_s, u"N:Anne"_s}},
      {"a blank behind", 8, 0, keys(u" x"_s), both},
      {"parted by a line end", 15, 0, press(Qt::Key_Return), {u"M:teh"_s, u"N:An"_s}},
      {"whole word written over", 5, 3, put(u"dog"_s), {u"N:Anne"_s}},
      {"cut across both", 6, 9, put({}), {u"M:t"_s, u"N:ne"_s}},
      {"a long passage in the word", 6, 0, put(u"a\r\nb"_s), {u"M:ta"_s, u"N:Anne"_s}},
      {"in bold", 0, 30, [](RichTextBox& pane) { pane.setSelBold(true); }, both},
      {"indented", 0, 30, [](RichTextBox& pane) { pane.setSelIndent(400); }, both},
      {"loaded anew", 0, 0, [](RichTextBox& pane) { pane.setRichText(pane.richText()); }, both},
      {"several edits at once", 0, 0,
       [](RichTextBox& pane) {
         QTextCursor cursor(pane.document());
         cursor.beginEditBlock();
         cursor.insertText(u"x"_s);
         cursor.setPosition(4);
         cursor.insertText(u"y"_s);
         cursor.endEditBlock();
       },
       both},
  };
  for (const Case& one : cases) {
    SetUp();
    box.select(one.start, one.length);
    one.edit(box);
    EXPECT_EQ(told(), one.expected) << one.what;
    EXPECT_EQ(drawn(), one.expected) << one.what;
  }
}

TEST_F(TextMarkLayerTest, AnInputMethodComposesInsideMarks) {
  box.setSelStart(6);
  compose(u"abc"_s, {});
  EXPECT_EQ(told(), (QStringList{u"M:teh"_s, u"N:Anne"_s}));
  ASSERT_GE(drawn().size(), 2);
  compose({}, u"ä"_s);
  EXPECT_EQ(told(), (QStringList{u"M:täeh"_s, u"N:Anne"_s}));
  EXPECT_EQ(drawn(), told());
}

TEST_F(TextMarkLayerTest, AScreenReaderHearsOfTheMarkAtTheCaret) {
  box.setSelStart(6);
  EXPECT_EQ(box.accessibleDescription(), u"Not in the dictionary"_s);
  box.setSelStart(14);
  EXPECT_EQ(box.accessibleDescription(), u"Name of a character"_s);
  box.setSelStart(0);
  EXPECT_EQ(box.accessibleDescription(), QString());
}

}  // namespace
