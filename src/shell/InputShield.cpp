#include "shell/InputShield.h"

#include <QApplication>
#include <QEvent>

InputShield::InputShield() {
  qApp->installEventFilter(this);
}

// Releases pass: a key or button that went down before shall not seem to be down for ever.
bool InputShield::eventFilter(QObject* watched, QEvent* event) {
  if (!event->spontaneous() || QApplication::activeModalWidget() != nullptr) {
    return QObject::eventFilter(watched, event);
  }
  switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
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
