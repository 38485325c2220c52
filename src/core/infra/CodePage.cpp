#include "core/infra/CodePage.h"

#include <algorithm>
#include <iterator>
#include <type_traits>

namespace {

int byteInHighBlock(char16_t unit) {
  const auto* const found = std::find(std::begin(CodePage::kHigh), std::end(CodePage::kHigh), unit);
  return found == std::end(CodePage::kHigh) ? -1 : static_cast<int>(0x80 + (found - CodePage::kHigh));
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
