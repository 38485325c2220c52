#include "text/WordBytes.h"

#include "infra/CodePage.h"

#include <QChar>

#include <algorithm>
#include <array>

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

/// The bytes of the general punctuation, where the quotes, dashes and spaces of prose stand.
constexpr char16_t kPunctuation = 0x2000;
constexpr size_t kPunctuationSize = 0x80;

const std::array<char, kPunctuationSize>& punctuation() {
  static const auto table = [] {
    std::array<char, kPunctuationSize> bytes{};
    for (size_t i = 0; i < bytes.size(); ++i) {
      bytes[i] = byteOf(static_cast<char16_t>(kPunctuation + i));
    }
    return bytes;
  }();
  return table;
}

/// One character; the units that it took.
qsizetype writeOne(QStringView text, qsizetype at, char* out) {
  const char16_t unit = text[at].unicode();
  if (unit != 0 && (unit < 0x80 || (unit >= 0xA0 && unit <= 0xFF))) {
    out[at] = static_cast<char>(unit);
  } else if (const auto index = static_cast<size_t>(unit - kPunctuation); index < kPunctuationSize) {
    out[at] = punctuation()[index];
  } else if (text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate()) {
    out[at] = standIn(QChar::surrogateToUcs4(text[at], text[at + 1]));
    out[at + 1] = out[at];
    return 2;
  } else {
    out[at] = byteOf(unit);
  }
  return 1;
}

}  // namespace

namespace WordBytes {

// Stretches of ASCII, which most prose is made of, are narrowed a block at a time.
void write(QStringView text, char* out) {
  constexpr qsizetype kBlock = 16;
  const char16_t* const units = text.utf16();
  qsizetype at = 0;
  while (at + kBlock <= text.size()) {
    unsigned all = 0;
    unsigned noNul = 1;
    for (qsizetype i = 0; i < kBlock; ++i) {
      all |= units[at + i];
      noNul &= units[at + i] != 0 ? 1U : 0U;
    }
    if (all < 0x80 && noNul != 0) {
      std::transform(units + at, units + at + kBlock, out + at, [](char16_t unit) { return static_cast<char>(unit); });
      at += kBlock;
      continue;
    }
    for (const qsizetype end = at + kBlock; at < end && at < text.size();) {
      at += writeOne(text, at, out);
    }
  }
  while (at < text.size()) {
    at += writeOne(text, at, out);
  }
}

}  // namespace WordBytes
