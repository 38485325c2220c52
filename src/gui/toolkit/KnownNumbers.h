#pragma once

#include <vector>

/// What each of a document's formats is to us, looked up once. A document numbers its formats from 0 on.
class KnownNumbers {
 public:
  template <class Look>
  int operator()(int index, Look&& look) {
    const auto slot = static_cast<size_t>(index);
    if (slot >= numbers_.size()) {
      numbers_.resize(slot + 1, -1);
    }
    if (numbers_[slot] < 0) {
      numbers_[slot] = look();
    }
    return numbers_[slot];
  }

 private:
  std::vector<int> numbers_;
};
