#pragma once

#include <QObject>

class RichTextBox;

/// What opens out of the text of an editor: the notes in it, in a window of their own, and its links.
class EditorObjects : public QObject {
  Q_OBJECT

 public:
  /// Belongs to the pane.
  explicit EditorObjects(RichTextBox& text);

 private:
  void openNote(qsizetype position);
  /// Only addresses of the web and of mail, and only after they were shown: a text from elsewhere can name any.
  void openLink(const QString& address);

  RichTextBox& text_;
};
