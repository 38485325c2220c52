#include "core/infra/FileStamp.h"

#include <QtEndian>

#include <climits>
#include <cstring>

namespace {

constexpr quint64 kWord = sizeof(quint64);
/// Odd, and with its bits well spread.
constexpr quint64 kFactor = 0x9E3779B97F4A7C15;

}  // namespace

void ContentHash::addWord(quint64 word) {
  constexpr int kTurn = 29;
  state_ = (state_ ^ word) * kFactor;
  state_ ^= state_ >> kTurn;
}

void ContentHash::add(QByteArrayView bytes) {
  const char* from = bytes.data();
  const char* const end = from + bytes.size();
  const auto addByte = [&] {
    const quint64 place = length_++ % kWord;
    rest_ |= quint64{static_cast<uchar>(*from++)} << (CHAR_BIT * place);
    if (place == kWord - 1) {
      addWord(rest_);
      rest_ = 0;
    }
  };
  while (from != end && length_ % kWord != 0) {
    addByte();
  }
  for (; end - from >= static_cast<qptrdiff>(kWord); from += kWord, length_ += kWord) {
    quint64 word = 0;
    std::memcpy(&word, from, kWord);
    addWord(qFromLittleEndian(word));
  }
  while (from != end) {
    addByte();
  }
}

quint64 ContentHash::value() const {
  ContentHash last = *this;
  last.addWord(rest_);
  last.addWord(length_);
  return last.state_;
}

quint64 ContentHash::of(QByteArrayView bytes) {
  ContentHash hash;
  hash.add(bytes);
  return hash.value();
}
