#include "gui/toolkit/RichTextDocument.h"

#include "gui/toolkit/Colours.h"

#include <QBrush>
#include <QHash>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextList>
#include <QTextOption>

#include <vector>

namespace {

constexpr double kTwipsPerPixel = 15;
constexpr double kFactorOfSingle = 240;
constexpr int kBoldFrom = QFont::DemiBold;
constexpr double kRoomForBullet = 16;

/// What a control has no exact form for travels in the formats beside it.
enum Property { ParagraphProperty = QTextFormat::UserProperty + 1, CapsProperty };
enum Caps { SmallCaps = 1, AllCaps = 2 };

double pixels(int twips) {
  return twips / kTwipsPerPixel;
}

QBrush brushOf(const std::optional<quint32>& colour) {
  return colour ? QBrush(Colours::toQt(*colour)) : QBrush(Qt::NoBrush);
}

std::optional<quint32> colourOf(const QBrush& brush) {
  return brush.style() == Qt::NoBrush ? std::nullopt : std::optional(Colours::fromQt(brush.color()));
}

Qt::Alignment alignmentOf(ParagraphFormat::Alignment alignment) {
  static constexpr Qt::AlignmentFlag kAlignments[] = {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight,
                                                      Qt::AlignJustify};
  return kAlignments[static_cast<size_t>(alignment)];
}

QList<QTextOption::Tab> tabsOf(const QList<TabStop>& stops) {
  static constexpr QTextOption::TabType kTypes[] = {QTextOption::LeftTab, QTextOption::CenterTab, QTextOption::RightTab,
                                                    QTextOption::DelimiterTab};
  QList<QTextOption::Tab> tabs;
  for (const TabStop& stop : stops) {
    tabs.append(QTextOption::Tab(pixels(stop.position), kTypes[static_cast<size_t>(stop.kind)], u'.'));
  }
  return tabs;
}

void setLineSpacing(QTextBlockFormat& block, const ParagraphFormat& format) {
  if (format.lineSpacing == 0) {
    return;
  }
  if (format.lineSpacingIsFactor) {
    block.setLineHeight(qAbs(format.lineSpacing) / kFactorOfSingle * 100, QTextBlockFormat::ProportionalHeight);
  } else {
    block.setLineHeight(pixels(qAbs(format.lineSpacing)),
                        format.lineSpacing < 0 ? QTextBlockFormat::FixedHeight : QTextBlockFormat::MinimumHeight);
  }
}

/// Puts a text into a document piece by piece.
class Filler {
 public:
  Filler(QTextDocument& document, const RichText& text) : cursor_(&document), text_(text) {}

  void fill() {
    cursor_.beginEditBlock();
    const RichText::Paragraph first = text_.paragraph(0);
    makeList();
    cursor_.setBlockFormat(blockFormat(*first.format));
    cursor_.setBlockCharFormat(charFormat(*first.endFormat));
    text_.visit(*this);
    cursor_.endEditBlock();
  }

  void text(QStringView units, const CharFormat& format) { cursor_.insertText(units.toString(), charFormat(format)); }
  void lineBreak(const CharFormat& format) {
    cursor_.insertText(QString(QChar(QChar::LineSeparator)), charFormat(format));
  }
  void paragraphEnd(const CharFormat&, const ParagraphFormat&) {
    if (++paragraph_ < text_.paragraphCount()) {
      const RichText::Paragraph next = text_.paragraph(paragraph_);
      cursor_.insertBlock(blockFormat(*next.format), charFormat(*next.endFormat));
    }
  }

 private:
  /// One list for all the bullets: only its number has to stand in their paragraphs' formats.
  void makeList() {
    for (qsizetype i = 0; i < text_.paragraphCount() && list_ < 0; ++i) {
      list_ = text_.paragraph(i).format->bullet ? RichTextDocument::bulletList(cursor_) : -1;
    }
  }
  const QTextCharFormat& charFormat(const CharFormat& format) {
    auto known = charFormats_.find(&format);
    if (known == charFormats_.end()) {
      known = charFormats_.insert(&format, RichTextDocument::toQt(format));
    }
    return *known;
  }
  const QTextBlockFormat& blockFormat(const ParagraphFormat& format) {
    auto known = blockFormats_.find(&format);
    if (known == blockFormats_.end()) {
      known = blockFormats_.insert(&format, RichTextDocument::toQt(format, list_));
    }
    return *known;
  }

  QTextCursor cursor_;
  const RichText& text_;
  int list_ = -1;
  qsizetype paragraph_ = 0;
  QHash<const CharFormat*, QTextCharFormat> charFormats_;
  QHash<const ParagraphFormat*, QTextBlockFormat> blockFormats_;
};

/// The builder's number of each of the document's formats, looked up once.
class KnownNumbers {
 public:
  template <class Look>
  int operator()(int index, Look&& look) {
    const auto slot = static_cast<size_t>(index);
    if (slot >= numbers_.size()) {
      numbers_.resize(slot + 1, -1);
    }
    if (numbers_[slot] < 0) {
      numbers_[slot] = look();
    }
    return numbers_[slot];
  }

