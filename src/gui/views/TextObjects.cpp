#include "gui/views/TextObjects.h"

#include "core/infra/Toolkit.h"
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
  if (!note) {
    return;
  }
  const QPointer<RichTextBox> pane(&text_);
  const OverActiveWindow<NoteWindow> window(*note, text_);
  if (!window.accepted() || !pane || !window->isChanged() || pane->objectAt(position) != note) {
    return;
  }
  InlineObject changed = *note;
  changed.content = std::make_shared<const RichText>(window->text());
  pane->replaceObject(position, std::make_shared<const InlineObject>(changed));
}

void TextObjects::openLink(const QString& address) {
  const QUrl url(address, QUrl::TolerantMode);
  if (!mayOpen(url)) {
    toolkit().MsgBox(
        u"This link leads to\n\n%1\n\nOnly addresses of the web and of mail are opened from here."_s.arg(address));
    return;
  }
  const Answer answer = toolkit().MsgBox(u"Open this address?\n\n%1"_s.arg(address), Buttons::YesNo);
  if (answer == Answer::Yes && !toolkit().openDocument(address)) {
    toolkit().MsgBox(u"%1 could not be opened."_s.arg(address));
  }
}
