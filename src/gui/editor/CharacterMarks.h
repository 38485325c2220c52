#pragma once

#include <QObject>

class RichTextBox;
class TextMarkLayer;

/// The names of the book's characters, marked in a text, and the way from such a name to its character.
class CharacterMarks : public QObject {
  Q_OBJECT

 public:
  /// Belongs to the pane.
  CharacterMarks(RichTextBox& pane, TextMarkLayer& layer);

  /// What the characters of the book are called in a text.
  static QStringList knownNames();

  /// Marks the names that stand in the text now.
  void show();
  void hide();
  /// The first character of the book who is called as the marked name that the position is in, or at the end of; 0
  /// where there is none.
  qint32 characterAt(qsizetype position) const;

 Q_SIGNALS:
  /// A name was double-clicked.
  void characterWanted(qint32 id);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void openFrom(qsizetype caret);

  RichTextBox& pane_;
  TextMarkLayer& layer_;
};
