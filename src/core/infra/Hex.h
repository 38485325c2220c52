#pragma once

#include <QtGlobal>

#include <array>
#include <type_traits>

/// Hexadecimal digits as our files hold them, and the mark that stands for a character the code page lacks.
namespace Hex {

/// Those that are written.
inline constexpr char kUpper[] = "0123456789ABCDEF";

/// What each byte is worth as a digit, in either case; -1 for one that is none.
inline constexpr std::array<qint8, 256> kDigits = [] {
  std::array<qint8, 256> table{};
  table.fill(-1);
  for (int i = 0; i < 16; ++i) {
    const auto upper = static_cast<unsigned char>(kUpper[i]);
    table[upper] = static_cast<qint8>(i);
    table[i < 10 ? upper : upper | 0x20U] = static_cast<qint8>(i);
  }
  return table;
}();

/// The worth of a digit, a byte or a UTF-16 unit; -1 for what is none.
template <class Unit>
constexpr int digit(Unit character) {
  const auto unit = static_cast<std::make_unsigned_t<Unit>>(character);
  return sizeof(Unit) > 1 && unit > 0xFF ? -1 : kDigits[static_cast<unsigned char>(unit)];
}

/// The length of a mark.
inline constexpr qsizetype kMark = 6;

/// The UTF-16 unit that the mark "%uXXXX" at `at` stands for, or -1 when there is no whole mark before `end`.
template <class Unit>
int markedUnit(const Unit* at, const Unit* end) {
  if (end - at < kMark || at[0] != Unit{'%'} || at[1] != Unit{'u'}) {
    return -1;
  }
  int unit = 0;
  for (const Unit* next = at + 2; next != at + kMark; ++next) {
    const int worth = digit(*next);
    if (worth < 0) {
      return -1;
    }
    unit = unit << 4 | worth;
  }
  return unit;
}

}  // namespace Hex
