#include "infra/CodePage.h"

#include <algorithm>
#include <array>
#include <type_traits>

namespace {

constexpr std::array<char16_t, 32> kHigh{0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                         0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x8D,   0x017D, 0x8F,
                                         0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                         0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

int byteInHighBlock(char16_t unit) {
  for (size_t i = 0; i < kHigh.size(); ++i) {
    if (kHigh[i] == unit) {
      return static_cast<int>(0x80 + i);
    }
  }
  return -1;
}

int hexDigit(int character) {
  if (character >= '0' && character <= '9') {
    return character - '0';
  }
  const int lower = character | 0x20;
  return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

/// The unit behind a "%u" mark at the position of the "%", or -1 when there is no whole mark.
template <class View>
int markedUnit(View text, qsizetype at) {
  const auto character = [&](qsizetype i) -> int {
    if constexpr (std::is_same_v<View, QStringView>) {
      return text[i].unicode();
    } else {
      return static_cast<uchar>(text[i]);
    }
  };
  if (at + 6 > text.size() || character(at) != '%' || character(at + 1) != 'u') {
    return -1;
  }
  int unit = 0;
  for (qsizetype i = at + 2; i < at + 6; ++i) {
    const int digit = hexDigit(character(i));
    if (digit < 0) {
      return -1;
    }
    unit = unit * 16 + digit;
  }
  return unit;
}

void appendMark(QByteArray& out, char16_t unit) {
  static const char* digits = "0123456789ABCDEF";
  out.append("%u");
  for (int shift = 12; shift >= 0; shift -= 4) {
    out.append(digits[(unit >> shift) & 0xF]);
  }
}

}  // namespace

namespace CodePage {

char16_t toChar(uchar byte) {
  return byte >= 0x80 && byte < 0xA0 ? kHigh[byte - 0x80U] : byte;
}

int toByte(char16_t unit) {
  if (unit < 0x80 || (unit >= 0xA0 && unit <= 0xFF)) {
    return unit;
  }
  return byteInHighBlock(unit);
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
    const int byte = toByte(character.unicode());
    *out++ = byte < 0 ? '?' : static_cast<char>(byte);
  }
  return bytes;
}

bool canEncode(QStringView text) {
  return std::all_of(text.begin(), text.end(), [](QChar character) { return toByte(character.unicode()) >= 0; });
}

QByteArray toMarkedBytes(QStringView text) {
  QByteArray bytes;
  bytes.reserve(text.size());
  for (qsizetype i = 0; i < text.size(); ++i) {
    const char16_t unit = text[i].unicode();
    const int byte = toByte(unit);
    if (byte < 0 || (unit == u'%' && markedUnit(text, i) >= 0)) {
      appendMark(bytes, unit);
    } else {
      bytes.append(static_cast<char>(byte));
    }
  }
  return bytes;
}

QString fromMarkedBytes(QByteArrayView bytes) {
  QString text;
  text.reserve(bytes.size());
  for (qsizetype i = 0; i < bytes.size(); ++i) {
    const int unit = markedUnit(bytes, i);
    text.append(QChar(unit < 0 ? toChar(static_cast<uchar>(bytes[i])) : static_cast<char16_t>(unit)));
    i += unit < 0 ? 0 : 5;
  }
  return text;
}

}  // namespace CodePage
