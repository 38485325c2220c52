#pragma once

#include <QObject>

class QMouseEvent;
class RichTextBox;

/// Sets a text as a page: with room around it, and in the middle of a wide window in lines that an eye can follow. What
/// the mouse does beside the lines it does to them.
class TextPage : public QObject {
  Q_OBJECT

 public:
  /// Belongs to the text.
  explicit TextPage(RichTextBox& text);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void lay();
  void showTop();
  bool passOn(QEvent& event);
  bool passOnMouse(const QMouseEvent& event);

  RichTextBox& text_;
  /// A button that was pressed beside the lines is held.
  bool dragging_ = false;
  bool passing_ = false;
};
