#include "gui/shell/main/NotesPane.h"

#include "core/model/Globals.h"
#include "core/model/clsNote.h"
#include "core/model/clsProject.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/views/ListView.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSignalBlocker>
#include <QSplitter>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

NotesPane::NotesPane(QWidget* parent)
    : QWidget(parent),
      ListNotes(new ListView({u"Note"_s})),
      txtNoteTitle(makeLineEdit(u"txtNoteTitle"_s, u"Note title"_s)),
      txtNoteEditor(makeReadOnlyText(u"txtNoteEditor"_s, u"Note text"_s)) {
  setObjectName(u"FrameNotes"_s);
  buildLayout();
  connect(ListNotes, &ListView::rowsSelected, this,
          guarded("ListNotes_ItemClick", "frmMain", this, &NotesPane::showSelectedNote));
}

void NotesPane::buildLayout() {
  giveName(*ListNotes, u"ListNotes"_s, u"Project notes"_s);
  txtNoteTitle->setReadOnly(true);
  // The colour of a button: this is for reading.
  txtNoteEditor->viewport()->setBackgroundRole(QPalette::Button);

  auto* note = new QWidget;
  auto* column = new QVBoxLayout(note);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(txtNoteTitle);
  column->addWidget(txtNoteEditor, 1);

  auto* splitter = new QSplitter(Qt::Horizontal);
  splitter->setChildrenCollapsible(false);
  splitter->addWidget(ListNotes);
  splitter->addWidget(note);
  splitter->setStretchFactor(0, 1);
  splitter->setStretchFactor(1, 2);

  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(splitter);
}

void NotesPane::FillNoteList() {
  QList<qint32> tags;
  for (const auto& note : g_Project->Notes) {
    tags.append(note->ID());
  }
  {
    const QSignalBlocker quiet(ListNotes);
    ListNotes->setRows(tags, [](qint32 id, int) { return ListRow{{g_Project->NoteByID(id)->Title}, "note"}; });
    ListNotes->SelectRow(0);
  }
  showSelectedNote();
}

void NotesPane::showSelectedNote() {
  const qint32 id = ListNotes->SelectedTag();
  if (id == 0) {
    txtNoteTitle->clear();
    txtNoteEditor->clear();
    return;
  }
  const auto note = g_Project->NoteByID(id);
  txtNoteTitle->setText(note->Title);
  txtNoteTitle->setCursorPosition(0);
  txtNoteEditor->setPlainText(note->DescText);
}
