#include "gui/toolkit/TextHistory.h"

#include <QScrollBar>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>
#include <iterator>
#include <limits>
#include <utility>

namespace {

/// From here on it pays to look whether a text is held already.
constexpr qsizetype kLongText = 1000;

/// As it does when all of a word's places were replaced.
bool liesAllOver(const std::vector<TextChange>& changes) {
  const auto& hunks = changes.front().hunks;
  return changes.size() == 1 &&
         std::count_if(hunks.begin(), hunks.end(), [](const TextChange::Hunk& hunk) { return !hunk.sameWords; }) > 1;
}

/// Where the caret stands in the text once that was put back; in front of a piece that it was in.
int caretAfter(int caret, const std::vector<TextChange::Hunk>& hunks) {
  int shift = 0;
  for (const TextChange::Hunk& hunk : hunks) {
    if (hunk.at + hunk.length > caret) {
      return std::min(hunk.at, caret) + shift;
    }
    shift += hunk.before - hunk.length;
  }
  return caret + shift;
}

}  // namespace

TextHistory::TextHistory(RichTextBox& box, std::function<RichTextBox::Colour()> textColour)
    : QObject(&box), box_(box), textColour_(std::move(textColour)) {
  connect(&box, &RichTextBox::Loaded, this, &TextHistory::startOver);
  connect(&box, &RichTextBox::Changed, this, &TextHistory::PushUndoState);
  connect(&box, &QTextEdit::currentCharFormatChanged, this, &TextHistory::tell);
  connect(&box, &QTextEdit::cursorPositionChanged, this, &TextHistory::tell);
  watch();
  clear();
}

void TextHistory::clear() {
  UndoStack.clear();
  UndoPos = 0;
  open_ = {};
  looks_ = LookTable(!textColour_);
  copy_ = {};
  loaded_ = box_.richText();
  tell();
}

void TextHistory::watch() {
  connect(box_.document(), &QTextDocument::contentsChange, this, &TextHistory::takeUp);
}

/// A text that was put in place of another without a new beginning is one change of it.
void TextHistory::startOver() {
  watch();
  if (UndoStack.empty()) {
    clear();
    return;
  }
  looks_.forgetDocument();
  constexpr int all = std::numeric_limits<int>::max();
  takeUp(0, all, all);
  PushUndoState();
}

void TextHistory::takeUp(int from, int removed, int added) {
  if (loaded_) {
    copy_ = DocumentCopy(*loaded_, looks_);
    loaded_.reset();
  }
  if (open_.changes.empty()) {
    wasEmpty_ = copy_.isEmpty();
  }
  if (auto change = copy_.follow(*box_.document(), from, removed, added, looks_)) {
    open_.changes.push_back(std::move(*change));
  }
}

void TextHistory::PushUndoState() {
  if (open_.changes.empty()) {
    return;
  }
  open_.composition = box_.composition();
  shareTexts(open_);
  push(std::exchange(open_, {}));
  tell();
}

void TextHistory::push(Step step) {
  if (going_) {
    UndoStack[*going_] = std::move(step);
    return;
  }
  UndoStack.resize(UndoPos);
  const bool composedInto = UndoPos > 0 && step.composition != 0 && step.composition == UndoStack.back().composition;
  if (wasEmpty_ || composedInto) {
    joinLast(std::move(step));
    return;
  }
  if (UndoStack.size() == kSteps) {
    UndoStack.erase(UndoStack.begin());
  }
  UndoStack.push_back(std::move(step));
  UndoPos = UndoStack.size();
}

void TextHistory::joinLast(Step step) {
  if (UndoPos == 0) {
    return;
  }
  std::vector<TextChange>& changes = UndoStack.back().changes;
  if (changes.size() == 1 && copy_.isWhatWasBefore(changes[0])) {  // all was cut and put back
    UndoStack.pop_back();
    --UndoPos;
    return;
  }
  std::move(step.changes.begin(), step.changes.end(), std::back_inserter(changes));
}

bool TextHistory::canUndo() const {
  return UndoPos > 0 || box_.hasCaretFormat();
}

void TextHistory::undo() {
  if (box_.hasCaretFormat()) {
    box_.dropCaretFormat();
    tell();
  } else if (canUndo() && !box_.Locked()) {
    go(UndoPos - 1, UndoPos - 1);
    Q_EMIT undone();
  }
}

void TextHistory::redo() {
  if (canRedo() && !box_.Locked()) {
    go(UndoPos, UndoPos + 1);
  }
}

/// The step gives way to the one that takes it back again.
void TextHistory::go(size_t from, size_t to) {
  const Step step = std::move(UndoStack[from]);
  const RichTextBox::Colour colour = textColour_ ? textColour_() : std::nullopt;
  const int caret = box_.textCursor().position();
  const int height = box_.cursorRect().top();
  going_ = from;
  UndoPos = to;
  box_.asOneChange([&] {
    QTextCursor cursor(box_.document());
    cursor.beginEditBlock();
    std::for_each(step.changes.rbegin(), step.changes.rend(),
                  [&](const TextChange& change) { putBack(cursor, change, looks_, colour, box_.palette()); });
    cursor.endEditBlock();
    if (liesAllOver(step.changes)) {
      keepCaret(caretAfter(caret, step.changes.front().hunks), height);
    } else {
      placeCaret(step.changes.front());
    }
  });
  going_.reset();
  if (UndoStack[from].changes.empty()) {  // it had changed nothing that is told apart
    UndoStack.erase(UndoStack.begin() + static_cast<std::ptrdiff_t>(from));
    UndoPos = from;
  }
  tell();
}

/// What the writer was looking at stays where it was, too.
void TextHistory::keepCaret(int position, int height) {
  QTextCursor caret = box_.textCursor();
  caret.setPosition(position);
  box_.setTextCursor(caret);
  QScrollBar& scroll = *box_.verticalScrollBar();
  scroll.setValue(scroll.value() + box_.cursorRect().top() - height);
}

void TextHistory::placeCaret(const TextChange& change) {
  QTextCursor caret = box_.textCursor();
  if (!change.hunks.empty()) {
    const TextChange::Hunk& first = change.hunks.front();
    caret.setPosition(first.at + first.before);
  } else {
    caret.setPosition(box_.document()->findBlockByNumber(change.firstBlock).position());
  }
  box_.setTextCursor(caret);
}

/// Cutting a chapter and putting it back, again and again, holds it once.
void TextHistory::shareTexts(Step& step) {
  for (TextChange& change : step.changes) {
    if (change.text.size() < kLongText) {
      continue;
    }
    for (const Step& with : UndoStack) {
      const auto same = std::find_if(with.changes.begin(), with.changes.end(),
                                     [&](const TextChange& other) { return other.text == change.text; });
      if (same != with.changes.end()) {
        change.text = same->text;
        break;
      }
    }
  }
}

void TextHistory::tell() {
  if (couldUndo_ != canUndo() || couldRedo_ != canRedo()) {
    couldUndo_ = canUndo();
    couldRedo_ = canRedo();
    Q_EMIT availabilityChanged();
  }
}
