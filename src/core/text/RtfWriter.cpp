#include "core/text/RtfWriter.h"

#include "core/infra/CodePage.h"
#include "core/text/Rtf.h"
#include "core/text/RtfCodePages.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>

namespace {

constexpr qsizetype kLongestUnit = 12;  // \u-12345\'3f
constexpr qsizetype kChunk = 2048;
/// The words of kCharSwitches.
struct SwitchWords {
  const char* on;
  const char* off;
};
constexpr std::array<SwitchWords, kCharSwitches.size()> kSwitchWords = {{{"\\b", "\\b0"},
                                                                         {"\\i", "\\i0"},
                                                                         {"\\ul", "\\ulnone"},
                                                                         {"\\strike", "\\strike0"},
                                                                         {"\\scaps", "\\scaps0"},
                                                                         {"\\caps", "\\caps0"}}};
constexpr QStringView kBulletFont = u"Symbol";

/// True for ASCII that stands for itself in RTF.
constexpr std::array<bool, 128> kPlain = [] {
  std::array<bool, 128> plain{};
  for (size_t unit = 0x20; unit < 0x7F; ++unit) {
    plain[unit] = unit != '\\' && unit != '{' && unit != '}';
  }
  return plain;
}();

char* copy(char* out, const char* text) {
  return std::copy(text, text + std::strlen(text), out);
}

char* writeHex(char* out, int byte) {
  static constexpr char kDigits[] = "0123456789abcdef";
  *out++ = '\\';
  *out++ = '\'';
  *out++ = kDigits[byte >> 4];
  *out++ = kDigits[byte & 15];
  return out;
}

char* writeUnicode(char* out, char16_t unit) {
  out = copy(out, "\\u");
  out = std::to_chars(out, out + 6, static_cast<qint16>(unit)).ptr;
  return writeHex(out, '?');
}

/// Anything but plain ASCII and tabs; always begins with a backslash.
char* writeEscaped(char* out, char16_t unit) {
  if (unit == u'\\' || unit == u'{' || unit == u'}') {
    *out++ = '\\';
    *out++ = static_cast<char>(unit);
    return out;
  }
  const int byte = CodePage::toByte(unit);
  return byte >= 0 ? writeHex(out, byte) : writeUnicode(out, unit);
}

}  // namespace

void ByteWriter::put(QByteArrayView bytes) {
  char* out = room(bytes.size());
  std::copy(bytes.begin(), bytes.end(), out);
  size_ += bytes.size();
}

void ByteWriter::putNumber(int number) {
  wrote(std::to_chars(room(12), room(12) + 12, number).ptr);
}

QByteArray ByteWriter::take() {
  bytes_.truncate(size_);
  if (bytes_.capacity() > size_ + size_ / 4) {
    bytes_.squeeze();
  }
  return std::move(bytes_);
}

RtfWriter::RtfWriter(const RichText& text) : text_(text), out_(text.size() + text.size() / 8 + 512) {}

QByteArray RtfWriter::write() {
  collectStyles();
  collectBullets();
  writeHead();
  startParagraph();
  text_.visit(*this);
  out_.put("}\r\n");
  return out_.take();
}

void RtfWriter::collectStyles() {
  for (qsizetype i = 0; i < text_.runCount(); ++i) {
    const CharFormat* const format = text_.run(i).format;
    if (!styles_.contains(format)) {
      styles_.insert(format, styleOf(*format));
    }
  }
  defaultFont_ = fontNumbers_.value(QString(), 0);
  style_.font = fonts_[defaultFont_].isEmpty() ? defaultFont_ : -1;  // a font with a name is always stated
}

void RtfWriter::collectBullets() {
  for (qsizetype i = 0; i < text_.paragraphCount() && bulletFont_ < 0; ++i) {
    bulletFont_ = text_.paragraph(i).format->bullet ? fontNumber(kBulletFont.toString()) : -1;
  }
}

RtfWriter::Style RtfWriter::styleOf(const CharFormat& format) {
  return {{format, fontNumber(format.fontName), colourNumber(format.colour), colourNumber(format.background)},
          isSymbolFont(format.fontName)};
}

