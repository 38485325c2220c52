#include "qnHtml.h"

#include <array>

namespace {

/// One bit each, so that what stands behind what is found without a branch.
enum Kind : std::uint8_t { Letter = 1, Part = 2, Other = 4 };

/// The code page: which bytes make words, which part them. A single hyphen does neither.
constexpr std::array<std::uint8_t, 256> classify() {
  std::array<std::uint8_t, 256> kinds{};
  for (int c = 0; c < 256; ++c) {
    const bool ascii = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
    const bool latin = c >= 0xC0 && c != 0xD7 && c != 0xF7;
    const bool high = c == 0x83 || c == 0x8A || c == 0x8C || c == 0x8E || c == 0x9A || c == 0x9C || c == 0x9E ||
                      c == 0x9F || c == 0xAA || c == 0xB2 || c == 0xB3 || c == 0xB5 || c == 0xB9 || c == 0xBA;
    const bool space = (c >= 0x09 && c <= 0x0D) || c == ' ' || c == 0xA0;
    const bool dash = c == 0x96 || c == 0x97;
    kinds[static_cast<std::size_t>(c)] = ascii || latin || high ? Letter : space || dash ? Part : Other;
  }
  return kinds;
}

constexpr std::array<std::uint8_t, 256> kKinds = classify();

std::uint8_t kindOf(char byte) {
  return kKinds[static_cast<unsigned char>(byte)];
}

/// True when the piece that goes on at `at` has no letter before it. Only what makes no words stands between, and
/// each such run is gone over once.
bool opensPiece(const char* begin, const char* at) {
  while (at > begin && kindOf(at[-1]) == Other) {
    if (at - begin > 1 && at[-1] == '-' && at[-2] == '-') {
      return true;
    }
    --at;
  }
  return at == begin || kindOf(at[-1]) == Part;
}

}  // namespace

// Most letters stand behind a letter or a space, which is settled without a branch.
std::int32_t cWordCount(const char* text) {
  unsigned words = 0;
  unsigned before = Part;
  for (const char* at = text; *at != '\0'; ++at) {
    const unsigned kind = kindOf(*at);
    words += kind & (before >> 1) & 1U;
    if ((kind & (before >> 2) & 1U) != 0) {
      words += opensPiece(text, at) ? 1U : 0U;
    }
    before = kind;
  }
  return static_cast<std::int32_t>(words);
}
