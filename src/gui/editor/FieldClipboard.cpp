#include "gui/editor/FieldClipboard.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QMenuBar>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QTextEdit>

namespace {

/// The field to type in that a control is or holds; null where it is none.
QWidget* fieldIn(QWidget* control) {
  if (auto* const box = qobject_cast<QComboBox*>(control)) {
    return box->lineEdit();
  }
  const bool isField = qobject_cast<QLineEdit*>(control) != nullptr || qobject_cast<QTextEdit*>(control) != nullptr ||
                       qobject_cast<QPlainTextEdit*>(control) != nullptr;
  return isField ? control : nullptr;
}

/// Calls with the field as what it is.
template <class Use>
auto with(QWidget& field, Use use) {
  if (auto* const line = qobject_cast<QLineEdit*>(&field)) {
    return use(*line);
  }
  if (auto* const plain = qobject_cast<QPlainTextEdit*>(&field)) {
    return use(*plain);
  }
  return use(static_cast<QTextEdit&>(field));
}

bool hasSelection(const QLineEdit& line) {
  return line.hasSelectedText();
}

template <class TextBox>
bool hasSelection(const TextBox& box) {
  return box.textCursor().hasSelection();
}

bool canUndoIn(const QLineEdit& line) {
  return line.isUndoAvailable();
}

bool canRedoIn(const QLineEdit& line) {
  return line.isRedoAvailable();
}

template <class TextBox>
bool canUndoIn(const TextBox& box) {
  return box.document()->isUndoAvailable();
}

template <class TextBox>
bool canRedoIn(const TextBox& box) {
  return box.document()->isRedoAvailable();
}

}  // namespace

FieldClipboard::FieldClipboard(QWidget& text) : QObject(&text), text_(text) {
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { follow(now); });
}

void FieldClipboard::follow(QWidget* focused) {
  const bool isElsewhere = focused == nullptr || focused->window() != text_.window();
  if (!isElsewhere && qobject_cast<QMenuBar*>(focused) == nullptr) {
    field_ = fieldIn(focused);
  }
}

QWidget& FieldClipboard::field() const {
  return field_ ? *field_ : text_;
}

bool FieldClipboard::canCopy() const {
  return with(field(), [](auto& box) { return hasSelection(box); });
}

bool FieldClipboard::canCut() const {
  return canCopy() && with(field(), [](auto& box) { return !box.isReadOnly(); });
}

bool FieldClipboard::canPaste() const {
  const QMimeData* const held = QGuiApplication::clipboard()->mimeData();
  return held != nullptr && held->hasText() && with(field(), [](auto& box) { return !box.isReadOnly(); });
}

void FieldClipboard::cut() {
  with(field(), [](auto& box) { box.cut(); });
}

void FieldClipboard::copy() {
  with(field(), [](auto& box) { box.copy(); });
}

void FieldClipboard::paste() {
  with(field(), [](auto& box) { box.paste(); });
}

bool FieldClipboard::writesInField() const {
  return field_ && field_ != &text_ && with(*field_, [](auto& box) { return !box.isReadOnly(); });
}

bool FieldClipboard::canUndo() const {
  return writesInField() && with(*field_, [](auto& box) { return canUndoIn(box); });
}

bool FieldClipboard::canRedo() const {
  return writesInField() && with(*field_, [](auto& box) { return canRedoIn(box); });
}

void FieldClipboard::undo() {
  if (writesInField()) {
    with(*field_, [](auto& box) { box.undo(); });
  }
}

void FieldClipboard::redo() {
  if (writesInField()) {
    with(*field_, [](auto& box) { box.redo(); });
  }
}
