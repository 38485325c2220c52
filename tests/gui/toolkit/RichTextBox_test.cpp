#include "gui/toolkit/RichTextBox.h"

#include "core/text/Rtf.h"
#include "core/text/RtfSamples.h"
#include "gui/toolkit/RichTextDocument.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>
#include <QTextDocument>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const QByteArray kRtf =
    "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Arial;}}{\\colortbl ;\\red255\\green0\\blue0;}\\pard\\fi-200\\li200\\f0\\fs20 "
    "one \\b two\\b0\\line three\\par\\pard\\qc four \\cf1 five\\cf0\\par}";
const QString kPlain = u"one two\r\nthree\r\nfour five"_s;

std::unique_ptr<RichTextBox> boxWith(const QByteArray& rtf) {
  auto box = std::make_unique<RichTextBox>();
  box->setFont(QFont(u"Arial"_s, 11));
  box->setTextRTF(rtf);
  return box;
}

/// Changes the document and takes the change back, so that the box has to read it anew.
void touch(RichTextBox& box) {
  const qsizetype at = box.SelStart();
  QTest::keyClicks(&box, u"x"_s);
  QTest::keyClick(&box, Qt::Key_Backspace);
  box.setSelStart(at);
}

}  // namespace

TEST(RichTextBox, WhatIsShownComesBackEqual) {
  QRandomGenerator random(31);
  for (int i = 0; i < 500; ++i) {
    const RichText text = randomRichText(random);
    QTextDocument document;
    RichTextDocument::fill(document, text);
    ASSERT_EQ(RichTextDocument::read(document), text);
  }
  for (const CorpusFile& file : rtfCorpus()) {
    RichTextBox box;
    box.setTextRTF(file.rtf);
    EXPECT_EQ(box.PlainText(), rtfToPlainText(file.rtf)) << file.name;
    EXPECT_EQ(box.TextRTF(), file.rtf);
    touch(box);
    EXPECT_EQ(box.richText(), readRtf(file.rtf)) << file.name;
  }
}

TEST(RichTextBox, PositionsAreThoseOfThePlainText) {
  const auto box = boxWith(kRtf);
  ASSERT_EQ(box->Text(), kPlain);
  for (qsizetype start = 0; start <= kPlain.size(); ++start) {
    const bool isInside = start > 0 && start < kPlain.size() && kPlain[start] == u'\n';
    box->setSelStart(start);
    EXPECT_EQ(box->SelStart(), isInside ? start - 1 : start);
    EXPECT_EQ(box->SelLength(), 0);
  }
  box->select(4, 12);
  EXPECT_EQ(box->SelText(), u"two\r\nthree\r\n"_s);
  EXPECT_EQ(box->SelRichText(), readRtf(kRtf).slice(4, 12));
  EXPECT_EQ(rtfToPlainText(box->SelRTF()), u"two\r\nthree\r\n"_s);
  box->select(-5, 1000);
  EXPECT_EQ(box->SelLength(), kPlain.size());
}

TEST(RichTextBox, TellsOfEditsAndNotOfLoadsOrMarks) {
  const auto box = boxWith(kRtf);
  QSignalSpy spy(box.get(), &RichTextBox::Changed);
  box->setTextRTF(kRtf);
  box->setFont(QFont(u"Arial"_s, 14));
  box->select(0, 3);
  box->setSelColor(192);
  box->colourRanges({{4, 3, 0xFF0000}});
  box->setBackColor(0xFFFF00);
  EXPECT_EQ(spy.count(), 0);
  QTest::keyClicks(box.get(), u"a"_s);
  EXPECT_EQ(spy.count(), 1);
  box->setSelText(u"b\r\nc"_s);
  EXPECT_EQ(spy.count(), 2);
  box->select(0, 1);
  box->setSelBold(true);
  box->setSelIndent(100);
  EXPECT_EQ(spy.count(), 4);
  box->setRichText(RichText());
  QTest::keyClicks(box.get(), u"a"_s);
  EXPECT_EQ(spy.count(), 5) << "a text loaded later is watched too";
}

TEST(RichTextBox, SelTextTakesTheFormatOfWhatItReplaces) {
  const auto box = boxWith(kRtf);
  box->select(4, 3);
  box->setSelText(u"2\r\nII"_s);
  EXPECT_EQ(box->Text(), u"one 2\r\nII\r\nthree\r\nfour five"_s);
  EXPECT_EQ(box->SelStart(), 9);
  EXPECT_EQ(box->SelLength(), 0);
  EXPECT_TRUE(box->formatAt(4).bold && box->formatAt(8).bold);
  EXPECT_FALSE(box->formatAt(3).bold || box->formatAt(11).bold);
  EXPECT_EQ(box->richText().paragraphFormatAt(8), readRtf(kRtf).paragraphFormatAt(0));
}

