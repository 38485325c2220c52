#pragma once

#include "gui/toolkit/RichTextBox.h"
#include "gui/toolkit/TextStretch.h"

#include <optional>
#include <vector>

/// What a change of a document took away, and where it stood: enough to put it back. Positions are those behind the
/// change.
struct TextChange {
  /// Small: what was replaced all over a text has thousands.
  struct Hunk {
    int at;
    int length;      ///< Of what stands there now.
    int before;      ///< Of what stood there.
    bool sameWords;  ///< They only looked otherwise; their text isn't kept.
  };

  std::vector<Hunk> hunks;  ///< In order, apart from each other.
  QString text;             ///< What stood there, of one hunk behind the other.
  Spans letters;            ///< Its looks, those of hunks without text too.
  int firstBlock = 0;
  std::vector<TextStretch::Block> blocks;  ///< How the paragraphs stood, when that may have changed.
};

/// A copy of what a document holds, which follows its changes and so knows what stood there before each. The look of
/// marks is no part of it.
class DocumentCopy {
 public:
  DocumentCopy() = default;
  DocumentCopy(const RichText& text, LookTable& looks) : whole_(TextStretch::of(text, looks)) {}

  /// Takes up what the document tells of a change. Nothing when it only touched marks.
  std::optional<TextChange> follow(const QTextDocument& document, int from, int removed, int added, LookTable& looks);

  bool isEmpty() const { return whole_.text.isEmpty(); }
  /// True when what the change took away was all that stands here.
  bool isWhatWasBefore(const TextChange& change) const;

 private:
  TextStretch whole_;
};

/// Makes of the document at the cursor what stood there before the change, in this colour where colours only mark.
void putBack(QTextCursor cursor, const TextChange& change, LookTable& looks, RichTextBox::Colour colour,
             const QPalette& palette);
