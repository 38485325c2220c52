#include "gui/views/NoteWindow.h"

#include "core/infra/Guard.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSharedLang.h"
#include "gui/toolkit/Colours.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/RichTextBox.h"
#include "gui/toolkit/TextHistory.h"
#include "gui/toolkit/WindowSettings.h"
#include "gui/views/TextKeys.h"
#include "gui/views/TextObjects.h"

#include <QDialogButtonBox>
#include <QPointer>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kLettersAndLines(60, 14);

QString captionOf(InlineObject::Kind kind) {
  switch (kind) {
    case InlineObject::Kind::Comment:
      return shownText(u"Comment"_s);
    case InlineObject::Kind::Endnote:
      return shownText(u"Endnote"_s);
    default:
      return shownText(u"Footnote"_s);
  }
}

}  // namespace

NoteWindow::NoteWindow(const InlineObject& note, const RichTextBox& owner, QWidget* parent)
    : QDialog(parent), txtNote(new RichTextBox(this)) {
  setObjectName(u"NoteWindow"_s);
  setWindowTitle(captionOf(note.kind));
  giveName(*txtNote, u"txtNote"_s, captionOf(note.kind));
  txtNote->setFont(owner.font());
  txtNote->setRichText(readable(note));
  txtNote->setTabChangesFocus(true);
  txtNote->setLocked(owner.Locked());
  if (!owner.Locked()) {
    new TextKeys(*txtNote);
    undoWithKeys();
  }
  auto* column = new QVBoxLayout(this);
  column->addWidget(txtNote, 1);
  column->addWidget(buttons());
  objects_ = new TextObjects(*txtNote);
  resize(fontMetrics().averageCharWidth() * kLettersAndLines.width(),
         fontMetrics().lineSpacing() * kLettersAndLines.height());
  restoreWindow(objectName(), *this);
  txtNote->moveCursor(owner.Locked() ? QTextCursor::Start : QTextCursor::End);
  txtNote->setFocus();
}

void NoteWindow::undoWithKeys() {
  auto* const history = new TextHistory(*txtNote);
  const auto add = [this, history](const QString& key, void (TextHistory::*run)()) {
    connect(new QShortcut(QKeySequence(key), this), &QShortcut::activated, history, run);
  };
  add(u"Ctrl+Z"_s, &TextHistory::undo);
  add(u"Ctrl+Y"_s, &TextHistory::redo);
  add(u"Ctrl+Shift+Z"_s, &TextHistory::redo);
}

/// Told colours have counterparts on a dark desktop; the note goes out with those that came in.
RichText NoteWindow::readable(const InlineObject& note) {
  RichText text = note.content ? *note.content : RichText();
  text.formatCharacters(0, -1, [this](CharFormat& format) {
    if (format.colour) {
      const quint32 shown = Colours::fromQt(Colours::readable(*format.colour, txtNote->palette()));
      toldColours_.insert(shown, *format.colour);
      format.colour = shown;
    }
  });
  return text;
}

QWidget* NoteWindow::buttons() {
  auto* row = new QDialogButtonBox(this);
  if (txtNote->Locked()) {
    row->addButton(makeButton(u"cmdExit"_s, u"&Close"_s), QDialogButtonBox::RejectRole);
  } else {
    auto* const ok = makeButton(u"cmdOK"_s, u"&OK"_s);
    ok->setToolTip(u"Takes the text (Ctrl+Return)"_s);
    // Beside the key in its caption.
    for (const QString& keys : {u"Ctrl+Return"_s, u"Ctrl+S"_s}) {
      connect(new QShortcut(QKeySequence(keys), this), &QShortcut::activated, ok, [ok] { ok->click(); });
    }
    row->addButton(ok, QDialogButtonBox::AcceptRole);
    row->addButton(makeButton(u"cmdExit"_s, u"&Cancel"_s), QDialogButtonBox::RejectRole);
  }
  connect(row, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(row, &QDialogButtonBox::rejected, this, &QDialog::reject);
  return row;
}

bool NoteWindow::isChanged() const {
  return txtNote->isEdited() || objects_->holdsUnsaved();
}

void NoteWindow::takeOpenNote() {
  objects_->takeOpenNote();
}

RichText NoteWindow::text() const {
  RichText text = objects_->withOpenNote(txtNote->namedRichText());
  text.formatCharacters(0, -1, [this](CharFormat& format) {
    if (format.colour) {
      format.colour = toldColours_.value(*format.colour, *format.colour);
    }
  });
  return text;
}

void NoteWindow::reject() {
  Guard("cmdExit_Click", "NoteWindow")([this] {
    if (!isChanged()) {
      QDialog::reject();
      return;
    }
    const QPointer<NoteWindow> alive(this);
    const Answer answer = toolkit().MsgBox(u"Do you want to save the changes?"_s, Buttons::YesNoOrBack);
    if (alive && answer == Answer::Yes) {
      accept();
    } else if (alive && answer == Answer::No) {
      QDialog::reject();
    }
  });
}

void NoteWindow::done(int result) {
  storeWindow(objectName(), *this);
  QDialog::done(result);
}
