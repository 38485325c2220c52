#include "gui/views/TextObjects.h"

#include "core/infra/Toolkit.h"
#include "core/infra/cSharedLang.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/toolkit/OverActiveWindow.h"
#include "gui/toolkit/RichTextBox.h"
#include "gui/views/NoteWindow.h"

#include <QPointer>
#include <QShortcut>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "TextObjects";

bool mayOpen(const QUrl& url) {
  const QString scheme = url.scheme().toLower();
  return url.isValid() && (scheme == u"http" || scheme == u"https" || scheme == u"mailto");
}

/// With places where a line may end: a long address would leave the box.
QString breakable(const QString& address) {
  constexpr int kPiece = 60;
  QString pieces;
  for (qsizetype at = 0; at < address.size(); at += kPiece) {
    pieces += (at > 0 ? u"\n"_s : QString()) + address.mid(at, kPiece);
  }
  return pieces;
}

}  // namespace

TextObjects::TextObjects(RichTextBox& text) : QObject(&text), text_(text) {
  connect(&text, &RichTextBox::noteActivated, this, guarded("openNote", kModule, this, &TextObjects::openNote));
  if (text.Locked()) {  // where it is written, the window's menu has the key
    auto* const open = new QShortcut(QKeySequence(u"Ctrl+Return"_s), &text);
    open->setContext(Qt::WidgetShortcut);
    connect(open, &QShortcut::activated, &text, &RichTextBox::openAtCaret);
  }
  connect(&text, &RichTextBox::linkActivated, this, guarded("openLink", kModule, this, &TextObjects::openLink));
}

void TextObjects::openNote(qsizetype position) {
  const auto note = text_.objectAt(position);
  if (!note || window_) {
    return;
  }
  position_ = position;
  note_ = note;
  const QPointer<TextObjects> alive(this);
  const OverActiveWindow<NoteWindow> window(*note, text_);
  window_ = window.operator->();
  while (window.accepted() && alive && window->isChanged() && !take(*window.operator->())) {
    toolkit().MsgBox(
        u"This note isn't in the text any more, so it can't be changed. Please copy its text to keep it."_s);
  }
}

bool TextObjects::take(const NoteWindow& window) {
  if (text_.objectAt(position_) != note_) {
    return false;
  }
  note_ = changedNote(window);
  text_.replaceObject(position_, note_);
  return true;
}

std::shared_ptr<const InlineObject> TextObjects::changedNote(const NoteWindow& window) const {
  InlineObject changed = *note_;
  changed.content = std::make_shared<const RichText>(window.text());
  return std::make_shared<const InlineObject>(std::move(changed));
}

RichText TextObjects::withOpenNote(RichText text) const {
  if (holdsUnsaved() && text_.objectAt(position_) == note_) {
    const CharFormat format = text.charFormatAt(position_);
    text.replace(position_, 1, RichText::fromObject(changedNote(*window_), format));
  }
  return text;
}

bool TextObjects::holdsUnsaved() const {
  return window_ && window_->isChanged();
}

void TextObjects::takeOpenNote() {
  if (holdsUnsaved()) {
    window_->takeOpenNote();
    take(*window_);
  }
}

void TextObjects::openLink(const QString& address) {
  const QUrl url(address, QUrl::TolerantMode);
  if (!mayOpen(url)) {
    toolkit().MsgBox(
        translated(u"This link leads to\n\n%1\n\nOnly addresses of the web and of mail are opened from here."_s)
            .arg(breakable(address)));
    return;
  }
  const Answer answer =
      toolkit().MsgBox(translated(u"Open this address?\n\n%1"_s).arg(breakable(address)), Buttons::YesNo);
  if (answer == Answer::Yes && !toolkit().openDocument(address)) {
    toolkit().MsgBox(translated(u"%1 could not be opened."_s).arg(address));
  }
}
