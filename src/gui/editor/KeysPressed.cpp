#include "gui/editor/KeysPressed.h"

#include <QKeyEvent>
#include <QWidget>

namespace {

/// Not one that leads elsewhere: Tab, or what is held for a command.
bool isForTheControl(const QKeyEvent& event) {
  switch (event.key()) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_Control:
    case Qt::Key_Alt:
    case Qt::Key_Meta:
      return false;
    default:
      // Ctrl and Alt together are AltGr, which types.
      return (event.modifiers() & (Qt::AltModifier | Qt::ControlModifier)) != Qt::AltModifier;
  }
}

}  // namespace

KeysPressed::KeysPressed(QWidget& control) : QObject(&control) {
  control.installEventFilter(this);
}

bool KeysPressed::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress && isForTheControl(*static_cast<QKeyEvent*>(event))) {
    Q_EMIT pressed();
  }
  return QObject::eventFilter(watched, event);
}
