#include "core/text/RtfLexer.h"

#include "core/infra/Hex.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <limits>

namespace {

enum class ByteKind : quint8 { Text, Other, Ignored, Escape, Open, Close };

constexpr std::array<ByteKind, 256> kByteKinds = [] {
  std::array<ByteKind, 256> kinds{};
  for (size_t byte = 0; byte < kinds.size(); ++byte) {
    kinds[byte] = byte < 0x20 || byte >= 0x80 ? ByteKind::Other : ByteKind::Text;
  }
  kinds['\0'] = kinds['\r'] = kinds['\n'] = ByteKind::Ignored;
  kinds['\\'] = ByteKind::Escape;
  kinds['{'] = ByteKind::Open;
  kinds['}'] = ByteKind::Close;
  return kinds;
}();

ByteKind kindOf(char byte) {
  return kByteKinds[static_cast<uchar>(byte)];
}

constexpr quint64 everyByte(uchar byte) {
  return 0x0101010101010101ULL * byte;
}

/// The highest bit of each byte that may not be text: braces and the backslash are marked along with their
/// neighbours, "[" to "_" and "{" to DEL, controls and what is not ASCII.
quint64 marksOfSpecial(quint64 eight) {
  const quint64 low = eight & everyByte(0x7F);
  const quint64 fromBracket = (low | everyByte(0x20)) + everyByte(0x80 - '{');
  const quint64 notControl = low + everyByte(0x60);
  return (eight | fromBracket | ~notControl) & everyByte(0x80);
}

const char* endOfText(const char* at, const char* end) {
  const auto isText = [](char byte) { return kindOf(byte) == ByteKind::Text; };
  if constexpr (std::endian::native == std::endian::little) {
    for (; end - at >= 8; at += 8) {
      quint64 eight;
      std::memcpy(&eight, at, sizeof eight);
      for (quint64 marks = marksOfSpecial(eight); marks != 0; marks &= marks - 1) {
        const char* const marked = at + std::countr_zero(marks) / 8;
        if (!isText(*marked)) {
          return marked;
        }
      }
    }
  }
  return std::find_if_not(at, end, isText);
}

/// The next brace or backslash. Pictures are millions of digits: whole blocks are looked at without a branch.
const char* nextSpecial(const char* at, const char* end) {
  constexpr int kBlock = 128;
  const auto isSpecial = [](char byte) { return byte == '\\' || byte == '{' || byte == '}'; };
  while (end - at >= kBlock) {
    unsigned char found = 0;
    for (int i = 0; i < kBlock; ++i) {
      found |= static_cast<unsigned char>((at[i] == '\\') | (at[i] == '{') | (at[i] == '}'));
    }
    if (found != 0) {
      break;
    }
    at += kBlock;
  }
  return std::find_if(at, end, isSpecial);
}

bool isLetter(char byte) {
  return static_cast<uchar>((byte | 0x20) - 'a') < 26;
}
bool isDigit(char byte) {
  return static_cast<uchar>(byte - '0') < 10;
}

}  // namespace

void RtfLexer::next(RtfToken& token) {
  while (at_ != end_ && kindOf(*at_) == ByteKind::Ignored) {
    ++at_;
  }
  if (at_ == end_) {
    token.kind = RtfToken::Kind::End;
    return;
  }
  switch (kindOf(*at_)) {
    case ByteKind::Text:
      token.kind = RtfToken::Kind::Text;
      token.first = at_;
      at_ = endOfText(at_ + 1, end_);
      token.length = at_ - token.first;
      return;
    case ByteKind::Escape:
      ++at_;
      readEscape(token);
      return;
    case ByteKind::Open:
      token.kind = RtfToken::Kind::Open;
      break;
    case ByteKind::Close:
      token.kind = RtfToken::Kind::Close;
      break;
    default:
      token.kind = RtfToken::Kind::Byte;
      token.number = static_cast<uchar>(*at_);
      break;
  }
  ++at_;
}

void RtfLexer::readEscape(RtfToken& token) {
  if (at_ == end_) {
    token.kind = RtfToken::Kind::End;
    return;
  }
  if (isLetter(*at_)) {
    readWord(token);
    return;
  }
  const char symbol = *at_++;
  if (symbol == '\'' && readHexByte(token)) {
    return;
  }
  token.kind = RtfToken::Kind::Symbol;
  token.number = static_cast<uchar>(symbol);
}

void RtfLexer::readWord(RtfToken& token) {
  token.kind = RtfToken::Kind::Word;
  token.first = at_;
  at_ = std::find_if_not(at_, end_, isLetter);
  token.length = at_ - token.first;
  token.hasNumber = false;
  token.number = 0;
  if (at_ != end_ && (isDigit(*at_) || *at_ == '-')) {
    readNumber(token);
  }
  if (at_ != end_ && *at_ == ' ') {
    ++at_;
  }
  if (token.length == 3 && std::memcmp(token.first, "bin", 3) == 0) {
    skipBinary(token);
  }
}

void RtfLexer::readNumber(RtfToken& token) {
  const bool negative = end_ - at_ >= 2 && *at_ == '-' && isDigit(at_[1]);
  token.hasNumber = negative || isDigit(*at_);
  if (!token.hasNumber) {
    return;
  }
  at_ += negative ? 1 : 0;
  qint64 value = 0;
  for (; at_ != end_ && isDigit(*at_); ++at_) {
    value = std::min<qint64>(value * 10 + (*at_ - '0'), std::numeric_limits<qint32>::max());
  }
  token.number = static_cast<qint32>(negative ? -value : value);
}

bool RtfLexer::readHexByte(RtfToken& token) {
  const int high = end_ - at_ < 2 ? -1 : Hex::digit(at_[0]);
  const int low = high < 0 ? -1 : Hex::digit(at_[1]);
  if (low < 0) {
    return false;
  }
  token.kind = RtfToken::Kind::Byte;
  token.number = high << 4 | low;
  at_ += 2;
  return true;
}

void RtfLexer::skipBinary(const RtfToken& word) {
  at_ += std::clamp<qint64>(word.number, 0, end_ - at_);
}

void RtfLexer::skipGroup() {
  RtfToken token;
  for (qint64 depth = 1; depth > 0;) {
    at_ = nextSpecial(at_, end_);
    if (at_ == end_) {
      return;
    }
    const char* const before = at_;
    next(token);
    depth += token.kind == RtfToken::Kind::Open ? 1 : 0;
    depth -= token.kind == RtfToken::Kind::Close ? 1 : 0;
    if (depth == 0) {
      at_ = before;
    }
  }
}
