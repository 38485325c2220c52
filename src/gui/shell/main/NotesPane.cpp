#include "gui/shell/main/NotesPane.h"

#include "core/infra/Guard.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/clsNote.h"
#include "core/model/clsProject.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/toolkit/MemoEdit.h"
#include "gui/toolkit/ReadableHints.h"
#include "gui/views/ListView.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QSignalBlocker>
#include <QSplitter>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "frmMain";

/// A title is one line, whatever a file or the clipboard brought.
QString oneLine(QString title) {
  static const QRegularExpression lineEnds(u"[\\r\\n\\x{2028}\\x{2029}]+"_s);
  return title.replace(lineEnds, u" "_s);
}

/// A field that is for reading has the colour of what surrounds it.
void showLocked(QWidget& field, bool locked, const QPalette& around) {
  QPalette palette;
  if (locked) {
    palette.setBrush(QPalette::Base, around.brush(QPalette::Button));
  }
  field.setPalette(palette);
}

/// Its hint is seen on the ground of what is locked alone.
void showHint(QWidget& field, const QPalette& around) {
  QPalette palette;
  palette.setColor(QPalette::PlaceholderText, ReadableHints::readable(around, QPalette::Button));
  field.setPalette(palette);
}

/// Null when there is none.
std::shared_ptr<clsNote> noteInBook(qint32 id) {
  const auto& notes = g_Project->Notes;
  const auto found = std::find_if(notes.begin(), notes.end(), [id](const auto& note) { return note->ID() == id; });
  return found == notes.end() ? nullptr : *found;
}

ListRow noteRow(qint32 id) {
  const QString title = oneLine(g_Project->NoteByID(id)->Title);
  return {{title}, "note", {}, title.isEmpty() ? QStringList{shownText(u"without a title"_s)} : QStringList()};
}

QVBoxLayout* plainColumn() {
  auto* column = new QVBoxLayout;
  column->setContentsMargins(0, 0, 0, 0);
  return column;
}

void addButtons(QVBoxLayout& column, std::initializer_list<QPushButton*> buttons) {
  auto* row = new QHBoxLayout;
  for (QPushButton* button : buttons) {
    row->addWidget(button);
  }
  row->addStretch(1);
  column.addLayout(row);
}

}  // namespace

QString NotesPane::hint() {
  return shownText(u"You must click SAVE to store any changes."_s);
}

// The letters of the buttons are those that the menu bar leaves.
NotesPane::NotesPane(QWidget* parent)
    : QWidget(parent),
      ListNotes(new ListView({u"Note"_s})),
      cmdNew(makeButton(u"cmdNew"_s, u"Ne&w"_s)),
      cmdEdit(makeButton(u"cmdEdit"_s, u"E&dit"_s)),
      txtNoteTitle(makeLineEdit(u"txtNoteTitle"_s, u"Note title"_s)),
      txtNoteEditor(new MemoEdit),
      cmdSave(makeButton(u"cmdSave"_s, u"Sa&ve"_s)),
      cmdDiscard(makeButton(u"cmdDiscard"_s, u"Disca&rd"_s)) {
  setObjectName(u"FrameNotes"_s);
  giveName(*ListNotes, u"ListNotes"_s, u"Project notes"_s);
  giveName(*txtNoteEditor, u"txtNoteEditor"_s, u"Note text"_s);
  buildLayout();
  connectSignals();
  showHint(*txtNoteEditor, palette());
  showState();
}

void NotesPane::buildLayout() {
  auto* splitter = new QSplitter(Qt::Horizontal);
  splitter->setChildrenCollapsible(false);
  for (QVBoxLayout* column : {columnOfList(), columnOfNote()}) {
    auto* side = new QWidget;
    side->setLayout(column);
    splitter->addWidget(side);
  }
  splitter->setStretchFactor(0, 1);
  splitter->setStretchFactor(1, 2);

  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(splitter);
}

QVBoxLayout* NotesPane::columnOfList() {
  ListNotes->header()->setStretchLastSection(true);
  ListNotes->setToolTip(u"Press Enter to edit a note, F2 to change its title, Delete to remove what is selected."_s);
  QVBoxLayout* column = plainColumn();
  column->addWidget(ListNotes, 1);
  addButtons(*column, {cmdNew, cmdEdit});
  return column;
}

QVBoxLayout* NotesPane::columnOfNote() {
  QVBoxLayout* column = plainColumn();
  column->addWidget(txtNoteTitle);
  column->addWidget(txtNoteEditor, 1);
  addButtons(*column, {cmdSave, cmdDiscard});
  txtNoteTitle->setToolTip(hint());
  txtNoteEditor->setToolTip(hint());
  return column;
}