 private:
  std::vector<int> numbers_;
};

}  // namespace

Q_DECLARE_METATYPE(ParagraphFormat)

namespace RichTextDocument {

QTextCharFormat toQt(const CharFormat& format) {
  QTextCharFormat result;
  if (!format.fontName.isEmpty()) {
    result.setFontFamilies({format.fontName});
  }
  if (format.halfPoints > 0) {
    result.setFontPointSize(format.halfPoints / 2.0);
  }
  result.setFontWeight(format.bold ? QFont::Bold : QFont::Normal);
  result.setFontItalic(format.italic);
  result.setFontUnderline(format.underline);
  result.setFontStrikeOut(format.strikeOut);
  if (format.smallCaps || format.allCaps) {
    result.setFontCapitalization(format.allCaps ? QFont::AllUppercase : QFont::SmallCaps);
    result.setProperty(CapsProperty, (format.smallCaps ? SmallCaps : 0) | (format.allCaps ? AllCaps : 0));
  }
  static constexpr QTextCharFormat::VerticalAlignment kScripts[] = {
      QTextCharFormat::AlignNormal, QTextCharFormat::AlignSubScript, QTextCharFormat::AlignSuperScript};
  result.setVerticalAlignment(kScripts[static_cast<size_t>(format.script)]);
  // Set even when there is none: only a property that is set can be merged over a colour.
  result.setForeground(brushOf(format.colour));
  result.setBackground(brushOf(format.background));
  return result;
}

CharFormat fromQt(const QTextCharFormat& format) {
  CharFormat result;
  result.fontName = format.fontFamilies().toStringList().value(0);
  result.halfPoints = qRound(format.fontPointSize() * 2);
  result.bold = format.hasProperty(QTextFormat::FontWeight) && format.fontWeight() >= kBoldFrom;
  result.italic = format.fontItalic();
  result.underline = format.fontUnderline();
  result.strikeOut = format.fontStrikeOut();
  result.smallCaps = (format.intProperty(CapsProperty) & SmallCaps) != 0;
  result.allCaps = (format.intProperty(CapsProperty) & AllCaps) != 0;
  if (format.verticalAlignment() == QTextCharFormat::AlignSubScript) {
    result.script = CharFormat::Script::Subscript;
  } else if (format.verticalAlignment() == QTextCharFormat::AlignSuperScript) {
    result.script = CharFormat::Script::Superscript;
  }
  result.colour = colourOf(format.foreground());
  result.background = colourOf(format.background());
  return result;
}

int bulletList(QTextCursor& cursor) {
  QTextListFormat bullets;
  bullets.setStyle(QTextListFormat::ListDisc);
  bullets.setIndent(0);
  return cursor.createList(bullets)->objectIndex();
}

QTextBlockFormat toQt(const ParagraphFormat& format, int list) {
  QTextBlockFormat block;
  block.setAlignment(alignmentOf(format.alignment));
  block.setLeftMargin(pixels(format.leftIndent));
  block.setRightMargin(pixels(format.rightIndent));
  block.setTextIndent(pixels(format.firstIndent));
  if (format.bullet) {
    // The control draws the bullet in front of the text, where the file has the first line hanging out.
    block.setObjectIndex(list);
    block.setLeftMargin(qMax(pixels(format.leftIndent), kRoomForBullet));
    block.setTextIndent(0);
  }
  block.setTopMargin(pixels(format.spaceBefore));
  block.setBottomMargin(pixels(format.spaceAfter));
  if (!format.tabStops.isEmpty()) {
    block.setTabPositions(tabsOf(format.tabStops));
  }
  setLineSpacing(block, format);
  block.setProperty(ParagraphProperty, QVariant::fromValue(format));
  return block;
}

ParagraphFormat fromQt(const QTextBlockFormat& format) {
  auto result = format.property(ParagraphProperty).value<ParagraphFormat>();
  result.bullet = format.objectIndex() >= 0;  // Backspace takes a paragraph out of its list
  return result;
}

void fill(QTextDocument& document, const RichText& text) {
  Filler(document, text).fill();
}

RichText read(const QTextDocument& document) {
  RichText::Builder builder(document.characterCount());
  KnownNumbers charNumbers;
  KnownNumbers paragraphNumbers;
  for (QTextBlock block = document.begin();;) {
    const int paragraph = paragraphNumbers(block.blockFormatIndex(),
                                           [&] { return builder.paragraphFormat(fromQt(block.blockFormat())); });
    for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
      const QTextFragment fragment = piece.fragment();
      const int format =
          charNumbers(fragment.charFormatIndex(), [&] { return builder.charFormat(fromQt(fragment.charFormat())); });
      builder.append(fragment.text(), format, paragraph);
    }
    const int end =
        charNumbers(block.charFormatIndex(), [&] { return builder.charFormat(fromQt(block.charFormat())); });
    block = block.next();
    if (!block.isValid()) {
      return builder.take(end, paragraph);
    }
    builder.endParagraph(end, paragraph);
  }
}

}  // namespace RichTextDocument
