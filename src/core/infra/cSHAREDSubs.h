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

  /// Yields to the message loop, but no more than about ten times a second however often it is called.
  void RegularDoEvents();

  /// "major.minor.revision".
  QString AppVersion() const;
  /// The operating system's name with its version.
  QString GetWinPlatform() const;

 private:
  qint64 lastYield_ = 0;
};

/// The application's one instance.
cSHAREDSubs& Subs();
