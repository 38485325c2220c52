#include "core/text/RtfWriter.h"

#include "core/infra/CodePage.h"
#include "core/text/Rtf.h"
#include "core/text/RtfCodePages.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>
#include <utility>

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
                                                                         {"\\strike", "\\strike0"},
                                                                         {"\\scaps", "\\scaps0"},
                                                                         {"\\caps", "\\caps0"},
                                                                         {"\\v", "\\v0"},
                                                                         {"\\outl", "\\outl0"},
                                                                         {"\\shad", "\\shad0"},
                                                                         {"\\embo", "\\embo0"},
                                                                         {"\\impr", "\\impr0"}}};
constexpr const char* kUnderlineWords[] = {"\\ulnone", "\\ul",     "\\uldb",     "\\uld",     "\\ulwave",
                                           "\\ulw",    "\\uldash", "\\ulldash",  "\\uldashd", "\\uldashdd",
                                           "\\ulth",   "\\ulthd",  "\\ulthdash", "\\ulhwave", "\\ululdbwave"};
constexpr const char* kParagraphWords[kParagraphSwitches.size()] = {"\\pagebb", "\\keepn", "\\keep"};
constexpr const char* kLeaderWords[] = {nullptr, "\\tldot", "\\tlmdot", "\\tlhyph", "\\tlul", "\\tlth", "\\tleq"};

/// True for ASCII that stands for itself in RTF.
constexpr std::array<bool, 128> kPlain = [] {
  std::array<bool, 128> plain{};
  for (size_t unit = 0x20; unit < 0x7F; ++unit) {
    plain[unit] = unit != '\\' && unit != '{' && unit != '}';
  }
  return plain;
}();

bool isRightToLeft(const CharLook& look) {
  return look.direction == CharLook::Direction::RightToLeft;
}

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
  collect(text_);
  writeHead();
  writePart(text_, PartKind::Whole);
  out_.put("}\r\n");
  return out_.take();
}

void RtfWriter::collect(const RichText& text) {
  for (qsizetype i = 0; i < text.runCount(); ++i) {
    const CharFormat* const format = text.run(i).format;
    if (!styles_.contains(format)) {
      styles_.insert(format, styleOf(*format));
      if (format->object && format->object->content) {
        collect(*format->object->content);
      }
    }
  }
  const ParagraphFormat* last = nullptr;
  bool hasLists = false;
  for (qsizetype i = 0; i < text.paragraphCount(); ++i) {
    const ParagraphFormat* const format = text.paragraph(i).format;
    if (format != last) {
      hasLists = hasLists || format->list.style != ListMark::Style::None;
      collect(*format);
    }
    last = format;
  }
  if (hasLists) {
    lists_.add(text);
  }
}

void RtfWriter::collect(const ParagraphFormat& format) {
  if (format.list.style == ListMark::Style::Bullet && !bulletFont(format.list).isEmpty()) {
    fontNumber(bulletFont(format.list));
  }
  colourNumber(format.background);
}

void RtfWriter::writePart(const RichText& text, PartKind kind) {
  Part outer = std::exchange(part_, {});
  part_.text = &text;
  part_.kind = kind;
  part_.style = plainStyle();
  if (kind != PartKind::Whole) {
    word("\\plain");
  }
  startParagraph();
  if (kind == PartKind::NumberedNote) {
    out_.put("{\\super\\chftn}");
    needsBlank_ = false;
  }
  text.visit(*this);
  closeField();
  part_ = std::move(outer);
}

RtfWriter::Style RtfWriter::plainStyle() const {
  Style style;
  style.colour = style.background = 0;
  return style;
}

RtfWriter::Style RtfWriter::styleOf(const CharFormat& format) {
  Style style;
  static_cast<CharLook&>(style) = format;
  style.font = fontNumber(format.fontName);
  style.associatedFont = format.associatedFont.isEmpty() ? -1 : fontNumber(format.associatedFont);
  style.colour = colourNumber(format.colour);
  style.background = colourNumber(format.background);
  style.isSymbol = isSymbolFont(format.fontName);
  return style;
}

