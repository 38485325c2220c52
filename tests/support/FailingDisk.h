#pragma once

#include <QtGlobal>

/// While it lives no file can be written beyond so many bytes: the system refuses as it does on a full disk.
class FailingDisk {
 public:
  explicit FailingDisk(qint64 bytesLeft = 0);
  ~FailingDisk();
  FailingDisk(const FailingDisk&) = delete;
  FailingDisk& operator=(const FailingDisk&) = delete;

  /// There is space again.
  void clear();

  /// False on a system that can't simulate it; such a test skips.
  static bool available();

 private:
  quint64 former_ = 0;
  bool active_ = false;
};

/// While it lives the process has no more rights than an ordinary user, so that permissions refuse.
class OrdinaryUser {
 public:
  OrdinaryUser();
  ~OrdinaryUser();
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;

  /// True when permissions refuse now.
  bool limited() const { return limited_; }

 private:
  bool limited_ = false;
  bool changed_ = false;
};
