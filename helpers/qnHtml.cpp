#include "Export.h"

#include <array>
#include <cstdint>

namespace {

enum class Kind : std::uint8_t { Space, Letter, Hyphen, Dash, Other };

/// Windows-1252: which bytes part words, which make them.
constexpr std::array<Kind, 256> classify() {
  std::array<Kind, 256> kinds{};
  for (int c = 0; c < 256; ++c) {
    const bool ascii = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
    const bool latin = c >= 0xC0 && c != 0xD7 && c != 0xF7;
    const bool high = c == 0x83 || c == 0x8A || c == 0x8C || c == 0x8E || c == 0x9A || c == 0x9C || c == 0x9E ||
                      c == 0x9F || c == 0xAA || c == 0xB2 || c == 0xB3 || c == 0xB5 || c == 0xB9 || c == 0xBA;
    const bool space = (c >= 0x09 && c <= 0x0D) || c == ' ' || c == 0xA0;
    kinds[static_cast<std::size_t>(c)] = ascii || latin || high   ? Kind::Letter
                                         : space                  ? Kind::Space
                                         : c == '-'               ? Kind::Hyphen
                                         : c == 0x96 || c == 0x97 ? Kind::Dash
                                                                  : Kind::Other;
  }
  return kinds;
}

constexpr std::array<Kind, 256> kKinds = classify();

}  // namespace

/// The words of a NUL-ended text: it is parted at white space, at en and em dashes and at two or more hyphens
/// in a row; a piece counts when it holds a letter or a digit.
QUILLANE_EXPORT std::int32_t cWordCount(const char* text) {
  std::int32_t words = 0;
  bool counted = false;
  for (; *text != '\0'; ++text) {
    const Kind kind = kKinds[static_cast<unsigned char>(*text)];
    if (kind == Kind::Letter) {
      words += counted ? 0 : 1;
      counted = true;
    } else if (kind == Kind::Space || kind == Kind::Dash || (kind == Kind::Hyphen && text[1] == '-')) {
      counted = false;
    }
  }
  return words;
}
