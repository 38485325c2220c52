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

/// The same, and whether any of them is on: with none there is nothing to walk over.
class DueFlag {
 public:
  DueFlag() = default;
  ~DueFlag() { *this = false; }
  DueFlag(const DueFlag&) = delete;
  DueFlag& operator=(const DueFlag&) = delete;

  DueFlag& operator=(bool value) {
    set_ += (value ? 1 : 0) - (flag_ ? 1 : 0);
    flag_ = value;
    return *this;
  }
  operator bool() const { return flag_; }

  static bool isAnySet() { return set_ > 0; }

 private:
  WatchedFlag flag_;
  static inline qint64 set_ = 0;
};
