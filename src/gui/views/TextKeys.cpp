#include "gui/views/TextKeys.h"

#include "core/infra/Guard.h"
#include "gui/toolkit/RichTextBox.h"

#include <QKeyEvent>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

TextKeys::TextKeys(RichTextBox& text) : QObject(&text), text_(text) {
  text.installEventFilter(this);
}

bool TextKeys::isOurs(const QKeyEvent& key) const {
  constexpr std::array ours = {Qt::Key_B, Qt::Key_I, Qt::Key_U, Qt::Key_W, Qt::Key_L, Qt::Key_E, Qt::Key_R};
  return key.modifiers() == Qt::ControlModifier && std::find(ours.begin(), ours.end(), key.key()) != ours.end();
}

void TextKeys::run(int key) {
  switch (key) {
    case Qt::Key_B:
      text_.toggleSelBold();
      break;
    case Qt::Key_I:
      text_.toggleSelItalic();
      break;
    case Qt::Key_U:
      text_.toggleSelUnderline();
      break;
    case Qt::Key_W:
      text_.Span(u" ,;:.?!"_s, true, true);
      break;
    default:
      break;
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
