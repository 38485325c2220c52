#include "core/spell/WordTokens.h"

#include "core/infra/Blanks.h"

#include <array>

namespace {

/// The units that stay; all others are beyond the table or false in it.
constexpr std::array<bool, 256> kKept = [] {
  std::array<bool, 256> kept{};
  for (size_t letter = 0; letter < 26; ++letter) {
    kept['a' + letter] = kept['A' + letter] = true;
  }
  for (size_t digit = 0; digit < 10; ++digit) {
    kept['0' + digit] = true;
  }
  for (const size_t other :
       {size_t{' '}, size_t{'\''}, size_t{225}, size_t{233}, size_t{237}, size_t{241}, size_t{243}, size_t{250}}) {
    kept[other] = true;
  }
  return kept;
}();

}  // namespace

void WordTokens::cleanUp(QString& text) {
  if (Blanks::trimmed(text).isEmpty()) {
    return;
  }
  for (QChar& character : text) {
    constexpr QChar kTypographic(0x2019);
    if (character == kTypographic) {
      character = u'\'';
    }
    const char16_t unit = character.unicode();
    if (unit >= kKept.size() || !kKept[unit]) {
      character = u' ';
    }
  }
}