int RtfWriter::fontNumber(const QString& name) {
  const auto known = fontNumbers_.constFind(name);
  if (known != fontNumbers_.constEnd()) {
    return *known;
  }
  const int number = static_cast<int>(fonts_.size());
  fonts_.append(name);
  fontNumbers_.insert(name, number);
  return number;
}

int RtfWriter::colourNumber(const std::optional<quint32>& colour) {
  if (!colour) {
    return 0;
  }
  const auto known = colourNumbers_.constFind(*colour);
  if (known != colourNumbers_.constEnd()) {
    return *known;
  }
  colours_.append(*colour);
  const int number = static_cast<int>(colours_.size());
  colourNumbers_.insert(*colour, number);
  return number;
}

void RtfWriter::writeHead() {
  out_.put("{\\rtf1\\ansi\\ansicpg1252\\deff");
  out_.putNumber(defaultFont_);
  out_.put("{\\fonttbl");
  for (qsizetype i = 0; i < fonts_.size(); ++i) {
    out_.put("{\\f");
    out_.putNumber(static_cast<int>(i));
    out_.put(isSymbolFont(fonts_[i]) ? "\\fnil\\fcharset2 " : "\\fnil\\fcharset0 ");
    writeFontName(fonts_[i]);
    out_.put(";}");
  }
  out_.put("}\r\n{\\colortbl ;");
  for (const quint32 colour : colours_) {
    word("\\red", static_cast<int>(colour & 0xFFU));
    word("\\green", static_cast<int>(colour >> 8 & 0xFFU));
    word("\\blue", static_cast<int>(colour >> 16));
    out_.put(";");
  }
  out_.put("}\r\n\\viewkind4\\uc1");
}

void RtfWriter::writeFontName(const QString& name) {
  for (const QChar character : name) {
    char* out = out_.room(kLongestUnit);
    const char16_t unit = character.unicode();
    if (unit == u';') {
      out = writeHex(out, ';');
    } else if (unit < kPlain.size() && kPlain[unit]) {
      *out++ = static_cast<char>(unit);
    } else {
      out = writeEscaped(out, unit);
    }
    out_.wrote(out);
  }
}

void RtfWriter::word(const char* name) {
  out_.put(name);
  needsBlank_ = true;
}

void RtfWriter::word(const char* name, int number) {
  out_.put(name);
  out_.putNumber(number);
  needsBlank_ = true;
}

/// In front of every paragraph of the list, for those who know no \pn.
void RtfWriter::putLabel() {
  out_.put("{\\pntext\\f");
  out_.putNumber(bulletFont_);
  out_.put("\\'B7\\tab}");
  needsBlank_ = false;
}

void RtfWriter::startParagraph() {
  const ParagraphFormat& format = *text_.paragraph(paragraph_).format;
  const bool isNew = &format != paragraphFormat_;
  if (isNew) {
    word("\\pard");
  }
  if (format.bullet) {
    putLabel();
  }
  if (isNew) {
    paragraphFormat_ = &format;
    putFormat(format);
  }
}

void RtfWriter::putFormat(const ParagraphFormat& format) {
  static constexpr const char* kAlignments[] = {nullptr, "\\qc", "\\qr", "\\qj"};
  static constexpr const char* kTabKinds[] = {nullptr, "\\tqc", "\\tqr", "\\tqdec"};
  const auto length = [this](const char* name, int twips) {
    if (twips != 0) {
      word(name, twips);
    }
  };
  if (format.bullet) {
    out_.put("{\\*\\pn\\pnlvlblt\\pnf");
    out_.putNumber(bulletFont_);
    out_.put("\\pnindent0{\\pntxtb\\'B7}}");
  }
  length("\\fi", format.firstIndent);
  length("\\li", format.leftIndent);
  length("\\ri", format.rightIndent);
  length("\\sb", format.spaceBefore);
  length("\\sa", format.spaceAfter);
  if (format.lineSpacing != 0) {
    word("\\sl", format.lineSpacing);
    word("\\slmult", format.lineSpacingIsFactor ? 1 : 0);
  }
  if (const char* name = kAlignments[static_cast<size_t>(format.alignment)]) {
    word(name);
  }
  for (const TabStop& stop : format.tabStops) {
    if (const char* name = kTabKinds[static_cast<size_t>(stop.kind)]) {
      word(name);
    }
    word("\\tx", stop.position);
  }
}

