#include "text/Tags.h"

#include "infra/CodePage.h"

#include <QString>

#include <algorithm>
#include <array>
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

constexpr std::array<bool, 128> plainCharacters() {
  std::array<bool, 128> plain{};
  for (size_t c = 0; c < plain.size(); ++c) {
    plain[c] = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == ':' || c == '.' ||
               c == ',' || c == '?';
  }
  return plain;
}

constexpr std::array<bool, 128> kPlain = plainCharacters();
constexpr char kHex[] = "0123456789ABCDEF";

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
  const char* last = text.data() + text.size() - what.size() + 1;
  const char* at = text.data() + from;
  if (text.size() < what.size()) {
    return -1;
  }
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

void appendHtmlEncoded(QByteArray& out, QStringView text) {
  const qsizetype old = out.size();
  out.resize(old + text.size() * 6);
  char* to = out.data() + old;
  for (const QChar character : text) {
    const char16_t unit = character.unicode();
    if (unit < kPlain.size() && kPlain[unit]) {
      *to++ = static_cast<char>(unit);
    } else {
      to = escape(to, unit);
    }
  }
  out.resize(to - out.data());
}

QByteArray HtmlEncode(QStringView text) {
  QByteArray out;
  appendHtmlEncoded(out, text);
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
