#include "core/text/Rtf.h"
#include "gui/toolkit/ListLabels.h"
#include "gui/toolkit/RichMimeData.h"
#include "gui/toolkit/RichTextBox.h"
#include "support/WaitFor.h"

#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QHelpEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>
#include <QTextDocument>
#include <QToolTip>

#include <gtest/gtest.h>
#include <tuple>

using namespace Qt::StringLiterals;

namespace {

using Alignment = ParagraphFormat::Alignment;

constexpr qsizetype kNote = 2;
constexpr qsizetype kPicture = 5;
constexpr qsizetype kLink = 8;
constexpr qsizetype kBehindLink = 12;
const QString kAddress = u"https://example.org/a"_s;
const QByteArray kRtf =
    "{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}}{\\colortbl ;\\red255\\green0\\blue0;}\\pard\\f0\\fs24 "
    "ab{\\footnote\\pard\\plain See <b>there</b>.}cd{\\pict\\pngblip\\picwgoal600\\pichgoal600 00}"
    "\\b ef\\b0{\\field{\\*\\fldinst HYPERLINK \"https://example.org/a\"}{\\fldrslt link}} gh\\par}";
const QString kObject(QChar(QChar::ObjectReplacementCharacter));
const QString kText = u"ab"_s + kObject + u"cd"_s + kObject + u"eflink gh"_s;

class RichTextBoxObjects : public ::testing::Test {
 protected:
  RichTextBoxObjects() {
    box.resize(600, 300);
    box.setTextRTF(kRtf);
    box.show();
  }

  /// Inside the character behind the position, which is in the first paragraph.
  QPoint placeOf(qsizetype position) const {
    QTextCursor cursor(box.document());
    cursor.setPosition(static_cast<int>(position));
    const QRect left = box.cursorRect(cursor);
    cursor.movePosition(QTextCursor::NextCharacter);
    return {(left.center().x() + box.cursorRect(cursor).center().x()) / 2, left.center().y()};
  }
  static void type(RichTextBox& into, const QString& text) {
    for (const QChar unit : text) {
      QTest::sendKeyEvent(QTest::Click, &into, Qt::Key_unknown, QString(unit), Qt::NoModifier);
    }
  }
  QString fieldAt(qsizetype position) const { return box.formatAt(position).field; }

  RichTextBox box;
};

}  // namespace

TEST_F(RichTextBoxObjects, AreFoundAndExchangedWhereTheyStand) {
  ASSERT_EQ(box.Text(), kText);
  ASSERT_TRUE(box.objectAt(kNote) && box.objectAt(kPicture));
  EXPECT_EQ(box.objectAt(kNote)->kind, InlineObject::Kind::Footnote);
  for (const qsizetype none : {qsizetype{-1}, kNote - 1, kNote + 1, kText.size()}) {
    EXPECT_FALSE(box.objectAt(none));
    box.replaceObject(none, box.objectAt(kNote));
  }
  EXPECT_FALSE(box.isEdited());
  InlineObject note = *box.objectAt(kNote);
  note.content = std::make_shared<const RichText>(RichText::fromPlain(u"Other."_s));
  QSignalSpy spy(&box, &RichTextBox::Changed);
  box.replaceObject(kNote, std::make_shared<const InlineObject>(note));
  EXPECT_EQ(spy.count(), 1);
  EXPECT_EQ(box.Text(), kText);
  EXPECT_EQ(*box.objectAt(kNote), note);
  EXPECT_EQ(box.formatAt(kNote).halfPoints, 24);
  EXPECT_EQ(*readRtf(box.TextRTF()).charFormatAt(kNote).object, note);
}

TEST_F(RichTextBoxObjects, GoToAnotherBoxWithTheirFormats) {
  box.select(0, kText.size());
  box.cut();
  EXPECT_EQ(box.Text(), QString());
  const QMimeData* const offered = QApplication::clipboard()->mimeData();
  EXPECT_FALSE(offered->hasHtml());
  EXPECT_EQ(offered->text(), u"abcdeflink gh"_s);
  RichTextBox other;
  other.setRichText(RichText::fromPlain(u"<>"_s));
  other.setSelStart(1);
  other.paste();
  EXPECT_EQ(other.richText().slice(1, kText.size()).text(), kText);
  EXPECT_TRUE(other.objectAt(1 + kNote) && other.objectAt(1 + kPicture));
  EXPECT_TRUE(other.formatAt(1 + 6).bold);
  EXPECT_EQ(linkAddress(other.formatAt(1 + kLink).field), kAddress);
  EXPECT_FALSE(other.formatAt(0).bold);
}