void NotesPane::connectSignals() {
  ListNotes->setEditTriggers(QAbstractItemView::SelectedClicked | QAbstractItemView::EditKeyPressed);
  ListNotes->rows().setEditable(
      guarded("ListNotes_AfterLabelEdit", kModule, [this](int row, const QString& title) { rename(row, title); }));
  connect(ListNotes, &ListView::rowsSelected, this,
          guarded("ListNotes_ItemClick", kModule, this, &NotesPane::showSelectedNote));
  connect(ListNotes, &ListView::rowOpened, this,
          guarded("ListNotes_DblClick", kModule, this, &NotesPane::cmdEdit_Click));
  connect(ListNotes, &ListView::enterPressed, this,
          guarded("ListNotes_KeyPress", kModule, this, &NotesPane::cmdEdit_Click));
  connect(ListNotes, &ListView::keyUp, this, guarded("ListNotes_KeyUp", kModule, [this](int key) {
            if (key == Qt::Key_Delete) {
              deleteSelected();
            }
          }));
  connect(txtNoteTitle, &QLineEdit::returnPressed, txtNoteEditor, qOverload<>(&QWidget::setFocus));
  connect(cmdNew, &QPushButton::clicked, this, guarded("cmdNew_Click", kModule, this, &NotesPane::cmdNew_Click));
  connect(cmdEdit, &QPushButton::clicked, this, guarded("cmdEdit_Click", kModule, this, &NotesPane::cmdEdit_Click));
  connect(cmdSave, &QPushButton::clicked, this, guarded("cmdSave_Click", kModule, [this] {
            cmdSave_Click();
            Q_EMIT noteSaved();
          }));
  connect(cmdDiscard, &QPushButton::clicked, this,
          guarded("cmdDiscard_Click", kModule, this, &NotesPane::cmdDiscard_Click));
}

void NotesPane::FillNoteList() {
  ListNotes->finishEdit();
  followNote();
  fillRows();
  showSelectedNote();
}

void NotesPane::fillRows() {
  QList<qint32> tags;
  for (const auto& note : g_Project->Notes) {
    tags.append(note->ID());
  }
  const QSignalBlocker quiet(ListNotes);
  ListNotes->setRows(tags, [](qint32 id, int) { return noteRow(id); });
  if (edited_ != nullptr) {
    ListNotes->SelectTag(edited_->ID());
  } else if (!editing_ && ListNotes->SelectedRow() < 0) {
    ListNotes->SelectRow(0);
  }
}

void NotesPane::clear() {
  ListNotes->finishEdit();
  ListNotes->clear();
  showSelectedNote();
}

void NotesPane::setProjectOpen(bool open) {
  projectOpen_ = open;
  ListNotes->setEmptyText(open ? shownText(u"No notes yet.\nNew begins one."_s) : QString());
  showState();
}

qint32 NotesPane::shownID() const {
  return ListNotes->SelectedTags().value(0);
}

void NotesPane::showSelectedNote() {
  if (editing_) {
    return;
  }
  const qint32 id = shownID();
  const auto note = id == 0 ? std::make_shared<clsNote>() : g_Project->NoteByID(id);
  show(note->Title, note->DescText);
  showState();
}

// What stands there already keeps its place.
void NotesPane::show(const QString& title, const QString& text) {
  if (txtNoteTitle->text() != oneLine(title)) {
    txtNoteTitle->setText(oneLine(title));
    txtNoteTitle->setCursorPosition(0);
  }
  if (txtNoteEditor->Text() != text) {
    txtNoteEditor->setText(text);
  }
}

void NotesPane::cmdNew_Click() {
  const qint32 selected = shownID();
  {
    const QSignalBlocker quiet(ListNotes);
    ListNotes->clearSelection();
  }
  show(translated(u"New Note"_s), {});
  edit(nullptr);
  selectedBefore_ = selected;
  txtNoteTitle->setFocus();
  txtNoteTitle->selectAll();
}

void NotesPane::cmdEdit_Click() {
  ListNotes->finishEdit();
  const qint32 id = shownID();
  if (id != 0) {
    edit(noteInBook(id));
    txtNoteEditor->setFocus();
  }
}

void NotesPane::cmdSave_Click() {
  store();
  view();
  showSelectedNote();
}

void NotesPane::cmdDiscard_Click() {
  view();
  if (ListNotes->SelectedRow() < 0) {
    ListNotes->SelectTag(selectedBefore_);
  }
  showSelectedNote();
}

void NotesPane::deleteSelected() {
  const QList<qint32> selected = ListNotes->SelectedTags();
  if (selected.isEmpty() || toolkit().MsgBox(u"Delete selected note(s)?"_s, Buttons::NoUnlessYes) != Answer::Yes) {
    return;
  }
  for (const qint32 id : selected) {
    g_Project->RemoveNoteByID(id);
  }
  FillNoteList();
  Q_EMIT notesChanged();
}

