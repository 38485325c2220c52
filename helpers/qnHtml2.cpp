#include "Export.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace {

constexpr char kAlphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::uint8_t kNoDigit = 0xFF;

constexpr std::array<std::uint8_t, 256> digits() {
  std::array<std::uint8_t, 256> table{};
  for (auto& entry : table) {
    entry = kNoDigit;
  }
  for (std::uint8_t i = 0; i < 64; ++i) {
    table[static_cast<unsigned char>(kAlphabet[i])] = i;
  }
  return table;
}

constexpr std::array<std::uint8_t, 256> kDigits = digits();

char letter(std::uint32_t bits, int shift) {
  return kAlphabet[(bits >> shift) & 63U];
}

}  // namespace

/// Base64 of `length` bytes into `out`, which holds 4 * ((length + 2) / 3) bytes; one line, padded.
/// Returns the number of bytes written.
QUILLANE_EXPORT std::size_t cEncode64String(const char* text, std::size_t length, char* out) {
  const auto* in = reinterpret_cast<const unsigned char*>(text);
  char* to = out;
  for (; length >= 3; length -= 3, in += 3) {
    const std::uint32_t bits = static_cast<std::uint32_t>(in[0] << 16 | in[1] << 8 | in[2]);
    *to++ = letter(bits, 18);
    *to++ = letter(bits, 12);
    *to++ = letter(bits, 6);
    *to++ = letter(bits, 0);
  }
  if (length > 0) {
    const std::uint32_t bits = static_cast<std::uint32_t>(in[0] << 16 | (length > 1 ? in[1] << 8 : 0));
    *to++ = letter(bits, 18);
    *to++ = letter(bits, 12);
    *to++ = length > 1 ? letter(bits, 6) : '=';
    *to++ = '=';
  }
  return static_cast<std::size_t>(to - out);
}

/// The bytes of a Base64 text into `out`, which holds 3 * (length / 4 + 1) bytes. White space is passed over and
/// missing padding is borne. Returns the number of bytes written, or -1 for text that is no Base64.
QUILLANE_EXPORT std::ptrdiff_t cDecode64String(const char* text, std::size_t length, char* out) {
  char* to = out;
  std::uint32_t bits = 0;
  int count = 0;
  std::size_t at = 0;
  for (; at < length && text[at] != '='; ++at) {
    const auto byte = static_cast<unsigned char>(text[at]);
    if (byte == ' ' || (byte >= 9 && byte <= 13)) {
      continue;
    }
    if (kDigits[byte] == kNoDigit) {
      return -1;
    }
    bits = bits << 6 | kDigits[byte];
    if (++count % 4 == 0) {
      *to++ = static_cast<char>(bits >> 16);
      *to++ = static_cast<char>(bits >> 8);
      *to++ = static_cast<char>(bits);
    }
  }
  for (; at < length; ++at) {
    const auto byte = static_cast<unsigned char>(text[at]);
    if (byte != '=' && byte != ' ' && (byte < 9 || byte > 13)) {
      return -1;
    }
  }
  if (count % 4 == 1) {
    return -1;
  }
  if (count % 4 >= 2) {
    bits <<= 6 * (4 - count % 4);
    *to++ = static_cast<char>(bits >> 16);
    if (count % 4 == 3) {
      *to++ = static_cast<char>(bits >> 8);
    }
  }
  return to - out;
}