TEST_F(RichTextBoxObjects, ALockedBoxKeepsThemAndTakesNothing) {
  box.select(0, kText.size());
  box.copy();
  box.setLocked(true);
  box.select(1, 3);
  box.cut();
  box.paste();
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Delete, Qt::Key_Backspace, Qt::Key_Tab, Qt::Key_X}) {
    QTest::keyClick(&box, key);
  }
  EXPECT_EQ(box.TextRTF(), kRtf);
}

TEST_F(RichTextBoxObjects, ALinkEndsWithItsLastLetter) {
  box.setSelStart(kLink + 2);
  type(box, u"x"_s);
  EXPECT_EQ(linkAddress(fieldAt(kLink + 2)), kAddress);
  box.setSelStart(kBehindLink + 1);
  type(box, u"yz"_s);
  EXPECT_EQ(fieldAt(kBehindLink + 1), QString());
  EXPECT_EQ(fieldAt(kBehindLink + 2), QString());
  EXPECT_EQ(box.formatAt(kBehindLink + 1).halfPoints, 24);
  EXPECT_EQ(linkAddress(fieldAt(kBehindLink)), kAddress);
  box.setSelStart(kBehindLink + 1);
  QApplication::clipboard()->setText(u"pasted"_s);
  box.paste();
  EXPECT_EQ(fieldAt(kBehindLink + 1), QString());
  EXPECT_EQ(box.PlainText(), u"abcdeflixnkpastedyz gh"_s);
}

TEST_F(RichTextBoxObjects, ParagraphsRunAsTheirFirstLettersDo) {
  const auto paragraph = [this](qsizetype index) { return *box.richText().paragraph(index).format; };
  box.setRichText(RichText());
  type(box, u"שלום"_s);
  EXPECT_TRUE(paragraph(0).rightToLeft);
  EXPECT_EQ(paragraph(0).alignment, Alignment::Right);
  QTest::keyClick(&box, Qt::Key_Return);
  EXPECT_TRUE(paragraph(1).rightToLeft);
  EXPECT_EQ(paragraph(1).alignment, Alignment::Right);
  type(box, u"1) a"_s);
  EXPECT_TRUE(paragraph(1).rightToLeft) << "begun with what has no direction, as it stands";
  QTest::keyClick(&box, Qt::Key_Return);
  type(box, u"ab"_s);
  EXPECT_FALSE(paragraph(2).rightToLeft);
  EXPECT_EQ(paragraph(2).alignment, Alignment::Left);
  box.setSelAlignment(Alignment::Centre);
  QTest::keyClick(&box, Qt::Key_Return);
  type(box, u"ש"_s);
  EXPECT_TRUE(paragraph(3).rightToLeft);
  EXPECT_EQ(paragraph(3).alignment, Alignment::Centre);
}

TEST_F(RichTextBoxObjects, AreToldOfToTheEyeAndToAScreenReader) {
  const struct {
    qsizetype position;
    QString told;
    QString tip;
  } cases[] = {{kNote, u"Footnote: See <b>there</b>."_s, u"&lt;b&gt;there"_s},
               {kPicture, u"Picture"_s, u"Picture"_s},
               {kLink + 1, kAddress + u"\nCtrl+click to open"_s, kAddress},
               {kBehindLink + 2, QString(), QString()}};
  for (const auto& row : cases) {
    box.setSelStart(row.position);
    EXPECT_EQ(box.accessibleDescription(), row.told);
    const QPoint place = placeOf(row.position);
    QHelpEvent help(QEvent::ToolTip, place, box.viewport()->mapToGlobal(place));
    QApplication::sendEvent(box.viewport(), &help);
    EXPECT_TRUE(row.tip.isEmpty() ? waitFor([] { return !QToolTip::isVisible(); }) : QToolTip::text().contains(row.tip))
        << row.position << QToolTip::text().toStdString();
  }
}

TEST_F(RichTextBoxObjects, OpenWithTheMouseAndTheKeyboard) {
  QSignalSpy notes(&box, &RichTextBox::noteActivated);
  QSignalSpy links(&box, &RichTextBox::linkActivated);
  QTest::mouseDClick(box.viewport(), Qt::LeftButton, {}, placeOf(kNote));
  for (const qsizetype caret : {kNote, kNote + 1}) {
    box.setSelStart(caret);
    EXPECT_TRUE(box.openAtCaret());
  }
  EXPECT_EQ(notes, QList<QVariantList>({{kNote}, {kNote}, {kNote}}));
  QTest::mouseDClick(box.viewport(), Qt::LeftButton, {}, placeOf(kPicture));
  box.setSelStart(0);
  EXPECT_FALSE(box.openAtCaret());
  EXPECT_EQ(notes.count(), 3);
  EXPECT_EQ(links.count(), 0);
  QTest::mouseClick(box.viewport(), Qt::LeftButton, {}, placeOf(kLink + 1));
  EXPECT_EQ(links.count(), 0);
  QTest::mouseClick(box.viewport(), Qt::LeftButton, Qt::ControlModifier, placeOf(kLink + 1));
  box.setSelStart(kLink + 1);
  EXPECT_TRUE(box.openAtCaret());
  EXPECT_EQ(links, QList<QVariantList>({{kAddress}, {kAddress}}));
}

