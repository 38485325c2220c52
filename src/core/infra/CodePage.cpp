#include "core/infra/CodePage.h"

#include "core/infra/Hex.h"

#include <algorithm>
#include <iterator>

namespace {

int byteInHighBlock(char16_t unit) {
  const auto* const found = std::find(std::begin(CodePage::kHigh), std::end(CodePage::kHigh), unit);
  return found == std::end(CodePage::kHigh) ? -1 : static_cast<int>(0x80 + (found - CodePage::kHigh));
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
    const int byte = CodePage::toByte(unit);
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
