#include "gui/views/TextKeys.h"

#include "core/infra/Guard.h"
#include "gui/toolkit/RichTextBox.h"

#include <QKeyEvent>

TextKeys::TextKeys(RichTextBox& text) : QObject(&text), text_(text) {
  text.installEventFilter(this);
}

bool TextKeys::isOurs(const QKeyEvent& key) const {
  return key.modifiers() == Qt::ControlModifier &&
         (key.key() == Qt::Key_B || key.key() == Qt::Key_I || key.key() == Qt::Key_U);
}

void TextKeys::run(int key) {
  if (key == Qt::Key_B) {
    text_.setSelBold(!text_.SelBold());
  } else if (key == Qt::Key_I) {
    text_.setSelItalic(!text_.SelItalic());
  } else {
    text_.setSelUnderline(!text_.SelUnderline());
  }
}

bool TextKeys::eventFilter(QObject* watched, QEvent* event) {
  const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
  if (!isKey || !isOurs(*static_cast<QKeyEvent*>(event))) {
    return QObject::eventFilter(watched, event);
  }
  // Accepting the override keeps a menu's shortcut from taking the key first.
  event->accept();
  if (event->type() == QEvent::KeyPress) {
    Guard("txtMain_KeyDown", "frmEditor")([&] { run(static_cast<QKeyEvent*>(event)->key()); });
  }
  return true;
}
