#include "qnHtml2.h"

#include "HtmlReferences.h"

#include <cstring>

namespace {

constexpr char kAlphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

/// The two letters of every twelve bits.
constexpr std::array<std::array<char, 2>, 4096> letterPairs() {
  std::array<std::array<char, 2>, 4096> pairs{};
  for (std::size_t bits = 0; bits < pairs.size(); ++bits) {
    pairs[bits] = {kAlphabet[bits >> 6], kAlphabet[bits & 63]};
  }
  return pairs;
}

constexpr auto kPairs = letterPairs();
constexpr std::uint32_t kNoDigit = 0x80000000U;

constexpr std::array<std::uint32_t, 256> digits() {
  std::array<std::uint32_t, 256> table{};
  table.fill(kNoDigit);
  for (std::uint32_t i = 0; i < 64; ++i) {
    table[static_cast<unsigned char>(kAlphabet[i])] = i;
  }
  return table;
}

constexpr auto kDigits = digits();

std::uint32_t digitOf(unsigned char byte) {
  return kDigits[byte];
}

char* putPair(char* to, std::uint32_t twelveBits) {
  std::memcpy(to, kPairs[twelveBits].data(), 2);
  return to + 2;
}

std::size_t encode(const unsigned char* in, std::size_t length, char* out) {
  char* to = out;
  for (; length >= 3; length -= 3, in += 3) {
    const std::uint32_t bits = std::uint32_t{in[0]} << 16 | std::uint32_t{in[1]} << 8 | in[2];
    to = putPair(putPair(to, bits >> 12), bits & 0xFFF);
  }
  if (length > 0) {
    const std::uint32_t bits = std::uint32_t{in[0]} << 16 | (length > 1 ? std::uint32_t{in[1]} << 8 : 0U);
    to = putPair(putPair(to, bits >> 12), bits & 0xFFF);
    to[-1] = '=';
    to[-2] = length > 1 ? to[-2] : '=';
  }
  return static_cast<std::size_t>(to - out);
}

bool isSpace(unsigned char byte) {
  return byte == ' ' || (byte >= 9 && byte <= 13);
}

/// Four digits at a time give three bytes; everything else goes digit by digit.
class Decoder {
 public:
  Decoder(const unsigned char* text, std::size_t length, unsigned char* out)
      : at_(text), end_(text + length), out_(out), to_(out) {}

  std::ptrdiff_t run() {
    while (at_ < end_ && *at_ != '=') {
      takeQuads();
      if (at_ < end_ && *at_ != '=' && !takeOne()) {
        return -1;
      }
    }
    return onlyPaddingLeft() && finish() ? to_ - out_ : -1;
  }

 private:
  void takeQuads() {
    for (; count_ == 0 && end_ - at_ >= 4; at_ += 4) {
      const std::uint32_t bits = digitOf(at_[0]) << 18 | digitOf(at_[1]) << 12 | digitOf(at_[2]) << 6 | digitOf(at_[3]);
      const std::uint32_t any = digitOf(at_[0]) | digitOf(at_[1]) | digitOf(at_[2]) | digitOf(at_[3]);
      if ((any & kNoDigit) != 0) {
        return;
      }
      put(bits);
    }
  }

  bool takeOne() {
    const std::uint32_t digit = digitOf(*at_);
    if (digit == kNoDigit) {
      return isSpace(*at_++);
    }
    ++at_;
    bits_ = bits_ << 6 | digit;
    if (++count_ == 4) {
      put(bits_);
      count_ = 0;
    }
    return true;
  }

  void put(std::uint32_t bits) {
    to_[0] = static_cast<unsigned char>(bits >> 16);
    to_[1] = static_cast<unsigned char>(bits >> 8);
    to_[2] = static_cast<unsigned char>(bits);
    to_ += 3;
  }

  bool onlyPaddingLeft() const {
    return std::all_of(at_, end_, [](unsigned char byte) { return byte == '=' || isSpace(byte); });
  }

  /// Two digits left over make a byte, three make two; one makes none, and is an error.
  bool finish() {
    if (count_ == 1) {
      return false;
    }
    const std::uint32_t bits = bits_ << 6 * (4 - count_);
    if (count_ >= 2) {
      *to_++ = static_cast<unsigned char>(bits >> 16);
    }
    if (count_ == 3) {
      *to_++ = static_cast<unsigned char>(bits >> 8);
    }
    return true;
  }

  const unsigned char* at_;
  const unsigned char* end_;
  unsigned char* out_;
  unsigned char* to_;
  std::uint32_t bits_ = 0;
  unsigned count_ = 0;
};

const unsigned char* bytesOf(const char* text) {
  return reinterpret_cast<const unsigned char*>(text);
}

}  // namespace

std::size_t cEncode64String(const char* text, std::size_t length, char* out) {
  return encode(bytesOf(text), length, out);
}

std::size_t cEncode64(const unsigned char* bytes, std::size_t length, char* out) {
  return encode(bytes, length, out);
}

std::ptrdiff_t cDecode64String(const char* text, std::size_t length, char* out) {
  return Decoder(bytesOf(text), length, reinterpret_cast<unsigned char*>(out)).run();
}

std::ptrdiff_t cDecode64(const char* text, std::size_t length, unsigned char* out) {
  return Decoder(bytesOf(text), length, out).run();
}

void cByteArrayToString(const unsigned char* bytes, std::size_t length, char16_t* out) {
  std::transform(bytes, bytes + length, out, [](unsigned char byte) {
    return byte >= 0x80 && byte < 0xA0 ? HtmlReferences::kHighBlock[byte - 0x80] : char16_t{byte};
  });
}
