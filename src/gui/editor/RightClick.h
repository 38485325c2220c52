#pragma once

#include <QObject>

#include <optional>

class QContextMenuEvent;
class QMenu;
class RichTextBox;

/// Pops a menu up over a text, at the mouse or, when a key asks for it, at the caret. A click outside of the selection
/// brings the caret there first.
class RightClick : public QObject {
  Q_OBJECT

 public:
  /// Belongs to the text.
  RightClick(RichTextBox& text, QMenu& menu);

 Q_SIGNALS:
  /// The caret stands where the menu is asked for, or in a selection there; what the menu offers can be made to fit.
  /// The position in the text that was clicked, unless a key has asked.
  void asked(std::optional<qsizetype> clicked);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void popUp(const QContextMenuEvent& event);
  /// Returns the position there.
  qsizetype bringCaretTo(const QPoint& inViewport);

  RichTextBox& text_;
  QMenu& menu_;
};
