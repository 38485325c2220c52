#include "gui/toolkit/InputShield.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>
#include <QWindow>

namespace {

constexpr auto kLetThrough = "reachedThroughInputShield";

QWidget* reachableWindow() {
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && window->property(kLetThrough).toBool()) {
      return window;
    }
  }
  return nullptr;
}

bool isPartOf(const QWidget& window, const QObject* object) {
  const auto* widget = qobject_cast<const QWidget*>(object);
  return widget != nullptr ? widget->window() == &window : object == window.windowHandle();
}

bool isEscape(const QEvent& event) {
  return event.type() == QEvent::KeyPress && static_cast<const QKeyEvent&>(event).key() == Qt::Key_Escape;
}

}  // namespace

InputShield::InputShield() : beganIn_(QApplication::activeModalWidget()) {
  qApp->installEventFilter(this);
}

void InputShield::letThrough(QWidget& window) {
  window.setProperty(kLetThrough, true);
}

bool InputShield::eventFilter(QObject* watched, QEvent* event) {
  return holdsBack(watched, event) || QObject::eventFilter(watched, event);
}

// Releases pass: a key or button that went down before shall not seem to be down for ever.
bool InputShield::holdsBack(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
    case QEvent::InputMethod:
    case QEvent::DragEnter:
    case QEvent::Drop:
      break;
    case QEvent::KeyPress:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::ContextMenu:
    case QEvent::Wheel:
    case QEvent::Close:
      if (event->spontaneous()) {
        break;
      }
      return false;
    default:
      return false;
  }
  if (const QWidget* const modal = QApplication::activeModalWidget(); modal != nullptr && modal != beganIn_) {
    return false;
  }
  QWidget* const reachable = reachableWindow();
  if (reachable != nullptr && event->type() != QEvent::Close && isPartOf(*reachable, watched)) {
    return false;
  }
  // Shortcuts are sent by the toolkit itself. An accepted override makes of the keys an ordinary press, which goes
  // nowhere below.
  if (event->type() == QEvent::ShortcutOverride || event->type() == QEvent::Shortcut) {
    event->accept();
    return true;
  }
  if (reachable != nullptr && isEscape(*event)) {
    const std::unique_ptr<QEvent> copy(event->clone());
    QCoreApplication::sendEvent(reachable, copy.get());
    // Left alone it would go on to the parents of who was to have it.
    event->accept();
    return true;
  }
  event->ignore();
  return true;
}
