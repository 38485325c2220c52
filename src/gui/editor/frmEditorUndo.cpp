#include "core/infra/cSharedLang.h"
#include "gui/editor/EditorSpelling.h"
#include "gui/editor/FieldClipboard.h"
#include "gui/editor/frmEditor.h"
#include "gui/toolkit/RichTextBox.h"
#include "gui/toolkit/TextHistory.h"

#include <QAction>
#include <QApplication>
#include <QMenu>

using namespace Qt::StringLiterals;

// Undo and redo: of the text, and of another field while that is being written in.

void frmEditor::createUndoEntries(QMenu* edit) {
  mnuUndo_ = addEntry(edit, u"mnuUndo"_s, u"Undo"_s, [this] { mnuUndo_Click(); });
  mnuUndo_->setShortcut(QKeySequence(u"Ctrl+Z"_s));
  mnuRedo_ = addEntry(edit, u"mnuRedo"_s, u"Redo"_s, [this] { mnuRedo_Click(); });
  mnuRedo_->setShortcuts({QKeySequence(u"Ctrl+Y"_s), QKeySequence(u"Ctrl+Shift+Z"_s)});
  connect(edit, &QMenu::aboutToShow, this, [this] { showUndo(true); });
}

void frmEditor::connectUndo() {
  history_ = new TextHistory(*txtMain, [this] { return colours_.textColour(); });
  connect(history_, &TextHistory::availabilityChanged, this, [this] { showUndo(false); });
  connect(history_, &TextHistory::undone, spelling_, &EditorSpelling::checkSoon);
  connect(qApp, &QApplication::focusChanged, this, [this] { showUndo(false); });
  showUndo(false);
}

/// A field tells what it can do only when it is asked; until then its keys stay alive.
void frmEditor::showUndo(bool exactly) {
  if (clipboard_->writesInField()) {
    mnuUndo_->setEnabled(!exactly || clipboard_->canUndo());
    mnuRedo_->setEnabled(!exactly || clipboard_->canRedo());
  } else {
    // Where the keys' way ends they tell why.
    mnuUndo_->setEnabled(history_->canUndo() || undoEndsAtSplit_);
    mnuRedo_->setEnabled(history_->canRedo());
  }
}

void frmEditor::mnuUndo_Click() {
  if (clipboard_->writesInField()) {
    clipboard_->undo();
  } else if (!history_->canUndo() && undoEndsAtSplit_) {
    showHint(translated(u"The split can't be undone here: its scenes are in the book"_s));
  } else {
    history_->undo();
  }
}

void frmEditor::mnuRedo_Click() {
  if (clipboard_->writesInField()) {
    clipboard_->redo();
  } else {
    history_->redo();
  }
}
