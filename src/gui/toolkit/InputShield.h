#pragma once

#include <QObject>

/// While it lives, what the user types and clicks, and a closing of windows, goes nowhere: a load or a save lets
/// the windows repaint, and nothing may change the project under it. Questions that are asked meanwhile are
/// answered as usual.
class InputShield : public QObject {
  Q_OBJECT

 public:
  InputShield();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
};
