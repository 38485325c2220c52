#pragma once

#include <QCoreApplication>
#include <QTest>
#include <QWidget>

/// Far more than anything takes: machines do other work too.
inline constexpr int kPatience = 60000;

/// Runs the message loop until this holds; false when it doesn't come true.
template <class Condition>
bool waitFor(const Condition& holds) {
  return QTest::qWaitFor([&] { return holds(); }, kPatience);
}

/// Only the active window hears keys and shortcuts.
inline bool waitUntilActive(QWidget& window) {
  // Another window may be on its way to be the active one.
  QCoreApplication::processEvents();
  window.activateWindow();
  return QTest::qWaitForWindowActive(&window, kPatience);
}

inline bool waitUntilShown(QWidget& window) {
  return QTest::qWaitForWindowExposed(&window, kPatience);
}
