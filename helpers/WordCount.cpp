#include "qnHtml.h"

#include <array>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace {

enum class Kind : std::uint8_t { Letter, Part, Hyphen, Other };

/// The code page: which bytes make words, which part them. A single hyphen does neither.
constexpr std::array<Kind, 256> classify() {
  std::array<Kind, 256> kinds{};
  for (int c = 0; c < 256; ++c) {
    const bool ascii = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
    const bool latin = c >= 0xC0 && c != 0xD7 && c != 0xF7;
    const bool high = c == 0x83 || c == 0x8A || c == 0x8C || c == 0x8E || c == 0x9A || c == 0x9C || c == 0x9E ||
                      c == 0x9F || c == 0x88 || c == 0xAA || c == 0xB2 || c == 0xB3 || c == 0xB5 || c == 0xB9 ||
                      c == 0xBA || (c >= 0xBC && c <= 0xBE);
    const bool space = (c >= 0x09 && c <= 0x0D) || c == ' ' || c == 0xA0;
    kinds[static_cast<std::size_t>(c)] = ascii || latin || high            ? Kind::Letter
                                         : space || c == 0x96 || c == 0x97 ? Kind::Part
                                         : c == '-'                        ? Kind::Hyphen
                                                                           : Kind::Other;
  }
  return kinds;
}

constexpr std::array<Kind, 256> kKinds = classify();

constexpr std::size_t kBlock = 64;

/// One bit for each byte of a block; what has none makes no words and parts none.
struct Block {
  std::uint64_t letters = 0;
  std::uint64_t parts = 0;
  std::uint64_t hyphens = 0;

  void set(unsigned bit, Kind kind) {
    const std::uint64_t mask = std::uint64_t{1} << bit;
    letters |= kind == Kind::Letter ? mask : 0;
    parts |= kind == Kind::Part ? mask : 0;
    hyphens |= kind == Kind::Hyphen ? mask : 0;
  }
};

#if defined(__SSE2__)

/// All ones in each byte that lies from `first` on within `count` values.
__m128i within(__m128i bytes, char first, char count) {
  const __m128i offset = _mm_sub_epi8(bytes, _mm_set1_epi8(first));
  const auto last = static_cast<char>(count - 1);
  return _mm_cmpeq_epi8(_mm_min_epu8(offset, _mm_set1_epi8(last)), offset);
}

std::uint64_t bitsOf(__m128i mask, unsigned shift) {
  return static_cast<std::uint64_t>(static_cast<unsigned>(_mm_movemask_epi8(mask))) << shift;
}

/// ASCII is classed sixteen bytes at a time, the few bytes above it by the table.
Block blockAt(const char* at) {
  Block block;
  std::uint64_t high = 0;
  for (unsigned i = 0; i < kBlock; i += 16) {
    const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at + i));
    const __m128i small = _mm_or_si128(bytes, _mm_set1_epi8(0x20));
    block.letters |= bitsOf(_mm_or_si128(within(small, 'a', 26), within(bytes, '0', 10)), i);
    block.parts |= bitsOf(_mm_or_si128(within(bytes, '\t', 5), _mm_cmpeq_epi8(bytes, _mm_set1_epi8(' '))), i);
    block.hyphens |= bitsOf(_mm_cmpeq_epi8(bytes, _mm_set1_epi8('-')), i);
    high |= bitsOf(bytes, i);
  }
  for (; high != 0; high &= high - 1) {
    const auto bit = static_cast<unsigned>(__builtin_ctzll(high));
    block.set(bit, kKinds[static_cast<unsigned char>(at[bit])]);
  }
  return block;
}

#else

Block blockAt(const char* at) {
  Block block;
  for (unsigned i = 0; i < kBlock; ++i) {
    block.set(i, kKinds[static_cast<unsigned char>(at[i])]);
  }
  return block;
}

#endif

/// Without the call that the compiler makes of std::popcount for the oldest processors.
unsigned bitCount(std::uint64_t bits) {
  bits -= (bits >> 1) & 0x5555555555555555U;
  bits = (bits & 0x3333333333333333U) + ((bits >> 2) & 0x3333333333333333U);
  bits = (bits + (bits >> 4)) & 0x0F0F0F0F0F0F0F0FU;
  return static_cast<unsigned>((bits * 0x0101010101010101U) >> 56);
}

class Counter {
 public:
  // A letter opens a word when what parts stands before it, whatever else lies between: an addition carries the bit
  // behind each parting byte over the run of others, and into the next block.
  void take(const Block& block) {
    const std::uint64_t parts = block.parts | (block.hyphens & (block.hyphens << 1 | behindHyphen_));
    const std::uint64_t others = ~(block.letters | parts);
    const std::uint64_t open = parts << 1 | open_;
    const std::uint64_t carried = others + (open & others);
    words_ += bitCount(block.letters & (open | (carried & ~others)));
    open_ = parts >> 63 | (carried < others ? 1U : 0U);
    behindHyphen_ = block.hyphens >> 63;
  }

  std::int32_t words() const { return static_cast<std::int32_t>(words_); }

 private:
  std::uint64_t open_ = 1;
  std::uint64_t behindHyphen_ = 0;
  unsigned words_ = 0;
};

}  // namespace

std::int32_t cWordCount(const char* text) {
  Counter counter;
  std::size_t left = std::strlen(text);
  for (; left >= kBlock; left -= kBlock, text += kBlock) {
    counter.take(blockAt(text));
  }
  std::array<char, kBlock> rest{};
  std::memcpy(rest.data(), text, left);
  counter.take(blockAt(rest.data()));
  return counter.words();
}
