#pragma once

#include "HtmlEntities.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>

/// What "&" begins in an HTML text.
struct HtmlReference {
  /// The units from "&" to ";"; 0 when no reference stands there.
  std::size_t length = 0;
  char32_t character = 0;
};

namespace HtmlReferences {

/// The characters of the bytes 0x80 to 0x9F in our code page.
inline constexpr char16_t kHighBlock[32] = {0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                            0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x8D,   0x017D, 0x8F,
                                            0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                            0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

inline constexpr char32_t kLastCharacter = 0x10FFFF;
inline constexpr std::size_t kLongestName = 8;

/// A name of up to eight ASCII letters and digits as one number; 0 for a longer one.
template <class Unit>
constexpr std::uint64_t packed(const Unit* name, std::size_t length) {
  if (length > kLongestName) {
    return 0;
  }
  std::uint64_t key = 0;
  for (std::size_t i = 0; i < length; ++i) {
    key = key << 8 | static_cast<std::uint64_t>(name[i]);
  }
  return key;
}

struct NamedCharacter {
  std::uint64_t name = 0;
  char16_t character = 0;
};

constexpr std::array<NamedCharacter, std::size(kHtmlEntities)> sortedByName() {
  std::array<NamedCharacter, std::size(kHtmlEntities)> sorted{};
  std::transform(std::begin(kHtmlEntities), std::end(kHtmlEntities), sorted.begin(), [](const HtmlEntity& entity) {
    return NamedCharacter{packed(entity.name.data(), entity.name.size()), entity.character};
  });
  std::sort(sorted.begin(), sorted.end(), [](const auto& a, const auto& b) { return a.name < b.name; });
  return sorted;
}

inline constexpr auto kByName = sortedByName();

/// 99 for what is no digit.
constexpr unsigned digitOf(char16_t unit) {
  if (unit >= u'0' && unit <= u'9') {
    return unit - unsigned{u'0'};
  }
  const unsigned small = unit | 0x20U;
  return unit < 0x80 && small >= 'a' && small <= 'z' ? small - 'a' + 10 : 99;
}

/// NUL, halves of pairs and numbers beyond Unicode name nothing; 128 to 159 are read as bytes of the code page,
/// which is what those who write them mean.
constexpr char32_t characterOf(char32_t number) {
  if (number >= 0x80 && number < 0xA0) {
    return kHighBlock[number - 0x80];
  }
  return (number >= 0xD800 && number < 0xE000) || number > kLastCharacter ? 0 : number;
}

/// "&#8212;" or "&#x2014;" at the front of the text.
constexpr HtmlReference numeric(const char16_t* text, std::size_t length) {
  if (length < 4 || text[0] != u'&' || text[1] != u'#') {
    return {};
  }
  const bool hexadecimal = (text[2] | 0x20) == u'x';
  const unsigned base = hexadecimal ? 16 : 10;
  const std::size_t first = hexadecimal ? 3 : 2;
  std::size_t at = first;
  char32_t number = 0;
  for (; at < length && digitOf(text[at]) < base; ++at) {
    number = std::min(number * base + digitOf(text[at]), kLastCharacter + 1);
  }
  const char32_t character = characterOf(number);
  if (at == first || at == length || text[at] != u';' || character == 0) {
    return {};
  }
  return {at + 1, character};
}

/// "&mdash;" at the front of the text.
constexpr HtmlReference named(const char16_t* text, std::size_t length) {
  std::size_t at = 1;
  const std::size_t last = std::min(length, kLongestName + 2);
  while (at < last && digitOf(text[at]) < 99) {
    ++at;
  }
  if (at >= last || text[at] != u';') {
    return {};
  }
  const std::uint64_t name = packed(text + 1, at - 1);
  const auto found = std::lower_bound(kByName.begin(), kByName.end(), name,
                                      [](const NamedCharacter& entry, std::uint64_t key) { return entry.name < key; });
  if (found == kByName.end() || found->name != name) {
    return {};
  }
  return {at + 1, found->character};
}

/// The reference at the front of the text, which begins with "&".
constexpr HtmlReference at(const char16_t* text, std::size_t length) {
  return length > 1 && text[1] == u'#' ? numeric(text, length) : named(text, length);
}

/// Writes one character; up to two units. The end of what was written.
constexpr char16_t* write(char16_t* out, char32_t character) {
  if (character < 0x10000) {
    *out++ = static_cast<char16_t>(character);
    return out;
  }
  *out++ = static_cast<char16_t>(0xD7C0 + (character >> 10));
  *out++ = static_cast<char16_t>(0xDC00 + (character & 0x3FF));
  return out;
}

}  // namespace HtmlReferences
