#pragma once

#include "core/text/InlineObject.h"
#include "core/text/RichText.h"

#include <QObject>
#include <QPointer>

#include <memory>

class NoteWindow;
class RichTextBox;

/// What opens out of a text: the notes in it, in a window of their own, and its links. In a locked text notes can be
/// read and no more.
class TextObjects : public QObject {
  Q_OBJECT

 public:
  /// Belongs to the pane.
  explicit TextObjects(RichTextBox& text);

  /// A note that is being written holds what the text doesn't yet.
  bool holdsUnsaved() const;
  /// The same text with the note in it as it is being written; the text itself and the window stay as they are.
  RichText withOpenNote(RichText text) const;
  /// What the open note holds goes into the text, without a question.
  void takeOpenNote();

 private:
  void openNote(qsizetype position);
  /// Only addresses of the web and of mail, and only after they were shown: a text from elsewhere can name any.
  void openLink(const QString& address);

  /// False when the note has left the text.
  bool take(const NoteWindow& window);
  std::shared_ptr<const InlineObject> changedNote(const NoteWindow& window) const;

  RichTextBox& text_;
  QPointer<NoteWindow> window_;
  qsizetype position_ = 0;
  std::shared_ptr<const InlineObject> note_;
};
