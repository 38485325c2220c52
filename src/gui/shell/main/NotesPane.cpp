#include "gui/shell/main/NotesPane.h"

#include "core/model/Globals.h"
#include "core/model/clsNote.h"
#include "core/model/clsProject.h"
#include "gui/toolkit/ReadOnlyText.h"
#include "gui/views/ListView.h"
#include "gui/views/RowIcon.h"

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
      listNotes_(new ListView({u"Note"_s})),
      txtNoteTitle_(new QLineEdit),
      txtNoteEditor_(new QPlainTextEdit) {
  setObjectName(u"FrameNotes"_s);
  buildLayout();
  connect(listNotes_, &QTreeWidget::itemSelectionChanged, this, &NotesPane::showSelectedNote);
}

void NotesPane::buildLayout() {
  listNotes_->setObjectName(u"ListNotes"_s);
  listNotes_->setAccessibleName(u"Project notes"_s);
  txtNoteTitle_->setObjectName(u"txtNoteTitle"_s);
  txtNoteTitle_->setAccessibleName(u"Note title"_s);
  txtNoteTitle_->setReadOnly(true);
  txtNoteEditor_->setObjectName(u"txtNoteEditor"_s);
  txtNoteEditor_->setAccessibleName(u"Note text"_s);
  makeReadOnly(*txtNoteEditor_);
  // The colour of a button: this is for reading.
  txtNoteEditor_->viewport()->setBackgroundRole(QPalette::Button);

  auto* note = new QWidget;
  auto* column = new QVBoxLayout(note);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(txtNoteTitle_);
  column->addWidget(txtNoteEditor_, 1);

  auto* splitter = new QSplitter(Qt::Horizontal);
  splitter->setChildrenCollapsible(false);
  splitter->addWidget(listNotes_);
  splitter->addWidget(note);
  splitter->setStretchFactor(0, 1);
  splitter->setStretchFactor(1, 2);

  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(splitter);
}

void NotesPane::FillNoteList() {
  {
    const QSignalBlocker quiet(listNotes_);
    QList<QTreeWidgetItem*> rows;
    for (const auto& note : g_Project->Notes) {
      auto* row = new QTreeWidgetItem({note->Title});
      ListView::setTag(*row, note->ID());
      row->setIcon(0, rowIcon("note"));
      rows.append(row);
    }
    listNotes_->clear();
    listNotes_->addTopLevelItems(rows);
    listNotes_->SelectRow(0);
  }
  showSelectedNote();
}

void NotesPane::showSelectedNote() {
  const qint32 id = listNotes_->SelectedTag();
  if (id == 0) {
    txtNoteTitle_->clear();
    txtNoteEditor_->clear();
    return;
  }
  const auto note = g_Project->NoteByID(id);
  txtNoteTitle_->setText(note->Title);
  txtNoteTitle_->setCursorPosition(0);
  txtNoteEditor_->setPlainText(note->DescText);
}
