#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

/// Steps over UTF-16 units that the routines share.
namespace Units {

/// The first `unit` at or behind `at`, or `end`; four units a step.
inline const char16_t* find(const char16_t* at, const char16_t* end, char16_t unit) {
  constexpr std::uint64_t kOnes = 0x0001000100010001U;
  constexpr std::uint64_t kHighs = 0x8000800080008000U;
  const std::uint64_t wanted = kOnes * unit;
  for (; end - at >= 4; at += 4) {
    std::uint64_t four = 0;
    std::memcpy(&four, at, sizeof four);
    four ^= wanted;
    if (((four - kOnes) & ~four & kHighs) != 0) {
      break;
    }
  }
  return std::find(at, end, unit);
}

/// Copies a stretch to where it may overlap itself, in front of where it stands; the end of the copy.
inline char16_t* move(char16_t* out, const char16_t* from, const char16_t* to) {
  const auto count = static_cast<std::size_t>(to - from);
  if (out != from) {
    std::memmove(out, from, count * sizeof *out);
  }
  return out + count;
}

}  // namespace Units
