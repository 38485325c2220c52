#include "core/text/Tags.h"

#include "core/infra/CodePage.h"
#include "core/infra/Hex.h"

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

#include <QString>
#include <QtAlgorithms>

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
      table[c] = {{'%', Hex::kUpper[c >> 4], Hex::kUpper[c & 0xF]}, 3};
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
    *out++ = Hex::kUpper[unit >> 12];
    *out++ = Hex::kUpper[(unit >> 8) & 0xF];
    unit &= 0xFF;
  }
  const int low = byte < 0 ? unit : byte;
  *out++ = Hex::kUpper[low >> 4];
  *out++ = Hex::kUpper[low & 0xF];
  return out;
}

/// Two digits as a hexadecimal number is read from text: the first bad digit ends it.
int escapedByte(const char* digits) {
  const int high = Hex::digit(digits[0]);
  if (high < 0) {
    return 0;
  }
  const int low = Hex::digit(digits[1]);
  return low < 0 ? high : high * 16 + low;
}

constexpr qsizetype kBlock = 64;

/// A bit for each of the 64 bytes that is "%" or no ASCII.
quint64 stopsIn(const char* block) {
  quint64 stops = 0;
#if defined(__SSE2__)
  for (int i = 0; i < kBlock; i += 16) {
    const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(block + i));
    const __m128i found = _mm_or_si128(_mm_cmpeq_epi8(bytes, _mm_set1_epi8('%')), bytes);
    stops |= quint64{static_cast<unsigned>(_mm_movemask_epi8(found))} << i;
  }
#else
  for (int i = 0; i < kBlock; ++i) {
    stops |= quint64{block[i] == '%' || static_cast<uchar>(block[i]) >= 0x80} << i;
  }
#endif
  return stops;
}

/// Bytes that are copied without a look at how many of them count.
constexpr qsizetype kBlind = 16;

/// Widens ASCII. There are at least kBlind bytes, and so there is room for as many units.
char16_t* widen(const char* from, const char* to, char16_t* out) {
  if (to - from <= kBlind) {
    std::copy_n(from, kBlind, out);
  } else {
    std::copy(from, to, out);
  }
  return out + (to - from);
}

/// One character of an escaped text; the bytes that it took.
qsizetype decodeOne(const char* at, const char* end, char16_t& unit) {
  if (*at != '%' || end - at < 3) {
    unit = CodePage::toChar(static_cast<uchar>(*at));
    return 1;
  }
  const qint8 high = Hex::kDigits[static_cast<uchar>(at[1])];
  const qint8 low = Hex::kDigits[static_cast<uchar>(at[2])];
  if ((high | low) >= 0) {
    unit = CodePage::toChar(static_cast<uchar>(high << 4 | low));
    return 3;
  }
  if (const int marked = Hex::markedUnit(at, end); marked >= 0) {
    unit = static_cast<char16_t>(marked);
    return Hex::kMark;
  }
  unit = CodePage::toChar(static_cast<uchar>(escapedByte(at + 1)));
  return 3;
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
  for (qsizetype at = delimiter.isEmpty() ? -1 : find(span, delimiter); at >= 0; at = find(span, delimiter, from)) {
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

// The stops of a block are found all at once, so that no step waits for the one before it.
QString HtmlDecode(QByteArrayView text) {
  if (!text.contains('%')) {
    return CodePage::fromBytes(text);
  }
  QString decoded(text.size(), Qt::Uninitialized);
  auto* out = reinterpret_cast<char16_t*>(decoded.data());
  const char16_t* const begin = out;
  const char* const end = text.data() + text.size();
  const char* at = text.data();
  while (end - at >= kBlock + kBlind) {
    const char* const block = at;
    for (quint64 stops = stopsIn(block); stops != 0; stops &= stops - 1) {
      const char* const stop = block + qCountTrailingZeroBits(stops);
      if (stop >= at) {
        out = widen(at, stop, out);
        at = stop + decodeOne(stop, end, *out++);
      }
    }
    if (at < block + kBlock) {
      out = widen(at, block + kBlock, out);
      at = block + kBlock;
    }
  }
  while (at < end) {
    at += decodeOne(at, end, *out++);
  }
  decoded.truncate(out - begin);
  return decoded;
}

}  // namespace Tags
