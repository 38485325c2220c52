#include "text/Tags.h"

#include "infra/CodePage.h"

#include <QString>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace {

const char* findByte(const char* from, const char* end, char byte) {
  const void* found = std::memchr(from, byte, static_cast<size_t>(end - from));
  return found == nullptr ? end : static_cast<const char*>(found);
}

/// The next place where the first character of what is sought stands, in either case.
const char* findAnchor(const char* from, const char* end, char first) {
  const char small = Tags::lowerCase(first);
  if (small < 'a' || small > 'z') {
    return findByte(from, end, first);
  }
  while (from < end && Tags::lowerCase(*from) != small) {
    ++from;
  }
  return from;
}

QByteArray removeAll(const QByteArray& text, QByteArrayView what) {
  qsizetype at = Tags::find(text, what);
  if (at < 0 || what.isEmpty()) {
    return text;
  }
  QByteArray kept;
  kept.reserve(text.size());
  qsizetype from = 0;
  for (; at >= 0; at = Tags::find(text, what, from)) {
    kept.append(text.constData() + from, at - from);
    from = at + what.size();
  }
  kept.append(text.constData() + from, text.size() - from);
  return kept;
}

constexpr char kHex[] = "0123456789ABCDEF";

/// How a character of Latin-1 is written: up to four bytes, of which `length` count; 0 leaves it to escape().
struct Escaped {
  std::array<char, 4> bytes{};
  std::uint32_t length = 0;
};

constexpr std::array<Escaped, 256> escapes() {
  std::array<Escaped, 256> table{};
  for (unsigned c = 0; c < table.size(); ++c) {
    const bool plain = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == ':' ||
                       c == '.' || c == ',' || c == '?';
    if (plain) {
      table[c] = {{static_cast<char>(c)}, 1};
    } else if (c < 0x80 || c >= 0xA0) {
      table[c] = {{'%', kHex[c >> 4], kHex[c & 0xF]}, 3};
    }
  }
  return table;
}

constexpr std::array<Escaped, 256> kEscapes = escapes();

/// Writes one escaped character; six bytes at the most.
char* escape(char* out, char16_t unit) {
  const int byte = CodePage::toByte(unit);
  *out++ = '%';
  if (byte < 0) {
    *out++ = 'u';
    *out++ = kHex[unit >> 12];
    *out++ = kHex[(unit >> 8) & 0xF];
    unit &= 0xFF;
  }
  const int low = byte < 0 ? unit : byte;
  *out++ = kHex[low >> 4];
  *out++ = kHex[low & 0xF];
  return out;
}

int hexDigit(char c) {
  if (c >= '0' && c <= '9') {
    return c - '0';
  }
  const char small = Tags::lowerCase(c);
  return small >= 'a' && small <= 'f' ? small - 'a' + 10 : -1;
}

/// The UTF-16 unit of a "%uXXXX" mark at the front, or -1.
int markedUnit(const char* at, const char* end) {
  if (end - at < 6 || at[1] != 'u') {
    return -1;
  }
  int unit = 0;
  for (int i = 2; i < 6; ++i) {
    const int digit = hexDigit(at[i]);
    if (digit < 0) {
      return -1;
    }
    unit = unit * 16 + digit;
  }
  return unit;
}

/// Two digits as a hexadecimal number is read from text: the first bad digit ends it.
int escapedByte(const char* digits) {
  const int high = hexDigit(digits[0]);
  if (high < 0) {
    return 0;
  }
  const int low = hexDigit(digits[1]);
  return low < 0 ? high : high * 16 + low;
}

}  // namespace

namespace Tags {

qsizetype find(QByteArrayView text, QByteArrayView what, qsizetype from) {
  if (what.isEmpty()) {
    return from;
  }
  if (text.size() - from < what.size()) {
    return -1;
  }
  const char* const last = text.data() + text.size() - what.size() + 1;
  const char* at = text.data() + from;
  while (at < last) {
    at = findAnchor(at, last, what[0]);
    if (at < last && startsWith(QByteArrayView(at, what.size()), what)) {
      return at - text.data();
    }
    ++at;
  }
  return -1;
}

QByteArrayView ExtractWithTags(QByteArrayView text, const Tag& tag) {
  const qsizetype open = find(text, tag.open);
  if (open < 0) {
    return {};
  }
  const qsizetype close = find(text, tag.close, open);
  return close < 0 ? text.sliced(open) : text.sliced(open, close + tag.close.size() - open);
}

QByteArray withoutTags(QByteArrayView span, const Tag& tag) {
  if (span.isEmpty()) {
    return {};
  }
  const qsizetype close = find(span, tag.close);
  const QByteArrayView value = close < 0 ? span : span.first(close);
  const QByteArrayView inner = value.sliced(std::min(tag.open.size(), value.size()));
  if (!inner.contains('<')) {
    return inner.toByteArray();
  }
  return removeAll(removeAll(value.toByteArray(), tag.open), tag.close);
}

QByteArray ExtractBetweenTags(QByteArrayView text, const Tag& tag) {
  return withoutTags(ExtractWithTags(text, tag), tag);
}

std::vector<QByteArrayView> ExtractXMLArray(QByteArrayView text, const Tag& tag, QByteArrayView delimiter) {
  const QByteArrayView span = ExtractWithTags(text, tag);
  std::vector<QByteArrayView> pieces;
  qsizetype from = 0;
  for (qsizetype at = find(span, delimiter); at >= 0; at = find(span, delimiter, from)) {
    pieces.push_back(span.sliced(from, at - from));
    from = at + delimiter.size();
  }
  pieces.push_back(span.sliced(from));
  return pieces;
}

// Always four bytes, of which those that count are kept: no branch on what the character is, in most of the text.
char* writeHtmlEncoded(char* to, QStringView text) {
  for (const QChar character : text) {
    const char16_t unit = character.unicode();
    if (unit < kEscapes.size() && kEscapes[unit].length != 0) {
      std::memcpy(to, kEscapes[unit].bytes.data(), kEscapes[unit].bytes.size());
      to += kEscapes[unit].length;
    } else {
      to = escape(to, unit);
    }
  }
  return to;
}

QByteArray HtmlEncode(QStringView text) {
  QByteArray out((text.size() + 1) * kMostEscaped, Qt::Uninitialized);
  out.truncate(writeHtmlEncoded(out.data(), text) - out.data());
  return out;
}

QString HtmlDecode(QByteArrayView text) {
  if (!text.contains('%')) {
    return CodePage::fromBytes(text);
  }
  QString decoded(text.size(), Qt::Uninitialized);
  auto* out = reinterpret_cast<char16_t*>(decoded.data());
  const char16_t* const begin = out;
  const char* const end = text.data() + text.size();
  for (const char* at = text.data(); at < end;) {
    if (*at != '%' || end - at < 3) {
      *out++ = CodePage::toChar(static_cast<uchar>(*at++));
    } else if (const int unit = markedUnit(at, end); unit >= 0) {
      *out++ = static_cast<char16_t>(unit);
      at += 6;
    } else {
      *out++ = CodePage::toChar(static_cast<uchar>(escapedByte(at + 1)));
      at += 3;
    }
  }
  decoded.truncate(out - begin);
  return decoded;
}

}  // namespace Tags
