#pragma once

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

/// Steps over UTF-16 units that the routines share.
namespace Units {

inline constexpr std::uint64_t kOnes = 0x0001000100010001U;
inline constexpr std::uint64_t kHighs = 0x8000800080008000U;
/// The flag of the unit that stands first in memory.
inline constexpr std::uint64_t kFirstHigh = 0x8000U;

/// Four units as one number, and back.
inline std::uint64_t load(const char16_t* at) {
  std::uint64_t four = 0;
  std::memcpy(&four, at, sizeof four);
  return four;
}
inline void store(char16_t* at, std::uint64_t four) {
  std::memcpy(at, &four, sizeof four);
}
constexpr std::uint64_t all(char16_t unit) {
  return kOnes * unit;
}
/// Flags each of the four that is 0; 0 when none is. Behind one that is, others may be flagged that are not.
constexpr std::uint64_t zeros(std::uint64_t four) {
  return (four - kOnes) & ~four & kHighs;
}

/// The first `unit` at or behind `at`, or `end`; several units a step.
inline const char16_t* find(const char16_t* at, const char16_t* end, char16_t unit) {
#if defined(__SSE2__)
  const __m128i wanted = _mm_set1_epi16(static_cast<short>(unit));
  for (; end - at >= 8; at += 8) {
    const __m128i eight = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
    const int found = _mm_movemask_epi8(_mm_cmpeq_epi16(eight, wanted));
    if (found != 0) {
      return at + __builtin_ctz(static_cast<unsigned>(found)) / 2;
    }
  }
#else
  while (end - at >= 4 && zeros(load(at) ^ all(unit)) == 0) {
    at += 4;
  }
#endif
  return std::find(at, end, unit);
}

inline bool startsWith(const char16_t* at, const char16_t* end, std::u16string_view what) {
  return std::u16string_view(at, static_cast<std::size_t>(end - at)).substr(0, what.size()) == what;
}

/// The first place where `unit` stands twice in a row, or `end`.
inline const char16_t* findDoubled(const char16_t* at, const char16_t* end, char16_t unit) {
#if defined(__SSE2__)
  const __m128i wanted = _mm_set1_epi16(static_cast<short>(unit));
  for (; end - at > 8; at += 8) {
    const __m128i first = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
    const __m128i second = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at + 1));
    const __m128i both = _mm_and_si128(_mm_cmpeq_epi16(first, wanted), _mm_cmpeq_epi16(second, wanted));
    if (_mm_movemask_epi8(both) != 0) {
      break;
    }
  }
#endif
  return std::adjacent_find(at, end, [unit](char16_t a, char16_t b) { return a == unit && b == unit; });
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
