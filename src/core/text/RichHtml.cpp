#include "core/text/RichHtml.h"

#include "core/text/HtmlText.h"

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array kSwitches{HtmlCode::Bold,      HtmlCode::Italic,    HtmlCode::Underline,
                               HtmlCode::StrikeOut, HtmlCode::Subscript, HtmlCode::Superscript};

constexpr quint32 bitOf(HtmlCode code) {
  return 1U << static_cast<unsigned>(code);
}

quint32 codesOf(const CharFormat& format) {
  const auto bit = [](bool isOn, HtmlCode code) { return isOn ? bitOf(code) : 0U; };
  return bit(format.bold, HtmlCode::Bold) | bit(format.italic, HtmlCode::Italic) |
         bit(format.underline != CharLook::Underline::None, HtmlCode::Underline) |
         bit(format.strikeOut, HtmlCode::StrikeOut) |
         bit(format.script == CharLook::Script::Subscript, HtmlCode::Subscript) |
         bit(format.script == CharLook::Script::Superscript, HtmlCode::Superscript);
}

QString colourName(quint32 blueGreenRed) {
  const quint32 redGreenBlue = (blueGreenRed & 0xFFU) << 16 | (blueGreenRed & 0xFF00U) | blueGreenRed >> 16;
  return u'#' + QString::number(redGreenBlue, 16).rightJustified(6, u'0');
}

/// Where a paragraph stands when it isn't at the left; empty for one that is.
QLatin1StringView placeOf(const ParagraphFormat& paragraph) {
  using Alignment = ParagraphFormat::Alignment;
  return paragraph.alignment == Alignment::Centre  ? "center"_L1
         : paragraph.alignment == Alignment::Right ? "right"_L1
                                                   : QLatin1StringView();
}

/// A number is told to the reader's program, which counts and shows it: it is no text.
QString itemTag(const ParagraphFormat& paragraph, int number) {
  static constexpr std::array kStyles{"decimal"_L1, "upper-alpha"_L1, "lower-alpha"_L1, "upper-roman"_L1,
                                      "lower-roman"_L1};
  const ListMark& mark = paragraph.list;
  const QLatin1StringView place = placeOf(paragraph);
  QStringList looks;
  QString value;
  if (mark.isNumbered()) {
    const auto style = static_cast<size_t>(mark.style) - static_cast<size_t>(ListMark::Style::Decimal);
    looks.append("list-style-type:"_L1 + kStyles[style]);
    value = " value=\""_L1 + QString::number(number) + u'"';
  }
  if (!place.isEmpty()) {
    looks.append("text-align:"_L1 + place);
  }
  return looks.isEmpty() ? u"<li>"_s : "<li style=\""_L1 + looks.join(u';') + u'"' + value + u'>';
}

}  // namespace

RichHtml::RichHtml(const RichText& text, const Rtf2HtmlOptions& options)
    : text_(text), options_(options), tags_(options.LineEnd, text.size() + text.size() / 4) {}

QString RichHtml::write() {
  next_ = blockOf(*text_.paragraph(0).format);
  text_.visit(*this);
  return tags_.finish() + notes();
}

// Each item of a list has a block of its own. A block begins and ends a line by itself. It stands outside of all
// formats, so that a format that changes inside doesn't part it.
void RichHtml::beginParagraph() {
  const bool hasLineInFront = std::exchange(hasText_, true);
  isBegun_ = true;
  if (next_.code == HtmlCode::Alignment && next_.code == block_.code && next_.tag == block_.tag) {
    return;
  }
  if (hasLineInFront) {
    tags_.dropBreak();
  }
  tags_.closeAll();
  tags_.writeClosed();
  // A break directly in front of a block ends a line that is there and makes none.
  if (hasLineInFront && tags_.hasBreak() && block_.tag.isEmpty()) {
    tags_.text(u" ");
  }
  format_ = nullptr;
  codes_ = 0;
  if (!next_.tag.isEmpty()) {
    tags_.open(next_.code, next_.tag);
  }
  block_ = next_;
}

RichHtml::Block RichHtml::blockOf(const ParagraphFormat& paragraph) {
  const int number = numbering_.next(paragraph.list);
  if (paragraph.list.style != ListMark::Style::None) {
    return {HtmlCode::ListItem, itemTag(paragraph, number)};
  }
  const QLatin1StringView place = placeOf(paragraph);
  return place.isEmpty() ? Block() : Block{HtmlCode::Alignment, alignmentTag(place)};
}

