#include "core/infra/cSharedEncrypt.h"

#include <algorithm>

namespace {

constexpr char16_t kShift = 100;
/// The first character of a scrambled text is above this one.
constexpr char16_t kLastPlain = 128;
/// One byte each.
constexpr char16_t kLastByte = 255;

}  // namespace

QString cSharedEncrypt::Encrypt(const QString& text) {
  QString scrambled = text;
  for (QChar& letter : scrambled) {
    letter = QChar(static_cast<char16_t>(letter.unicode() + kShift));
  }
  return scrambled;
}

bool cSharedEncrypt::bringsBack(const QString& text) {
  return std::all_of(text.begin(), text.end(), [](QChar letter) {
    return letter.unicode() > kLastPlain - kShift && letter.unicode() <= kLastByte - kShift;
  });
}

QString cSharedDecrypt::Decrypt(const QString& text) {
  if (text.isEmpty() || text.front().unicode() <= kLastPlain) {
    return text;
  }
  QString plain = text;
  for (QChar& letter : plain) {
    if (letter.unicode() > kShift) {
      letter = QChar(static_cast<char16_t>(letter.unicode() - kShift));
    }
  }
  return plain;
}
