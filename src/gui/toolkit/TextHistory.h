#pragma once

#include "gui/toolkit/TextChange.h"

#include <QObject>

#include <functional>
#include <optional>
#include <vector>

/// Takes changes of a text back, and back again: letters, formats and objects, 50 steps. A step is what one Changed of
/// the box tells of. Where all text has one colour others are marks: they are no step, and what is put back has none.
///
/// An empty text is none of the states that can be gone back to, unless it is the last: what is written into it belongs
/// to the step that emptied it (so all that was cut and put back is no step), and before a text that was opened empty
/// there is nothing.
///
/// Kept are not the texts but what each step took away, so a key costs no walk over the text.
class TextHistory : public QObject {
  Q_OBJECT

 public:
  static constexpr size_t kSteps = 50;

  /// Belongs to the box. The one colour is asked for when text is put back; without it colours are a part of the text.
  explicit TextHistory(RichTextBox& box, std::function<RichTextBox::Colour()> textColour = {});

  /// What the box shows, or is given next, is where it begins.
  void clear();
  bool canUndo() const;
  bool canRedo() const { return UndoPos < UndoStack.size(); }
  /// Nothing happens in a locked box or when there is nothing to take back. The caret goes to what has changed; where
  /// that lies all over the text, caret and view stay. A format set for what is typed next is the first to go.
  void undo();
  void redo();

 Q_SIGNALS:
  /// There is something to undo or to redo now, or no more.
  void availabilityChanged();
  /// A step was taken back. Marks that lay over what stood there went with it.
  void undone();

 private:
  /// In the order in which it happened.
  struct Step {
    std::vector<TextChange> changes;
    int composition = 0;
  };

  void watch();
  void startOver();
  void takeUp(int from, int removed, int added);
  void PushUndoState();
  void push(Step step);
  void joinLast(Step step);
  void go(size_t from, size_t to);
  void keepCaret(int position, int height);
  void placeCaret(const TextChange& change);
  void shareTexts(Step& step);
  void tell();

  RichTextBox& box_;
  std::function<RichTextBox::Colour()> textColour_;
  LookTable looks_;
  /// What was loaded; copied only once it is changed.
  std::optional<RichText> loaded_;
  DocumentCopy copy_;
  /// Since the last step.
  Step open_;
  bool wasEmpty_ = false;
  /// What is ahead of UndoPos takes a step back again.
  std::vector<Step> UndoStack;
  size_t UndoPos = 0;
  /// The step that is being taken back, or again.
  std::optional<size_t> going_;
  bool couldUndo_ = false;
  bool couldRedo_ = false;
};
