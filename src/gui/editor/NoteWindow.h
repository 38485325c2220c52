#pragma once

#include "core/text/RichText.h"

#include <QDialog>

class RichTextBox;

/// The text of a footnote, an endnote or a comment, to be read and changed. Whoever leaves with changes is asked.
class NoteWindow : public QDialog {
  Q_OBJECT

 public:
  /// New text has this font.
  NoteWindow(const InlineObject& note, const QFont& font, QWidget* parent);

  /// True when the text was changed.
  bool isChanged() const;
  RichText text() const;

  void reject() override;
  void done(int result) override;

 private:
  RichTextBox* txtNote;
};
