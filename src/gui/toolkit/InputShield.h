#pragma once

#include "core/infra/Toolkit.h"

#include <QPointer>
#include <QWidget>

/// While it lives, what the user types and clicks, and a closing of windows, goes nowhere: a load or a save lets
/// the windows repaint, and nothing may change the project under it. Questions that are asked meanwhile are
/// answered as usual.
class InputShield : public QObject, public InputHold {
  Q_OBJECT

 public:
  InputShield();

  /// Keys and clicks reach this window through every shield, and Escape does wherever it is pressed.
  static void letThrough(QWidget& window);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool holdsBack(QObject* watched, QEvent* event);

  /// The modal window that the work was begun from, if any: it waits like the others.
  QPointer<QWidget> beganIn_;
};
