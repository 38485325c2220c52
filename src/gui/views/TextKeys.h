#pragma once

#include <QObject>

class QKeyEvent;
class RichTextBox;

/// The keys that a text to write in takes for itself: Ctrl+B, Ctrl+I and Ctrl+U format the selection, Ctrl+W extends it
/// to the end of the word; Ctrl+L, Ctrl+E and Ctrl+R do nothing, so that no control aligns paragraphs with them.
class TextKeys : public QObject {
  Q_OBJECT

 public:
  /// Belongs to the pane.
  explicit TextKeys(RichTextBox& text);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool isOurs(const QKeyEvent& key) const;
  void run(int key);

  RichTextBox& text_;
};
