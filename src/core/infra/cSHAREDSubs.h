#pragma once

#include <QString>

/// The mouse pointer of the whole program, yielding, and what is known of program and platform.
class cSHAREDSubs {
 public:
  // Each yields to the message loop once.
  void BusyMouse();
  void BusyBGmouse();
  void BackgroundMouse() { BusyBGmouse(); }
  void NormalMouse();

  /// Yields to the message loop, but no more than about ten times a second however often it is called, and not while a
  /// YieldPause lives.
  void RegularDoEvents();

  /// "major.minor.revision".
  QString AppVersion() const;
  /// The operating system's name with its version.
  QString GetWinPlatform() const;

 private:
  qint64 lastYield_ = 0;
};

/// While one lives a work in steps does not yield in between: one that nobody has begun is over in a moment, and what
/// is typed and clicked meanwhile comes behind it.
class YieldPause {
 public:
  YieldPause() { ++living_; }
  ~YieldPause() { --living_; }
  YieldPause(const YieldPause&) = delete;
  YieldPause& operator=(const YieldPause&) = delete;

  static bool isActive() { return living_ > 0; }

 private:
  static inline int living_ = 0;
};

/// The application's one instance.
cSHAREDSubs& Subs();