RichHtml::Look RichHtml::madeLook(const CharFormat& format) const {
  HtmlFont font;
  if (options_.UseFontFaces) {
    font.CurrentFace = HtmlText::attribute(format.fontName);
  }
  if (format.colour) {
    font.CurrentColor = colourName(*format.colour);
  }
  const int size = format.halfPoints > 0 ? HtmlFont::sizeOf(format.halfPoints) : 0;
  if (size > 0 && size != options_.BaseSize) {
    font.CurrentSize = QString::number(size);
  }
  return {codesOf(format), font.tag()};
}

const RichHtml::Look& RichHtml::lookOf(const CharFormat& format) {
  const auto known = looks_.constFind(&format);
  return known != looks_.cend() ? *known : *looks_.insert(&format, madeLook(format));
}

void RichHtml::setFormat(const CharFormat& format) {
  if (&format == format_) {
    return;
  }
  format_ = &format;
  const Look& look = lookOf(format);
  for (const HtmlCode code : kSwitches) {
    if ((codes_ & ~look.codes & bitOf(code)) != 0) {
      tags_.close(code);
    }
  }
  tags_.setFont(look.font);
  for (const HtmlCode code : kSwitches) {
    if ((look.codes & ~codes_ & bitOf(code)) != 0) {
      tags_.open(code);
    }
  }
  codes_ = look.codes;
}

void RichHtml::text(QStringView units, const CharFormat& format) {
  if (format.hidden) {
    return;
  }
  words_.resize(0);
  HtmlText::append(words_, wholePairs(units));
  if (words_.isEmpty()) {
    return;
  }
  if (!isBegun_) {
    beginParagraph();
  }
  setFormat(format);
  // The block makes the line, also one of blanks.
  if (tags_.isAsked(block_.code)) {
    tags_.writeTags();
  }
  tags_.writeClosed();
  tags_.text(words_);
}

void RichHtml::object(const CharFormat& format) {
  const InlineObject& object = *format.object;
  const bool isBehindTheText =
      object.kind == InlineObject::Kind::Footnote || object.kind == InlineObject::Kind::Endnote;
  const QString words =
      isBehindTheText && object.content && !format.hidden ? object.content->plainText().trimmed() : QString();
  if (words.isEmpty()) {
    return;
  }
  half_.clear();
  notes_.append(words);
  noteNumber(format);
}

void RichHtml::noteNumber(const CharFormat& format) {
  if (!isBegun_) {
    beginParagraph();
  }
  setFormat(format);
  const bool isLow = (codes_ & bitOf(HtmlCode::Subscript)) != 0;
  const bool isHigh = (codes_ & bitOf(HtmlCode::Superscript)) != 0;
  if (isLow) {
    tags_.close(HtmlCode::Subscript);
  }
  tags_.open(HtmlCode::Superscript);
  tags_.text(QString::number(notes_.size()));
  if (!isHigh) {
    tags_.close(HtmlCode::Superscript);
  }
  if (isLow) {
    tags_.open(HtmlCode::Subscript);
  }
}

/// An empty line parts them from the text, whose last block may have ended its line.
QString RichHtml::notes() const {
  const QString lineEnd = "<br>"_L1 + options_.LineEnd;
  QString html;
  for (qsizetype i = 0; i < notes_.size(); ++i) {
    html += (i == 0 && block_.tag.isEmpty() ? lineEnd : QString()) + lineEnd + "<sup>"_L1 + QString::number(i + 1) +
            "</sup>"_L1;
    QStringList lines = notes_[i].split(u"\r\n"_s);
    std::transform(lines.begin(), lines.end(), lines.begin(),
                   [](const QString& line) { return HtmlText::escaped(line); });
    html += u' ' + lines.join(lineEnd);
  }
  return html;
}

// A format can change inside a pair.
QStringView RichHtml::wholePairs(QStringView units) {
  if (!half_.isEmpty()) {
    joined_ = std::exchange(half_, QString()).append(units);
    units = joined_;
  }
  if (units.back().isHighSurrogate()) {
    half_ = units.back();
    units.chop(1);
  }
  return units;
}

void RichHtml::lineBreak(const CharFormat& format) {
  if (!format.hidden) {
    tags_.breakLine();
    half_.clear();
  }
}

// What a reader can't see parts no words: the next paragraph goes on in the same line.
void RichHtml::paragraphEnd(const CharFormat& format, const ParagraphFormat& /*paragraph*/) {
  lineBreak(format);
  isBegun_ = isBegun_ && format.hidden;
  if (++paragraph_ < text_.paragraphCount()) {
    next_ = blockOf(*text_.paragraph(paragraph_).format);
  }
}
