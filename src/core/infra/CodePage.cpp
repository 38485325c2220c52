#include "core/infra/CodePage.h"

#include "core/infra/Hex.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace {

/// By character, up to the highest that has a byte; -1 for none. Whole books are looked up, unit by unit.
constexpr auto kBytes = [] {
  std::array<qint16, 0x2123> bytes{};
  for (size_t unit = 0; unit < bytes.size(); ++unit) {
    const bool isItself = unit < 0x80 || (unit >= 0xA0 && unit <= 0xFF);
    bytes[unit] = static_cast<qint16>(isItself ? static_cast<int>(unit) : -1);
  }
  for (size_t i = 0; i < std::size(CodePage::kHigh); ++i) {
    bytes[CodePage::kHigh[i]] = static_cast<qint16>(0x80 + i);
  }
  return bytes;
}();

inline int byteOf(char16_t unit) {
  return unit < kBytes.size() ? kBytes[unit] : -1;
}

void appendMark(QByteArray& out, char16_t unit) {
  out.append("%u");
  for (int shift = 12; shift >= 0; shift -= 4) {
    out.append(Hex::kUpper[(unit >> shift) & 0xF]);
  }
}

bool isLineEnd(char16_t unit) {
  return unit == u'\r' || unit == u'\n';
}

QByteArray marked(QStringView text, bool withLineEnds) {
  QByteArray bytes;
  bytes.reserve(text.size());
  for (qsizetype i = 0; i < text.size(); ++i) {
    const char16_t unit = text[i].unicode();
    const int byte = byteOf(unit);
    if (byte < 0 || (withLineEnds && isLineEnd(unit)) ||
        (unit == u'%' && Hex::markedUnit(text.utf16() + i, text.utf16() + text.size()) >= 0)) {
      appendMark(bytes, unit);
    } else {
      bytes.append(static_cast<char>(byte));
    }
  }
  return bytes;
}

}  // namespace

namespace CodePage {

int toByte(char16_t unit) {
  return byteOf(unit);
}

QString fromBytes(QByteArrayView bytes) {
  QString text(bytes.size(), Qt::Uninitialized);
  auto* out = reinterpret_cast<char16_t*>(text.data());
  for (const char byte : bytes) {
    *out++ = toChar(static_cast<uchar>(byte));
  }
  return text;
}

QByteArray toBytes(QStringView text) {
  QByteArray bytes(text.size(), Qt::Uninitialized);
  char* out = bytes.data();
  for (const QChar character : text) {
    const int byte = byteOf(character.unicode());
    *out++ = byte < 0 ? '?' : static_cast<char>(byte);
  }
  return bytes;
}

bool canEncode(QStringView text) {
  return std::all_of(text.begin(), text.end(), [](QChar character) { return byteOf(character.unicode()) >= 0; });
}

QByteArray toMarkedBytes(QStringView text) {
  return marked(text, false);
}

QByteArray toMarkedLine(QStringView text) {
  return marked(text, true);
}

QString fromMarkedBytes(QByteArrayView bytes) {
  QString text;
  text.reserve(bytes.size());
  for (qsizetype i = 0; i < bytes.size(); ++i) {
    const int unit = Hex::markedUnit(bytes.data() + i, bytes.data() + bytes.size());
    text.append(QChar(unit < 0 ? toChar(static_cast<uchar>(bytes[i])) : static_cast<char16_t>(unit)));
    i += unit < 0 ? 0 : Hex::kMark - 1;
  }
  return text;
}

}  // namespace CodePage
