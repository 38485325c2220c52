#include "gui/toolkit/RichTextDocument.h"

#include "gui/toolkit/Colours.h"
#include "gui/toolkit/KnownNumbers.h"

#include <QBrush>
#include <QHash>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextOption>

#include <utility>
#include <vector>

namespace {

constexpr double kTwipsPerPixel = 15;
constexpr double kFactorOfSingle = 240;
constexpr int kBoldFrom = QFont::DemiBold;
constexpr double kRoomForMark = 16;

/// What a control has no exact form for travels in the formats beside it. Its hash tells many formats apart without a
/// look into them; it is an int, the only whole number that goes into the hash that Qt makes.
enum Property { ParagraphProperty = QTextFormat::UserProperty + 1, CharProperty, HashProperty };
/// And in the document itself, in twips.
constexpr auto kDefaultTab = "defaultTab";

double pixels(int twips) {
  return twips / kTwipsPerPixel;
}

QBrush brushOf(const std::optional<quint32>& colour) {
  return colour ? QBrush(Colours::toQt(*colour)) : QBrush(Qt::NoBrush);
}

std::optional<quint32> colourOf(const QBrush& brush) {
  return brush.style() == Qt::NoBrush ? std::nullopt : std::optional(Colours::fromQt(brush.color()));
}

/// Absolute, but for the usual alignment of a paragraph that was given no direction: its letters have one.
Qt::Alignment alignmentOf(const ParagraphFormat& format) {
  static constexpr Qt::AlignmentFlag kAlignments[] = {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight,
                                                      Qt::AlignJustify};
  const Qt::Alignment alignment = kAlignments[static_cast<size_t>(format.alignment)];
  const bool isUsual = format.alignment == ParagraphFormat::Alignment::Left && !format.rightToLeft;
  return isUsual ? alignment : alignment | Qt::AlignAbsolute;
}

QTextCharFormat::UnderlineStyle shownAs(CharLook::Underline underline) {
  using Look = CharLook::Underline;
  using Style = QTextCharFormat::UnderlineStyle;
  switch (underline) {
    case Look::None:
      return Style::NoUnderline;
    case Look::Dotted:
    case Look::ThickDotted:
      return Style::DotLine;
    case Look::Wavy:
    case Look::HeavyWavy:
    case Look::DoubleWavy:
      return Style::WaveUnderline;
    case Look::Dashed:
    case Look::LongDashed:
    case Look::ThickDashed:
      return Style::DashUnderline;
    case Look::DashDotted:
      return Style::DashDotLine;
    case Look::DashDoubleDotted:
      return Style::DashDotDotLine;
    default:
      return Style::SingleUnderline;
  }
}

/// True when the control can hold no more of the format than what stands in its own properties.
bool isPlain(const CharFormat& format) {
  CharFormat held;
  held.halfPoints = format.halfPoints;
  held.bold = format.bold;
  held.italic = format.italic;
  held.strikeOut = format.strikeOut;
  held.underline = format.underline == CharLook::Underline::Single ? format.underline : held.underline;
  held.script = format.script;
  return static_cast<const CharLook&>(held) == static_cast<const CharLook&>(format) && format.field.isEmpty() &&
         format.associatedFont.isEmpty() && !format.object && !format.background;
}

bool isLink(const CharFormat& format) {
  return !format.field.isEmpty() && !linkAddress(format.field).isEmpty();
}

/// As faint as it may be to be read with ease.
QColor dimmed(const QPalette& palette) {
  const QColor text = palette.color(QPalette::Text);
  const QColor ground = palette.color(QPalette::Base);
  QColor faint = text;
  for (int share = 95;
       share >= 50 && Colours::contrast(Colours::mixed(text, ground, share), ground) >= Colours::kEnoughContrast;
       share -= 5) {
    faint = Colours::mixed(text, ground, share);
  }
  return faint;
}

/// The look of what its format leaves open, which must be readable on any palette.
void showOwnLook(QTextCharFormat& shown, const CharFormat& format, const QPalette& palette) {
  if (format.hidden) {
    shown.setForeground(dimmed(palette));
    shown.setUnderlineStyle(QTextCharFormat::DotLine);
  } else if (isLink(format)) {
    shown.setForeground(Colours::readable(Colours::fromQt(palette.color(QPalette::Link)), palette));
    shown.setUnderlineStyle(QTextCharFormat::SingleUnderline);
  } else if (format.background && !format.colour) {
    shown.setForeground(Colours::textOn(Colours::toQt(*format.background)));
  }
}

bool hasOwnColour(const CharFormat& format) {
  return format.hidden || isLink(format) || (format.background && !format.colour);
}

bool hasOwnUnderline(const CharFormat& format) {
  return format.hidden || isLink(format);
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

/// A text that leaves its lines' height open has lines that are easy on the eye, in hundredths.
constexpr double kUnstatedLine = 120;

void setLineSpacing(QTextBlockFormat& block, const ParagraphFormat& format) {
  if (format.lineSpacing == 0) {
    block.setLineHeight(kUnstatedLine, QTextBlockFormat::ProportionalHeight);
  } else if (format.lineSpacingIsFactor) {
    block.setLineHeight(qAbs(format.lineSpacing) / kFactorOfSingle * 100, QTextBlockFormat::ProportionalHeight);
  } else {
    block.setLineHeight(pixels(qAbs(format.lineSpacing)),
                        format.lineSpacing < 0 ? QTextBlockFormat::FixedHeight : QTextBlockFormat::MinimumHeight);
  }
}

/// Puts a text into a document piece by piece, at the cursor; the paragraph that the cursor is in stays as it is.
class Filler {
 public:
  Filler(QTextCursor& cursor, const RichText& text, const QPalette& palette)
      : cursor_(cursor), text_(text), palette_(palette) {}

  void fill() { text_.visit(*this); }

  void text(QStringView units, const CharFormat& format) { cursor_.insertText(units.toString(), charFormat(format)); }
  void object(const CharFormat& format) {
    cursor_.insertText(QString(QChar(QChar::ObjectReplacementCharacter)), charFormat(format));
  }
  void lineBreak(const CharFormat& format) {
    cursor_.insertText(QString(QChar(QChar::LineSeparator)), charFormat(format));
  }
  void paragraphEnd(const CharFormat&, const ParagraphFormat&) {
    if (++paragraph_ < text_.paragraphCount()) {
      const RichText::Paragraph next = text_.paragraph(paragraph_);
      cursor_.insertBlock(blockFormat(*next.format), charFormat(*next.endFormat));
    }
  }

  void formatParagraph(const RichText::Paragraph& like) {
    cursor_.setBlockFormat(blockFormat(*like.format));
    cursor_.setBlockCharFormat(charFormat(*like.endFormat));
  }

 private:
  const QTextCharFormat& charFormat(const CharFormat& format) {
    auto known = charFormats_.find(&format);
    if (known == charFormats_.end()) {
      known = charFormats_.insert(&format, RichTextDocument::toQt(format, palette_));
    }
    return *known;
  }
  const QTextBlockFormat& blockFormat(const ParagraphFormat& format) {
    auto known = blockFormats_.find(&format);
    if (known == blockFormats_.end()) {
      known = blockFormats_.insert(&format, RichTextDocument::toQt(format));
    }
    return *known;
  }

  QTextCursor& cursor_;
  const RichText& text_;
  const QPalette& palette_;
  qsizetype paragraph_ = 0;
  QHash<const CharFormat*, QTextCharFormat> charFormats_;
  QHash<const ParagraphFormat*, QTextBlockFormat> blockFormats_;
};

void setDefaultTab(QTextDocument& document, int twips) {
  if (twips == 0) {
    return;
  }
  document.setProperty(kDefaultTab, twips);
  QTextOption option = document.defaultTextOption();
  option.setTabStopDistance(pixels(twips));
  document.setDefaultTextOption(option);
}

}  // namespace

Q_DECLARE_METATYPE(ParagraphFormat)
Q_DECLARE_METATYPE(CharFormat)

namespace RichTextDocument {

QTextCharFormat toQt(const CharFormat& format, const QPalette& palette) {
  QTextCharFormat result;
  if (!format.fontName.isEmpty()) {
    result.setFontFamilies({format.fontName});
  }
  if (format.halfPoints > 0) {
    result.setFontPointSize(format.halfPoints / 2.0);
  }
  result.setFontWeight(format.bold ? QFont::Bold : QFont::Normal);
  result.setFontItalic(format.italic);
  result.setUnderlineStyle(shownAs(format.underline));
  result.setFontStrikeOut(format.strikeOut);
  if (format.smallCaps || format.allCaps) {
    result.setFontCapitalization(format.allCaps ? QFont::AllUppercase : QFont::SmallCaps);
  }
  if (format.letterSpacing != 0) {
    result.setFontLetterSpacingType(QFont::AbsoluteSpacing);
    result.setFontLetterSpacing(pixels(format.letterSpacing));
  }
  static constexpr QTextCharFormat::VerticalAlignment kScripts[] = {
      QTextCharFormat::AlignNormal, QTextCharFormat::AlignSubScript, QTextCharFormat::AlignSuperScript};
  result.setVerticalAlignment(kScripts[static_cast<size_t>(format.script)]);
  // Set even when there is none: only a property that is set can be merged over a colour.
  result.setForeground(brushOf(format.colour));
  result.setBackground(brushOf(format.background));
  if (isPlain(format)) {
    return result;
  }
  result.setProperty(CharProperty, QVariant::fromValue(format));
  result.setProperty(HashProperty, static_cast<int>(qHash(format)));
  showOwnLook(result, format, palette);
  if (format.object) {
    result.setObjectType(objectType);
  }
  return result;
}

CharFormat fromQt(const QTextCharFormat& format) {
  auto result = format.property(CharProperty).value<CharFormat>();
  const bool keepsUnderline = hasOwnUnderline(result) || (result.underline != CharLook::Underline::None &&
                                                          format.underlineStyle() == shownAs(result.underline));
  if (!keepsUnderline) {
    const bool isUnderlined = format.underlineStyle() != QTextCharFormat::NoUnderline;
    result.underline = isUnderlined ? CharLook::Underline::Single : CharLook::Underline::None;
  }
  if (!hasOwnColour(result)) {
    result.colour = colourOf(format.foreground());
  }
  result.fontName = format.fontFamilies().toStringList().value(0);
  result.halfPoints = qRound(format.fontPointSize() * 2);
  result.bold = format.hasProperty(QTextFormat::FontWeight) && format.fontWeight() >= kBoldFrom;
  result.italic = format.fontItalic();
  result.strikeOut = format.fontStrikeOut();
  result.script = CharFormat::Script::Normal;
  if (format.verticalAlignment() == QTextCharFormat::AlignSubScript) {
    result.script = CharFormat::Script::Subscript;
  } else if (format.verticalAlignment() == QTextCharFormat::AlignSuperScript) {
    result.script = CharFormat::Script::Superscript;
  }
  result.background = colourOf(format.background());
  return result;
}

QTextBlockFormat toQt(const ParagraphFormat& format) {
  QTextBlockFormat block;
  block.setAlignment(alignmentOf(format));
  block.setLeftMargin(pixels(format.leftIndent));
  block.setRightMargin(pixels(format.rightIndent));
  block.setTextIndent(pixels(format.firstIndent));
  if (format.rightToLeft) {
    block.setLayoutDirection(Qt::RightToLeft);
  }
  if (format.list.style != ListMark::Style::None) {
    // The mark is drawn in front of the text, where the file has the first line hanging out.
    block.setTextIndent(0);
    if (format.rightToLeft) {
      block.setRightMargin(qMax(pixels(format.rightIndent), kRoomForMark));
    } else {
      block.setLeftMargin(qMax(pixels(format.leftIndent), kRoomForMark));
    }
  }
  block.setTopMargin(pixels(format.spaceBefore));
  block.setBottomMargin(pixels(format.spaceAfter));
  if (!format.tabStops.isEmpty()) {
    block.setTabPositions(tabsOf(format.tabStops));
  }
  if (format.background) {
    block.setBackground(brushOf(format.background));
  }
  setLineSpacing(block, format);
  block.setProperty(ParagraphProperty, QVariant::fromValue(format));
  return block;
}

ParagraphFormat fromQt(const QTextBlockFormat& format) {
  return format.property(ParagraphProperty).value<ParagraphFormat>();
}

void fill(QTextDocument& document, const RichText& text, const QPalette& palette) {
  QTextCursor cursor(&document);
  cursor.beginEditBlock();
  Filler filler(cursor, text, palette);
  filler.formatParagraph(text.paragraph(0));
  filler.fill();
  cursor.endEditBlock();
  setDefaultTab(document, text.defaultTab());
}

bool isObject(const QTextCharFormat& format, QStringView text) {
  return format.objectType() == objectType && text.startsWith(QChar(QChar::ObjectReplacementCharacter));
}

RichText read(const QTextDocument& document) {
  RichText::Builder builder(document.characterCount());
  builder.setDefaultTab(document.property(kDefaultTab).toInt());
  KnownNumbers textNumbers;
  KnownNumbers objectNumbers;
  KnownNumbers paragraphNumbers;
  const auto textNumber = [&](int index, const QTextCharFormat& format) {
    return textNumbers(index, [&] {
      // Text typed behind an object inherits its format, but is none.
      CharFormat letters = fromQt(format);
      letters.object.reset();
      return builder.charFormat(letters);
    });
  };
  for (QTextBlock block = document.begin();;) {
    const int paragraph = paragraphNumbers(block.blockFormatIndex(),
                                           [&] { return builder.paragraphFormat(fromQt(block.blockFormat())); });
    for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
      const QTextFragment fragment = piece.fragment();
      const QString text = fragment.text();
      if (!isObject(fragment.charFormat(), text)) {
        builder.append(text, textNumber(fragment.charFormatIndex(), fragment.charFormat()), paragraph);
        continue;
      }
      const int number =
          objectNumbers(fragment.charFormatIndex(), [&] { return builder.charFormat(fromQt(fragment.charFormat())); });
      for (qsizetype i = 0; i < text.size(); ++i) {
        builder.appendObject(number);
      }
    }
    const int end = textNumber(block.charFormatIndex(), block.charFormat());
    block = block.next();
    if (!block.isValid()) {
      return builder.take(end, paragraph);
    }
    builder.endParagraph(end, paragraph);
  }
}

void insert(QTextCursor& cursor, const RichText& text, const QPalette& palette) {
  QTextDocument& document = *cursor.document();
  const QTextBlock first = document.findBlock(cursor.selectionStart());
  const QTextBlock last = document.findBlock(cursor.selectionEnd());
  const bool hasFront = cursor.selectionStart() > first.position();
  const bool hasTail = cursor.selectionEnd() < last.position() + last.length() - 1;
  const bool isSingle = text.paragraphCount() == 1;
  const bool takesEnd = !hasTail && !(isSingle && hasFront);
  const QTextBlockFormat front = first.blockFormat();
  const QTextBlockFormat tail = last.blockFormat();
  const QTextCharFormat tailEnd = last.charFormat();
  if (document.isEmpty()) {
    setDefaultTab(document, text.defaultTab());
  }

  cursor.beginEditBlock();
  cursor.removeSelectedText();
  const int start = cursor.position();
  Filler filler(cursor, text, palette);
  filler.fill();
  const int end = cursor.position();
  if (takesEnd) {
    filler.formatParagraph(text.paragraph(text.paragraphCount() - 1));
  } else {
    cursor.setBlockFormat(isSingle && hasFront ? front : tail);
    cursor.setBlockCharFormat(tailEnd);
  }
  if (!isSingle) {
    cursor.setPosition(start);
    const RichText::Paragraph opening = text.paragraph(0);
    filler.formatParagraph(opening);
    if (hasFront) {
      cursor.setBlockFormat(front);
    }
    cursor.setPosition(end);
  }
  cursor.endEditBlock();
}

void refreshLooks(QTextDocument& document, int from, int to, const QPalette& palette) {
  struct Stretch {
    int from;
    int to;
    QTextCharFormat look;
  };
  std::vector<Stretch> stretches;
  for (QTextBlock block = document.findBlock(from); block.isValid() && block.position() < to; block = block.next()) {
    for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
      const QTextFragment fragment = piece.fragment();
      const int start = qMax(from, fragment.position());
      const int end = qMin(to, fragment.position() + fragment.length());
      const CharFormat format = fromQt(fragment.charFormat());
      if (start < end && hasOwnColour(format)) {
        QTextCharFormat look;
        look.setForeground(brushOf(format.colour));
        look.setUnderlineStyle(shownAs(format.underline));
        showOwnLook(look, format, palette);
        stretches.push_back({start, end, look});
      }
    }
  }
  QTextCursor cursor(&document);
  cursor.beginEditBlock();
  for (const Stretch& stretch : stretches) {
    cursor.setPosition(stretch.from);
    cursor.setPosition(stretch.to, QTextCursor::KeepAnchor);
    cursor.mergeCharFormat(stretch.look);
  }
  cursor.endEditBlock();
}

bool hasOwnLooks(const RichText& text) {
  for (qsizetype i = 0; i < text.runCount(); ++i) {
    if (hasOwnColour(*text.run(i).format)) {
      return true;
    }
  }
  return false;
}

Overhang overhang(const RichText& text) {
  Overhang most;
  const ParagraphFormat* last = nullptr;
  for (qsizetype i = 0; i < text.paragraphCount(); ++i) {
    const ParagraphFormat* const format = text.paragraph(i).format;
    if (std::exchange(last, format) == format || format->list.style != ListMark::Style::None) {
      continue;
    }
    const double first = qMin(0, format->firstIndent);
    double& side = format->rightToLeft ? most.right : most.left;
    const int indent = format->rightToLeft ? format->rightIndent : format->leftIndent;
    side = qMax(side, -pixels(indent) - first / kTwipsPerPixel);
  }
  return most;
}

bool hasLists(const RichText& text) {
  for (qsizetype i = 0; i < text.paragraphCount(); ++i) {
    if (text.paragraph(i).format->list.style != ListMark::Style::None) {
      return true;
    }
  }
  return false;
}

}  // namespace RichTextDocument
