#pragma once

/// While one lives, nobody walks over what has changed: a long work yields to the message loop, and the rows of the
/// windows must not be refreshed from what it has half done. They nest.
class ScanPause {
 public:
  ScanPause() { ++living_; }
  ~ScanPause() { --living_; }
  ScanPause(const ScanPause&) = delete;
  ScanPause& operator=(const ScanPause&) = delete;

  static bool isActive() { return living_ > 0; }

 private:
  static inline int living_ = 0;
};
