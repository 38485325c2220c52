#include "gui/editor/EditorFind.h"

#include "core/infra/BusyPointer.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSharedLang.h"
#include "core/text/RichText.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/toolkit/RichTextBox.h"
#include "gui/views/frmFind.h"

using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "frmEditor";

/// As the text would hold it.
QString asInText(const QString& text) {
  return RichText::fromPlain(text).text();
}

}  // namespace

EditorFind::EditorFind(RichTextBox& text, QWidget& window) : QObject(&window), text_(text), window_(window) {}

void EditorFind::makeDialog() {
  find_ = new frmFind(&window_);
  connect(find_, &frmFind::DoFind, this, guarded("Find_DoFind", kModule, this, &EditorFind::Find_DoFind));
  connect(find_, &frmFind::DoPrevious, this, guarded("Find_DoPrevious", kModule, this, &EditorFind::Find_DoPrevious));
  connect(find_, &frmFind::DoReplace, this, guarded("Find_DoReplace", kModule, this, &EditorFind::Find_DoReplace));
  connect(find_, &frmFind::DoReplaceAll, this,
          guarded("Find_DoReplaceAll", kModule, this, &EditorFind::Find_DoReplaceAll));
  // Back to writing.
  connect(find_, &QDialog::rejected, &text_, [this] {
    window_.activateWindow();
    text_.setFocus();
  });
}

void EditorFind::ShowFind(bool toReplace) {
  if (!find_) {
    makeDialog();
    find_->setText(last_.text);
  }
  const QString selected = frmFind::termIn(text_);
  find_->setText(selected);
  find_->ask(toReplace && !selected.isEmpty());
  keepDialogClear();
}

void EditorFind::close() {
  if (find_) {
    find_->hide();
    find_->deleteLater();
    find_ = nullptr;
  }
}

bool EditorFind::take(const QString& text, bool matchCase) {
  last_ = {asInText(text), matchCase ? Qt::CaseSensitive : Qt::CaseInsensitive};
  return !last_.text.isEmpty();
}

void EditorFind::search(const QString& text) {
  if (!take(text, false)) {
    return;
  }
  if (const auto first = indexFrom(0)) {
    show(*first, last_.text.size());
  }
}

void EditorFind::FindNext() {
  if (last_.text.isEmpty()) {
    ShowFind(false);
  } else if (const auto found = nextFrom(text_.SelStart() + 1)) {
    show(*found, last_.text.size());
  }
}

void EditorFind::FindPrev() {
  if (last_.text.isEmpty()) {
    ShowFind(false);
  } else {
    findPrevious();
  }
}

void EditorFind::Find_DoFind(const QString& text, bool matchCase) {
  if (take(text, matchCase)) {
    FindNext();
  }
}

void EditorFind::Find_DoPrevious(const QString& text, bool matchCase) {
  if (take(text, matchCase)) {
    FindPrev();
  }
}

std::optional<qsizetype> EditorFind::indexFrom(qsizetype start) const {
  const qsizetype found = text_.Text().indexOf(last_.text, start, last_.caseSensitivity);
  return found < 0 ? std::nullopt : std::optional(found);
}

/// Where the next match begins. The character at the caret is skipped, so that the match that is selected isn't found
/// again; with it one that begins at the very first character.
std::optional<qsizetype> EditorFind::nextFrom(qsizetype start) {
  auto found = indexFrom(start);
  if (!found && text_.SelStart() >= 2) {
    const QPointer<EditorFind> alive(this);
    const Answer answer = toolkit().MsgBox(u"Search string not found. Start at top?"_s, Buttons::YesNo);
    if (answer != Answer::Yes || !alive) {
      return {};
    }
    text_.setSelStart(1);
    found = indexFrom(1);
  }
  if (!found) {
    toolkit().MsgBox(u"No matches"_s);
  }
  return found;
}

/// Where the last match begins that lies within the characters in front of this place.
std::optional<qsizetype> EditorFind::previousWithin(qsizetype end) const {
  const qsizetype found =
      end < 1 ? -1 : QStringView(text_.Text()).first(end).lastIndexOf(last_.text, -1, last_.caseSensitivity);
  return found < 0 ? std::nullopt : std::optional(found);
}

/// Backwards the character in front of the caret is skipped, except at the end of the text.
void EditorFind::findPrevious() {
  const qsizetype end = text_.Text().size();
  const bool wasAtEnd = text_.SelStart() == end;
  auto found = previousWithin(wasAtEnd ? end : text_.SelStart() - 1);
  if (!found && !wasAtEnd) {
    const QPointer<EditorFind> alive(this);
    const Answer answer = toolkit().MsgBox(u"Search string not found. Start at end?"_s, Buttons::YesNo);
    if (answer != Answer::Yes || !alive) {
      return;
    }
    text_.setSelStart(text_.Text().size());
    found = previousWithin(text_.Text().size());
  }
  if (found) {
    show(*found, last_.text.size());
  } else {
    toolkit().MsgBox(u"No matches"_s);
  }
}

/// What was put in isn't searched, and what follows upon it is, though it begin at the caret.
qsizetype EditorFind::behindReplaced() const {
  const bool isThere = replaced_ && text_.SelStart() == replaced_->start && text_.SelText() == replaced_->text;
  return isThere ? replaced_->start + replaced_->text.size() : text_.SelStart() + 1;
}

void EditorFind::Find_DoReplace(const QString& text, const QString& with, bool matchCase) {
  if (!take(text, matchCase)) {
    return;
  }
  const auto found = nextFrom(behindReplaced());
  if (!found) {
    return;
  }
  const QString replacement = asInText(with);
  text_.select(*found, last_.text.size());
  text_.setSelText(replacement);
  replaced_ = Replaced{*found, replacement};
  show(*found, replacement.size());
}

void EditorFind::Find_DoReplaceAll(const QString& text, const QString& with, bool matchCase) {
  if (!take(text, matchCase)) {
    return;
  }
  const QString replacement = asInText(with);
  if (last_.text.compare(replacement, last_.caseSensitivity) == 0) {
    Q_EMIT told(translated(u"Nothing replaced: both texts are the same"_s));
    return;
  }
  const BusyPointer pointer;
  const qsizetype count = text_.replaceAll(last_.text, replacement, last_.caseSensitivity);
  Q_EMIT told(count == 0   ? translated(u"No matches, nothing replaced"_s)
              : count == 1 ? translated(u"Replaced 1 occurrence"_s)
                           : translated(u"Replaced %L1 occurrences"_s).arg(count));
}

void EditorFind::show(qsizetype start, qsizetype length) {
  text_.select(start, length);
  text_.ensureCursorVisible();
  keepDialogClear();
}

void EditorFind::keepDialogClear() {
  if (find_) {
    find_->keepClearOf(text_);
  }
}