TEST(RichTextBox, FormatsTheSelectionAndNoMore) {
  const auto box = boxWith(kRtf);
  box->select(0, 3);
  EXPECT_EQ(box->SelFontName(), u"Arial"_s);
  EXPECT_EQ(box->SelFontSize(), 10);
  EXPECT_FALSE(box->SelBold());
  EXPECT_EQ(box->SelColor(), std::nullopt);
  box->setSelBold(true);
  box->setSelItalic(true);
  box->setSelUnderline(true);
  box->setSelColor(0x123456);
  box->setSelFontName(u"Courier New"_s);
  box->setSelFontSize(12.5);
  CharFormat format = readRtf(kRtf).charFormatAt(0);
  EXPECT_EQ(box->formatAt(3), format);
  format.bold = format.italic = true;
  format.underline = CharLook::Underline::Single;
  format.colour = 0x123456;
  format.fontName = u"Courier New"_s;
  format.halfPoints = 25;
  EXPECT_EQ(box->formatAt(0), format);
  EXPECT_EQ(box->formatAt(2), format);
  box->select(0, -1);
  box->select(0, kPlain.size());
  box->setSelColor(0x80000008);
  const RichText text = box->richText();
  for (qsizetype i = 0; i < text.runCount(); ++i) {
    EXPECT_EQ(text.run(i).format->colour, std::nullopt) << "the system's colour is the automatic one";
  }
}

TEST(RichTextBox, IndentsCountFromTheFirstLine) {
  const auto box = boxWith(kRtf);
  EXPECT_EQ(box->SelIndent(), 0);
  EXPECT_EQ(box->SelHangingIndent(), 200);
  box->select(0, kPlain.size());
  box->setSelIndent(200);
  box->setSelHangingIndent(-200);
  const RichText text = box->richText();
  for (const qsizetype position : {qsizetype(0), text.size()}) {
    EXPECT_EQ(text.paragraphFormatAt(position).leftIndent, 0);
    EXPECT_EQ(text.paragraphFormatAt(position).firstIndent, 200);
  }
  box->setSelStart(0);
  EXPECT_EQ(box->SelIndent(), 200);
  EXPECT_EQ(box->SelHangingIndent(), -200);
  box->setSelStart(kPlain.size());
  EXPECT_EQ(box->SelAlignment(), ParagraphFormat::Alignment::Centre);
  box->setSelAlignment(ParagraphFormat::Alignment::Right);
  EXPECT_EQ(box->richText().paragraphFormatAt(kPlain.size()).alignment, ParagraphFormat::Alignment::Right);
  EXPECT_EQ(box->richText().paragraphFormatAt(0).alignment, ParagraphFormat::Alignment::Left);
}

TEST(RichTextBox, ListsGoOnWithReturnAndEndInAnEmptyItem) {
  RichTextBox box;
  ListMark first;
  first.style = ListMark::Style::LowerLetter;
  first.start = 3;
  first.after = u")"_s;
  const CharFormat large{{.halfPoints = 40}, u"Courier New"_s};
  box.setRichText(RichText::fromPlain(u"one"_s, large, {.leftIndent = 720, .firstIndent = -360, .list = first}));
  const auto labels = [&box] {
    const RichText text = box.richText();
    ListNumbering numbering;
    QStringList result;
    for (qsizetype i = 0; i < text.paragraphCount(); ++i) {
      numbering.next(text.paragraph(i).format->list);
      result.append(numbering.label(text.paragraph(i).format->list));
    }
    return result;
  };
  box.setSelStart(3);
  QTest::keyClick(&box, Qt::Key_Return);
  EXPECT_EQ(labels(), QStringList({u"c)"_s, u"d)"_s}));
  box.setSelAlignment(ParagraphFormat::Alignment::Centre);
  EXPECT_EQ(labels(), QStringList({u"c)"_s, u"d)"_s}));
  QTest::keyClick(&box, Qt::Key_Return);
  EXPECT_EQ(labels(), QStringList({u"c)"_s, QString()})) << "the empty item ends the list";
  EXPECT_EQ(box.Text(), u"one\r\n"_s);
  QTest::keyClicks(&box, u"x"_s);
  EXPECT_EQ(box.formatAt(5).fontName, large.fontName);
  EXPECT_EQ(box.formatAt(5).halfPoints, large.halfPoints);
  EXPECT_EQ(box.richText().paragraphFormatAt(5).leftIndent, 720);
  box.setSelStart(0);
  QTest::keyClick(&box, Qt::Key_Backspace);
  EXPECT_EQ(labels(), QStringList({QString(), QString()}));
  EXPECT_EQ(box.Text(), u"one\r\nx"_s);
}

TEST(RichTextBox, TheClipboardCarriesPlainText) {
  const auto box = boxWith(kRtf);
  box->select(4, 10);
  box->copy();
  EXPECT_FALSE(QApplication::clipboard()->mimeData()->hasHtml());
  EXPECT_EQ(QApplication::clipboard()->text(), u"two\nthree"_s);
  auto* mixed = new QMimeData;
  mixed->setHtml(u"<b>bold</b>"_s);
  mixed->setText(u"a\nb"_s);
  QApplication::clipboard()->setMimeData(mixed);
  box->select(0, 3);
  box->paste();
  EXPECT_EQ(box->Text(), u"a\r\nb two\r\nthree\r\nfour five"_s);
  EXPECT_FALSE(box->formatAt(0).bold);
}
