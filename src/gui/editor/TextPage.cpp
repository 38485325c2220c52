#include "gui/editor/TextPage.h"

#include "gui/toolkit/RichTextBox.h"

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTextDocument>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

namespace {

/// Pixels around the text in any case.
constexpr int kMargin = 20;
constexpr int kLettersInLine = 100;

}  // namespace

TextPage::TextPage(RichTextBox& text) : QObject(&text), text_(text) {
  text.document()->setDocumentMargin(kMargin);
  // The sides are as the page is.
  text.setBackgroundRole(QPalette::Base);
  text.setAutoFillBackground(true);
  text.setCursor(Qt::IBeamCursor);
  text.verticalScrollBar()->setCursor(Qt::ArrowCursor);
  text.horizontalScrollBar()->setCursor(Qt::ArrowCursor);
  text.installEventFilter(this);
  connect(&text, &RichTextBox::cursorPositionChanged, this, &TextPage::showTop);
}

/// The caret on the first letter would be in sight without the room above it, too.
void TextPage::showTop() {
  if (text_.textCursor().atStart()) {
    text_.verticalScrollBar()->setValue(0);
  }
}

/// Measured by words, since what fonts say of their average letter is worth little: of a font of symbols it may be a
/// fifth of what is seen.
void TextPage::lay() {
  const QString words = u"the quick brown fox jumps over the lazy dog, and it runs on and on"_s;
  const auto letters = static_cast<int>(words.size());
  const int line = text_.fontMetrics().horizontalAdvance(words) * kLettersInLine / letters + 2 * kMargin;
  const int room = text_.contentsRect().width() - text_.verticalScrollBar()->sizeHint().width();
  text_.setSideMargins(qMax(0, (room - line) / 2));
}

bool TextPage::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize || event->type() == QEvent::FontChange) {
    lay();
  } else if (event->type() == QEvent::Show) {
    showTop();
  }
  return (!passing_ && passOn(*event)) || QObject::eventFilter(watched, event);
}

/// What comes from the lines themselves and wasn't wanted there stands over them and goes on its way.
bool TextPage::passOn(QEvent& event) {
  QWidget& lines = *text_.viewport();
  const auto isBeside = [&](QPoint point) { return !lines.geometry().contains(point); };
  const QScopedValueRollback passing(passing_, true);
  switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
      dragging_ = isBeside(static_cast<QMouseEvent&>(event).pos());
      return dragging_ && passOnMouse(static_cast<QMouseEvent&>(event));
    case QEvent::MouseMove:
      return dragging_ && passOnMouse(static_cast<QMouseEvent&>(event));
    case QEvent::MouseButtonRelease:
      return std::exchange(dragging_, false) && passOnMouse(static_cast<QMouseEvent&>(event));
    case QEvent::Wheel: {
      const auto& wheel = static_cast<QWheelEvent&>(event);
      if (!isBeside(wheel.position().toPoint())) {
        return false;
      }
      QWheelEvent copy(lines.mapFrom(&text_, wheel.position()), wheel.globalPosition(), wheel.pixelDelta(),
                       wheel.angleDelta(), wheel.buttons(), wheel.modifiers(), wheel.phase(), wheel.inverted());
      return QCoreApplication::sendEvent(&lines, &copy);
    }
    case QEvent::ContextMenu: {
      const auto& menu = static_cast<QContextMenuEvent&>(event);
      if (menu.reason() != QContextMenuEvent::Mouse || !isBeside(menu.pos())) {
        return false;
      }
      QContextMenuEvent copy(menu.reason(), lines.mapFrom(&text_, menu.pos()), menu.globalPos(), menu.modifiers());
      return QCoreApplication::sendEvent(&lines, &copy);
    }
    default:
      return false;
  }
}

bool TextPage::passOnMouse(const QMouseEvent& event) {
  QMouseEvent copy(event.type(), text_.viewport()->mapFrom(&text_, event.position()), event.scenePosition(),
                   event.globalPosition(), event.button(), event.buttons(), event.modifiers());
  QCoreApplication::sendEvent(text_.viewport(), &copy);
  return true;
}
