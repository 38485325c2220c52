#include "gui/editor/KeysPressed.h"

#include <QKeyEvent>
#include <QWidget>

KeysPressed::KeysPressed(QWidget& control) : QObject(&control) {
  control.installEventFilter(this);
}

bool KeysPressed::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Tab && key != Qt::Key_Backtab) {
      Q_EMIT pressed();
    }
  }
  return QObject::eventFilter(watched, event);
}