void NotesPane::rename(int row, const QString& title) {
  const auto note = noteInBook(ListNotes->tagAt(row));
  if (note == nullptr || title == oneLine(note->Title)) {
    return;
  }
  note->Title = oneLine(title);
  ListNotes->updateRow(row);
  showSelectedNote();
  Q_EMIT notesChanged();
}

bool NotesPane::holdsTyped() const {
  return editing_ && (txtNoteTitle->text() != titleBefore_ || txtNoteEditor->Text() != textBefore_);
}

bool NotesPane::mayLeave() {
  ListNotes->finishEdit();
  if (!holdsTyped()) {
    if (editing_) {
      cmdDiscard_Click();
    }
    return true;
  }
  const QString title = txtNoteTitle->text();
  const QString question =
      title.isEmpty() ? translated(u"The note isn't saved."_s) : translated(u"The note '%1' isn't saved."_s).arg(title);
  switch (toolkit().Choose({question, {shownText(u"Save"_s), shownText(u"Discard"_s)}})) {
    case 0:
      cmdSave_Click();
      return true;
    case 1:
      cmdDiscard_Click();
      return true;
    default:
      return false;
  }
}

// It still counts as typed: a book that is being read would throw the note away, and it is stored once more then.
void NotesPane::storeTyped() {
  ListNotes->finishEdit();
  if (holdsTyped()) {
    store();
  }
}

void NotesPane::setWritten() {
  if (editing_) {
    titleBefore_ = txtNoteTitle->text();
    textBefore_ = txtNoteEditor->Text();
  }
}

void NotesPane::store() {
  const bool isNew = edited_ == nullptr || noteInBook(edited_->ID()) != edited_;
  if (isNew) {
    edited_ = std::make_shared<clsNote>();
  }
  if (const QString title = oneLine(txtNoteTitle->text()); title != oneLine(edited_->Title)) {
    edited_->Title = title;
  }
  edited_->DescText = txtNoteEditor->Text();
  if (isNew) {
    g_Project->AddNote(edited_);
  }
  fillRows();
  Q_EMIT notesChanged();
}

// The book may have been read anew meanwhile. A note that is there as it was is the same one; what is typed goes over
// no other, but makes a new one.
void NotesPane::followNote() {
  if (edited_ == nullptr) {
    return;
  }
  const auto found = noteInBook(edited_->ID());
  if (found != nullptr && found->Title == edited_->Title && found->DescText == edited_->DescText) {
    edited_ = found;
  } else if (holdsTyped()) {
    edited_ = nullptr;
  } else {
    view();
  }
}

void NotesPane::edit(std::shared_ptr<clsNote> note) {
  edited_ = std::move(note);
  editing_ = true;
  titleBefore_ = txtNoteTitle->text();
  textBefore_ = txtNoteEditor->Text();
  selectedBefore_ = shownID();
  showState();
  Q_EMIT editingChanged(true);
}

void NotesPane::view() {
  const bool hadFocus = isAncestorOf(QApplication::focusWidget());
  edited_ = nullptr;
  editing_ = false;
  showState();
  Q_EMIT editingChanged(false);
  if (hadFocus) {
    ListNotes->setFocus();
  }
}

void NotesPane::showState() {
  const bool shown = shownID() != 0;
  // What is typed has to go somewhere even when its book has gone.
  setEnabled(projectOpen_ || editing_);
  ListNotes->setEnabled(!editing_);
  cmdNew->setEnabled(!editing_);
  cmdEdit->setEnabled(!editing_ && shown);
  cmdSave->setEnabled(editing_);
  cmdDiscard->setEnabled(editing_);
  txtNoteTitle->setReadOnly(!editing_);
  showLocked(*txtNoteTitle, !editing_, palette());
  txtNoteEditor->viewport()->setBackgroundRole(editing_ ? QPalette::Base : QPalette::Button);
  txtNoteEditor->setPlaceholderText(shown && !editing_ ? translated(u"No text yet"_s) : QString());
  if (editing_) {
    txtNoteEditor->setReadOnly(false);
  } else {
    makeReadOnly(*txtNoteEditor);
  }
}

// What is inside hears of other colours later.
void NotesPane::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) {
    showLocked(*txtNoteTitle, !editing_, palette());
    showHint(*txtNoteEditor, palette());
  }
}

void NotesPane::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape && editing_) {
    Guard("txtNoteEditor_KeyDown", kModule)([this] { mayLeave(); });
    return;
  }
  QWidget::keyPressEvent(event);
}
