#pragma once

#include "core/text/RichText.h"

#include <QDialog>
#include <QHash>

class RichTextBox;

/// The text of a footnote, an endnote or a comment, to be read and changed, or read alone where the text that it
/// belongs to is locked. Whoever leaves with changes is asked.
class NoteWindow : public QDialog {
  Q_OBJECT

 public:
  /// New text has the font of the text that the note belongs to.
  NoteWindow(const InlineObject& note, const RichTextBox& owner, QWidget* parent);

  /// True when the text was changed.
  bool isChanged() const;
  RichText text() const;

  void reject() override;
  void done(int result) override;

 private:
  void undoWithKeys();
  RichText readable(const InlineObject& note);
  QWidget* buttons();

  RichTextBox* txtNote;
  /// Colours that were made readable here, and what they are in the text.
  QHash<quint32, quint32> toldColours_;
};
