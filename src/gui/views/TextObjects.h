#pragma once

#include <QObject>

class RichTextBox;

/// What opens out of a text: the notes in it, in a window of their own, and its links. In a locked text notes can be
/// read and no more.
class TextObjects : public QObject {
  Q_OBJECT

 public:
  /// Belongs to the pane.
  explicit TextObjects(RichTextBox& text);

 private:
  void openNote(qsizetype position);
  /// Only addresses of the web and of mail, and only after they were shown: a text from elsewhere can name any.
  void openLink(const QString& address);

  RichTextBox& text_;
};
