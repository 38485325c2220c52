#include "core/text/WordBytes.h"

#include "core/infra/CodePage.h"

#include <QChar>

#include <algorithm>
#include <array>
#include <cstring>

namespace {

constexpr char kMakesWords = 'x';
constexpr char kNeither = '.';

char standIn(char32_t character) {
  if (QChar::isLetterOrNumber(character)) {
    return kMakesWords;
  }
  return QChar::isSpace(character) ? ' ' : kNeither;
}

char byteOf(char16_t unit) {
  const int byte = CodePage::toByte(unit);
  return byte > 0 ? static_cast<char>(byte) : standIn(unit);
}

/// The letters of most scripts and the quotes, dashes and spaces of prose: units that have no bit of kBeyondTable.
constexpr size_t kTabled = 0x4000;
constexpr quint64 kBeyondTable = 0xC000C000C000C000U;

const char* tabledBytes() {
  static const auto table = [] {
    std::array<char, kTabled> bytes{};
    for (size_t i = 0; i < bytes.size(); ++i) {
      bytes[i] = byteOf(static_cast<char16_t>(i));
    }
    return bytes;
  }();
  return table.data();
}

/// One character; the units that it took.
qsizetype writeOne(QStringView text, qsizetype at, const char* tabled, char* out) {
  const char16_t unit = text[at].unicode();
  if (unit < kTabled) {
    out[at] = tabled[unit];
  } else if (text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate()) {
    out[at] = standIn(QChar::surrogateToUcs4(text[at], text[at + 1]));
    out[at + 1] = out[at];
    return 2;
  } else {
    out[at] = byteOf(unit);
  }
  return 1;
}

constexpr qsizetype kBlock = 8;
constexpr quint64 kBeyondAscii = 0xFF80FF80FF80FF80U;

/// All bits that any unit of a block has; those of a NUL are all set.
quint64 bitsOf(const char16_t* units) {
  constexpr quint64 kOnes = 0x0001000100010001U;
  quint64 any = 0;
  for (qsizetype i = 0; i < kBlock; i += 4) {
    quint64 four = 0;
    std::memcpy(&four, units + i, sizeof four);
    any |= four | (four - kOnes);
  }
  return any;
}

void narrowBlock(const char16_t* units, char* out) {
  for (qsizetype i = 0; i < kBlock; ++i) {
    out[i] = static_cast<char>(units[i]);
  }
}

}  // namespace

namespace WordBytes {

// Stretches of ASCII, which most prose is made of, are narrowed a block at a time.
void write(QStringView text, char* out) {
  const char* const tabled = tabledBytes();
  const char16_t* const units = text.utf16();
  qsizetype at = 0;
  while (text.size() - at >= kBlock) {
    const quint64 bits = bitsOf(units + at);
    if ((bits & kBeyondAscii) == 0) {
      narrowBlock(units + at, out + at);
      at += kBlock;
    } else if ((bits & kBeyondTable) == 0) {
      std::transform(units + at, units + at + kBlock, out + at, [=](char16_t unit) { return tabled[unit]; });
      at += kBlock;
    } else {
      at += writeOne(text, at, tabled, out);
    }
  }
  while (at < text.size()) {
    at += writeOne(text, at, tabled, out);
  }
}

}  // namespace WordBytes
