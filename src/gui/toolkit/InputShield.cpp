#include "gui/toolkit/InputShield.h"

#include <QApplication>
#include <QEvent>

InputShield::InputShield() {
  qApp->installEventFilter(this);
}

// Releases pass: a key or button that went down before shall not seem to be down for ever.
bool InputShield::eventFilter(QObject* watched, QEvent* event) {
  if (QApplication::activeModalWidget() != nullptr) {
    return QObject::eventFilter(watched, event);
  }
  // Shortcuts are sent by the toolkit itself. An accepted override makes of the keys an ordinary press, which goes
  // nowhere below.
  if (event->type() == QEvent::ShortcutOverride || event->type() == QEvent::Shortcut) {
    event->accept();
    return true;
  }
  if (!event->spontaneous()) {
    return QObject::eventFilter(watched, event);
  }
  switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::ContextMenu:
    case QEvent::Wheel:
    case QEvent::Close:
      event->ignore();
      return true;
    default:
      return QObject::eventFilter(watched, event);
  }
}
