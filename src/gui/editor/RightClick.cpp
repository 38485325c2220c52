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
  std::optional<qsizetype> clicked;
  text_.setFocus();
  if (event.reason() == QContextMenuEvent::Mouse) {
    clicked = bringCaretTo(text_.viewport()->mapFromGlobal(where));
  } else {
    text_.ensureCursorVisible();
    where = text_.viewport()->mapToGlobal(text_.cursorRect().bottomLeft());
  }
  Q_EMIT asked(clicked);
  menu_.popup(where);
}

qsizetype RightClick::bringCaretTo(const QPoint& inViewport) {
  const QTextCursor selected = text_.textCursor();
  const QTextCursor clicked = text_.cursorForPosition(inViewport);
  const bool isInside = selected.hasSelection() && clicked.position() >= selected.selectionStart() &&
                        clicked.position() <= selected.selectionEnd();
  if (!isInside) {
    text_.setTextCursor(clicked);
  }
  return text_.fromDocument(clicked.position());
}
