#include "gui/editor/RightClick.h"

#include "core/infra/Guard.h"
#include "gui/toolkit/RichTextBox.h"

#include <QContextMenuEvent>
#include <QMenu>

RightClick::RightClick(RichTextBox& text, QMenu& menu) : QObject(&text), text_(text), menu_(menu) {
  text.installEventFilter(this);
  text.viewport()->installEventFilter(this);
}

bool RightClick::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::ContextMenu) {
    return QObject::eventFilter(watched, event);
  }
  event->accept();
  Guard("txtMain_MouseUp", "frmEditor")([&] { popUp(*static_cast<QContextMenuEvent*>(event)); });
  return true;
}

void RightClick::popUp(const QContextMenuEvent& event) {
  QPoint where = event.globalPos();
  text_.setFocus();
  if (event.reason() == QContextMenuEvent::Mouse) {
    bringCaretTo(text_.viewport()->mapFromGlobal(where));
  } else {
    text_.ensureCursorVisible();
    where = text_.viewport()->mapToGlobal(text_.cursorRect().bottomLeft());
  }
  Q_EMIT asked();
  menu_.popup(where);
}

void RightClick::bringCaretTo(const QPoint& inViewport) {
  const QTextCursor selected = text_.textCursor();
  const QTextCursor clicked = text_.cursorForPosition(inViewport);
  const bool isInside = selected.hasSelection() && clicked.position() >= selected.selectionStart() &&
                        clicked.position() <= selected.selectionEnd();
  if (!isInside) {
    text_.setTextCursor(clicked);
  }
}
