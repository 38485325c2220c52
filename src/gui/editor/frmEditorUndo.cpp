#include "gui/editor/frmEditor.h"
#include "gui/toolkit/RichTextBox.h"
#include "gui/toolkit/TextHistory.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>

using namespace Qt::StringLiterals;

// Undo and redo: of the text, and of the other fields while one of them is being written in.

namespace {

QLineEdit* lineIn(QWidget* control) {
  const auto* const combo = qobject_cast<QComboBox*>(control);
  auto* const line = combo != nullptr ? combo->lineEdit() : qobject_cast<QLineEdit*>(control);
  return line != nullptr && !line->isReadOnly() ? line : nullptr;
}

QPlainTextEdit* memoIn(QWidget* control) {
  auto* const memo = qobject_cast<QPlainTextEdit*>(control);
  return memo != nullptr && !memo->isReadOnly() ? memo : nullptr;
}

bool isField(QWidget* control) {
  return lineIn(control) != nullptr || memoIn(control) != nullptr;
}

}  // namespace

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
  connect(qApp, &QApplication::focusChanged, this, [this] { showUndo(false); });
  showUndo(false);
}

/// A field tells only when it is asked what it can do; until then its keys stay alive.
void frmEditor::showUndo(bool exactly) {
  QWidget* const control = focusWidget();
  bool canUndo = history_->canUndo();
  bool canRedo = history_->canRedo();
  if (isField(control)) {
    const auto* const line = lineIn(control);
    const auto* const memo = memoIn(control);
    canUndo = !exactly || (line != nullptr ? line->isUndoAvailable() : memo->document()->isUndoAvailable());
    canRedo = !exactly || (line != nullptr ? line->isRedoAvailable() : memo->document()->isRedoAvailable());
  }
  mnuUndo_->setEnabled(canUndo);
  mnuRedo_->setEnabled(canRedo);
}

void frmEditor::mnuUndo_Click() {
  QWidget* const control = focusWidget();
  if (auto* const line = lineIn(control)) {
    line->undo();
  } else if (auto* const memo = memoIn(control)) {
    memo->undo();
  } else {
    history_->undo();
  }
}

void frmEditor::mnuRedo_Click() {
  QWidget* const control = focusWidget();
  if (auto* const line = lineIn(control)) {
    line->redo();
  } else if (auto* const memo = memoIn(control)) {
    memo->redo();
  } else {
    history_->redo();
  }
}
