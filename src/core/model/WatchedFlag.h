#pragma once

#include <QtGlobal>

/// A flag of one among thousands. What was worked out of all of them still holds while their number of changes is the
/// same: it is counted for all together.
class WatchedFlag {
 public:
  WatchedFlag& operator=(bool value) {
    changes_ += value == value_ ? 0 : 1;
    value_ = value;
    return *this;
  }
  operator bool() const { return value_; }

  static quint64 changes() { return changes_; }

 private:
  bool value_ = false;
  static inline quint64 changes_ = 0;
};
