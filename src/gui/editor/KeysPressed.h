#pragma once

#include <QObject>

class QWidget;

/// Tells of each key that goes down in a control, arrows too, but not of those that move on or call a
/// command.
class KeysPressed : public QObject {
  Q_OBJECT

 public:
  /// Belongs to the control.
  explicit KeysPressed(QWidget& control);

 Q_SIGNALS:
  void pressed();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
};