/// -1 for no name. The numbers begin with 1 so that font 0, the default one, stays without a name where it is needed.
int RtfWriter::fontNumber(const QString& name) {
  if (name.isEmpty()) {
    hasUnnamed_ = true;
    return -1;
  }
  const auto known = fontNumbers_.constFind(name);
  if (known != fontNumbers_.constEnd()) {
    return *known;
  }
  fonts_.append(name);
  const int number = static_cast<int>(fonts_.size());
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
  out_.put("{\\rtf1\\ansi\\ansicpg1252");
  if (!hasUnnamed_ && !fonts_.isEmpty()) {
    out_.put("\\deff1");
  }
  if (!fonts_.isEmpty()) {
    out_.put("{\\fonttbl");
  }
  for (qsizetype i = 0; i < fonts_.size(); ++i) {
    out_.put("{\\f");
    out_.putNumber(static_cast<int>(i) + 1);
    out_.put(isSymbolFont(fonts_[i]) ? "\\fnil\\fcharset2 " : "\\fnil\\fcharset0 ");
    writeFontName(fonts_[i]);
    out_.put(";}");
  }
  out_.put(fonts_.isEmpty() ? "{\\colortbl ;" : "}\r\n{\\colortbl ;");
  for (const quint32 colour : colours_) {
    word("\\red", static_cast<int>(colour & 0xFFU));
    word("\\green", static_cast<int>(colour >> 8 & 0xFFU));
    word("\\blue", static_cast<int>(colour >> 16));
    out_.put(";");
  }
  out_.put("}\r\n");
  if (!lists_.lists().isEmpty()) {
    writeLists();
  }
  // Without a name some programs take blanks that stand side by side for fixed ones.
  out_.put("{\\*\\generator Quillane 4;}\\viewkind4\\uc1");
  needsBlank_ = true;
  if (text_.defaultTab() > 0) {
    word("\\deftab", text_.defaultTab());
  }
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

void RtfWriter::startParagraph() {
  const ParagraphFormat& format = *part_.text->paragraph(part_.paragraph).format;
  const bool isNew = &format != part_.paragraphFormat;
  if (isNew) {
    word("\\pard");
  }
  if (format.list.style != ListMark::Style::None) {
    putLabel(format.list);
  } else {
    part_.numbering.endLists();
  }
  const int list = lists_.numberOf(*part_.text, part_.paragraph);
  const bool isOther = list != std::exchange(part_.list, list);
  if (isNew) {
    part_.paragraphFormat = &format;
    putFormat(format);
  } else if (isOther) {
    word("\\ls", list);
  }
}

void RtfWriter::putFormat(const ParagraphFormat& format) {
  static constexpr const char* kAlignments[] = {nullptr, "\\qc", "\\qr", "\\qj"};
  const auto length = [this](const char* name, int twips) {
    if (twips != 0) {
      word(name, twips);
    }
  };
  if (format.list.style != ListMark::Style::None) {
    putList(format.list);
  }
  if (format.rightToLeft) {
    word("\\rtlpar");
  }
  for (size_t i = 0; i < kParagraphSwitches.size(); ++i) {
    if (format.*kParagraphSwitches[i]) {
      word(kParagraphWords[i]);
    }
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
  if (format.background) {
    word("\\cbpat", colourNumber(format.background));
  }
  putTabs(format.tabStops);
  putDirection(part_.style.direction);  // for some programs a paragraph's defaults end it
}

void RtfWriter::putTabs(const QList<TabStop>& stops) {
  static constexpr const char* kTabKinds[] = {nullptr, "\\tqc", "\\tqr", "\\tqdec"};
  for (const TabStop& stop : stops) {
    if (const char* name = kTabKinds[static_cast<size_t>(stop.kind)]) {
      word(name);
    }
    if (const char* name = kLeaderWords[static_cast<size_t>(stop.leader)]) {
      word(name);
    }
    word("\\tx", stop.position);
  }
}

void RtfWriter::setFormat(const CharFormat& format) {
  if (&format == part_.charFormat) {
    return;
  }
  if (format.field != part_.field) {
    closeField();
    openField(format.field);
  }
  part_.charFormat = &format;
  const Style style = *styles_.constFind(&format);
  change(part_.style, style);
  part_.style = style;
}

void RtfWriter::change(const Style& from, const Style& to) {
  // No word takes these back but the one that takes back all. And the words mean the letters of one direction: behind a
  // turn none of them holds.
  const bool goesBack = (to.halfPoints == 0 && from.halfPoints != 0) || (to.language == 0 && from.language != 0) ||
                        (to.font < 0 && from.font >= 0) || (to.associatedFont < 0 && from.associatedFont >= 0) ||
                        (to.associated.halfPoints == 0 && from.associated.halfPoints != 0) ||
                        (to.associated.language == 0 && from.associated.language != 0) ||
                        (to.direction == CharLook::Direction::None && from.direction != to.direction) ||
                        isRightToLeft(from) != isRightToLeft(to);
  if (!goesBack) {
    changeLook(from, to);
    return;
  }
  if (from.script != CharFormat::Script::Normal) {
    word("\\nosupersub");  // \plain alone is not enough for every program
  }
  word("\\plain");
  changeLook(plainStyle(), to);
}

void RtfWriter::putDirection(CharLook::Direction direction) {
  if (direction != CharLook::Direction::None) {
    word(direction == CharLook::Direction::RightToLeft ? "\\rtlch" : "\\ltrch");
  }
}

void RtfWriter::changeLook(const Style& from, const Style& to) {
  const auto number = [this](const char* name, int old, int now) {
    if (old != now) {
      word(name, now);
    }
  };
  // The letters of the other kind are told of first, behind the word of their own direction.
  const bool isOther = from.associated != to.associated || from.associatedFont != to.associatedFont;
  if (isOther) {
    putDirection(isRightToLeft(to) ? CharLook::Direction::LeftToRight : CharLook::Direction::RightToLeft);
    number("\\ab", from.associated.bold, to.associated.bold);
    number("\\ai", from.associated.italic, to.associated.italic);
    number("\\alang", from.associated.language, to.associated.language);
    number("\\af", from.associatedFont, to.associatedFont);
    number("\\afs", from.associated.halfPoints, to.associated.halfPoints);
  }
  if (isOther || from.direction != to.direction) {
    putDirection(to.direction);
  }
  number("\\cf", from.colour, to.colour);
  number("\\highlight", from.background, to.background);
  number("\\chcbpat", from.background, to.background);  // some programs know a few colours of the other alone
  for (size_t i = 0; i < kCharSwitches.size(); ++i) {
    const bool isOn = to.*kCharSwitches[i];
    if (isOn != from.*kCharSwitches[i]) {
      word(isOn ? kSwitchWords[i].on : kSwitchWords[i].off);
    }
  }
  if (from.underline != to.underline) {
    word(kUnderlineWords[static_cast<size_t>(to.underline)]);
  }
  if (from.script != to.script) {
    static constexpr const char* kScripts[] = {"\\nosupersub", "\\sub", "\\super"};
    word(kScripts[static_cast<size_t>(to.script)]);
  }
  number("\\expndtw", from.letterSpacing, to.letterSpacing);
  number("\\lang", from.language, to.language);
  number("\\f", from.font, to.font);
  number("\\fs", from.halfPoints, to.halfPoints);
}

void RtfWriter::text(QStringView units, const CharFormat& format) {
  setFormat(format);
  while (!units.isEmpty()) {
    const QStringView chunk = units.first(std::min(kChunk, units.size()));
    part_.style.isSymbol ? symbols(chunk) : this->units(chunk);
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

/// A note's group ends its last paragraph.
void RtfWriter::paragraphEnd(const CharFormat& format, const ParagraphFormat&) {
  const bool isLast = ++part_.paragraph == part_.text->paragraphCount();
  if (isLast && part_.kind != PartKind::Whole) {
    closeField();
    change(part_.style, *styles_.constFind(&format));
    return;
  }
  setFormat(format);
  out_.put("\\par \r\n");
  needsBlank_ = false;
  if (!isLast) {
    startParagraph();
  }
}

QByteArray writeRtf(const RichText& text) {
  return RtfWriter(text).write();
}