TEST_F(RichTextBoxObjects, WhatIsTakenBackOrMarkedIsNoEdit) {
  EXPECT_FALSE(box.isEdited());
  box.setSelStart(kNote + 1);
  type(box, u"x"_s);
  EXPECT_TRUE(box.isEdited());
  QTest::keyClick(&box, Qt::Key_Backspace);
  EXPECT_FALSE(box.isEdited());
  box.colourRanges({{0, 4, 0x0000FF}});
  box.select(4, 6);
  box.setSelColor(0xFF0000);
  EXPECT_FALSE(box.isEdited());
  box.setSelStart(kNote);
  QTest::keyClick(&box, Qt::Key_Delete);
  EXPECT_TRUE(box.isEdited());
  box.setUnedited();
  EXPECT_FALSE(box.isEdited());
}

TEST_F(RichTextBoxObjects, AreDroppedWhereThePointerIs) {
  const RichMimeData data(box.richText().slice(kNote, 2));
  const auto drop = [&](QPoint place) {
    const auto both = Qt::CopyAction | Qt::MoveAction;
    QDragEnterEvent enter(place, both, &data, Qt::LeftButton, {});
    QApplication::sendEvent(box.viewport(), &enter);
    QDropEvent dropped(place, both, &data, Qt::LeftButton, {});
    QApplication::sendEvent(box.viewport(), &dropped);
  };
  QStringList heard;
  QObject::connect(&box, &RichTextBox::Changed, &box, [&] { heard.append(box.richText().text()); });
  drop(placeOf(0) - QPoint(2, 0));
  const QString after = kObject + u"c"_s + kText;
  EXPECT_EQ(box.Text(), after);
  EXPECT_EQ(heard.last(), after);
  EXPECT_EQ(*box.objectAt(0), *box.objectAt(2 + kNote));
  box.setLocked(true);
  drop(placeOf(0));
  EXPECT_EQ(box.Text(), after);
}

TEST_F(RichTextBoxObjects, StayWhereTheyAreDraggedToWhatTakesLettersAlone) {
  struct Dragged : RichTextBox {
    using RichTextBox::endDrag;
  } from;
  RichTextBox other;
  QLineEdit field;
  const struct {
    Qt::DropAction action;
    const QObject* target;
    bool goes;
  } cases[] = {{Qt::MoveAction, &field, false},
               {Qt::MoveAction, nullptr, false},
               {Qt::CopyAction, other.viewport(), false},
               {Qt::MoveAction, other.viewport(), true}};
  for (const auto& drag : cases) {
    from.setTextRTF(kRtf);
    from.setSelStart(1);
    from.setSelLength(3);
    from.endDrag(drag.action, drag.target);
    EXPECT_EQ(from.Text(), drag.goes ? u"a"_s + kText.sliced(4) : kText);
  }
}

TEST_F(RichTextBoxObjects, WhatIsTypedBehindHiddenWordsIsSeen) {
  box.setTextRTF("{\\rtf1 a{\\v bc} d\\par{\\v ef}\\par}");
  for (const auto& [position, hidden] : {std::pair(2, true), {4, false}, {9, false}}) {
    box.setSelStart(position);
    type(box, u"x"_s);
    EXPECT_EQ(box.formatAt(position).hidden, hidden) << position;
  }
}

TEST_F(RichTextBoxObjects, ItemsBehindAnEndedOneKeepCounting) {
  const auto item = [](const QByteArray& number) {
    return "\\pard{\\pntext " + number + ".\\tab}{\\*\\pn\\pnlvlbody\\pndec{\\pntxta .}}";
  };
  box.setTextRTF("{\\rtf1" + item("1") + "one\\par" + item("2") + "\\par" + item("3") + "three\\par}");
  const auto numberOf = [&](int paragraph) { return numberOfItem(box.document()->findBlockByNumber(paragraph)); };
  ASSERT_EQ(numberOf(2), 3);
  box.setSelStart(5);
  QTest::keyClick(&box, Qt::Key_Return);
  EXPECT_EQ(numberOf(0), 1);
  EXPECT_EQ(numberOf(1), 0);
  EXPECT_EQ(numberOf(2), 2);
  EXPECT_EQ(box.SelStart(), 5);
}