void RtfWriter::setFormat(const CharFormat& format) {
  if (&format == charFormat_) {
    return;
  }
  charFormat_ = &format;
  const Style style = *styles_.constFind(&format);
  change(style_, style);
  style_ = style;
}

void RtfWriter::change(const Style& from, const Style& to) {
  if (to.halfPoints == 0 && from.halfPoints != 0) {  // no word takes a size back but this
    word("\\plain");
    change(plainStyle(defaultFont_), to);
    return;
  }
  const auto number = [this](const char* name, int old, int now) {
    if (old != now) {
      word(name, now);
    }
  };
  number("\\cf", from.colour, to.colour);
  number("\\highlight", from.background, to.background);
  for (size_t i = 0; i < kCharSwitches.size(); ++i) {
    const bool isOn = to.*kCharSwitches[i];
    if (isOn != from.*kCharSwitches[i]) {
      word(isOn ? kSwitchWords[i].on : kSwitchWords[i].off);
    }
  }
  if (from.script != to.script) {
    static constexpr const char* kScripts[] = {"\\nosupersub", "\\sub", "\\super"};
    word(kScripts[static_cast<size_t>(to.script)]);
  }
  number("\\f", from.font, to.font);
  number("\\fs", from.halfPoints, to.halfPoints);
}

void RtfWriter::text(QStringView units, const CharFormat& format) {
  setFormat(format);
  while (!units.isEmpty()) {
    const QStringView chunk = units.first(std::min(kChunk, units.size()));
    style_.isSymbol ? symbols(chunk) : this->units(chunk);
    units = units.sliced(chunk.size());
  }
}

void RtfWriter::units(QStringView units) {
  char* out = out_.room(units.size() * kLongestUnit + 1);
  const char16_t* at = units.utf16();
  const char16_t* const end = at + units.size();
  bool needsBlank = needsBlank_;
  while (at != end) {
    if (*at < kPlain.size() && kPlain[*at]) {
      if (needsBlank) {
        *out++ = ' ';
      }
      do {
        *out++ = static_cast<char>(*at++);
      } while (at != end && *at < kPlain.size() && kPlain[*at]);
      needsBlank = false;
      continue;
    }
    needsBlank = *at == u'\t';
    out = needsBlank ? copy(out, "\\tab") : writeEscaped(out, *at);
    ++at;
  }
  needsBlank_ = needsBlank;
  out_.wrote(out);
}

/// The bytes of a symbol font stand for U+F021 to U+F0FF, and so nothing else may be written as a byte.
void RtfWriter::symbols(QStringView units) {
  for (const QChar character : units) {
    const char16_t unit = character.unicode();
    char* out = out_.room(kLongestUnit + 1);
    if (unit == u' ') {
      out = copy(out, needsBlank_ ? "  " : " ");
    } else if (unit == u'\t') {
      out = copy(out, "\\tab");
    } else {
      out = unit > 0xF020 && unit <= 0xF0FF ? writeHex(out, unit & 0xFF) : writeUnicode(out, unit);
    }
    needsBlank_ = unit == u'\t';
    out_.wrote(out);
  }
}

void RtfWriter::lineBreak(const CharFormat& format) {
  setFormat(format);
  word("\\line");
}

void RtfWriter::paragraphEnd(const CharFormat& format, const ParagraphFormat&) {
  setFormat(format);
  out_.put("\\par \r\n");
  needsBlank_ = false;
  if (++paragraph_ < text_.paragraphCount()) {
    startParagraph();
  }
}

QByteArray writeRtf(const RichText& text) {
  return RtfWriter(text).write();
}
