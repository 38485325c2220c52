#include "core/infra/FileStamp.h"

#include <QtEndian>

#include <algorithm>
#include <cstring>

namespace {

/// Odd, and with its bits well spread.
constexpr quint64 kFactor = 0x9E3779B97F4A7C15;

quint64 mixed(quint64 state, quint64 word) {
  constexpr int kTurn = 29;
  state = (state ^ word) * kFactor;
  return state ^ (state >> kTurn);
}

}  // namespace

void ContentHash::addBlock(const char* block) {
  for (quint64& lane : lanes_) {
    quint64 word = 0;
    std::memcpy(&word, block, sizeof word);
    lane = mixed(lane, qFromLittleEndian(word));
    block += sizeof word;
  }
}

void ContentHash::add(QByteArrayView bytes) {
  length_ += static_cast<quint64>(bytes.size());
  if (restSize_ > 0) {
    const qsizetype fill = std::min(kBlock - restSize_, bytes.size());
    std::copy_n(bytes.data(), fill, rest_.data() + restSize_);
    restSize_ += fill;
    bytes = bytes.sliced(fill);
    if (restSize_ < kBlock) {
      return;
    }
    addBlock(rest_.data());
  }
  for (; bytes.size() >= kBlock; bytes = bytes.sliced(kBlock)) {
    addBlock(bytes.data());
  }
  std::copy_n(bytes.data(), bytes.size(), rest_.data());
  restSize_ = bytes.size();
}

quint64 ContentHash::value() const {
  ContentHash last = *this;
  std::fill(last.rest_.begin() + restSize_, last.rest_.end(), '\0');
  last.addBlock(last.rest_.data());
  quint64 state = length_;
  for (const quint64 lane : last.lanes_) {
    state = mixed(state, lane);
  }
  return state;
}

quint64 ContentHash::of(QByteArrayView bytes) {
  ContentHash hash;
  hash.add(bytes);
  return hash.value();
}
