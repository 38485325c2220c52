#include "core/infra/cSharedLang.h"
#include "core/text/Rtf.h"
#include "gui/toolkit/ListLabels.h"
#include "gui/toolkit/PlainToolTip.h"
#include "gui/toolkit/RichMimeData.h"
#include "gui/toolkit/RichTextBox.h"
#include "gui/toolkit/RichTextDocument.h"

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QDrag>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QPainter>
#include <QPointer>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QToolTip>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

// What the user does to the control: keys, mouse, clipboard; and what it tells of the place pointed at.

namespace {

bool isUndoOrRedo(const QKeyEvent& key) {
  return key.matches(QKeySequence::Undo) || key.matches(QKeySequence::Redo);
}

bool isReturn(const QKeyEvent& key) {
  return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

/// Whether the first letter that has a direction runs from right to left; nothing without one.
std::optional<bool> runsLeftwards(const QString& text) {
  for (const QChar unit : text) {
    switch (unit.direction()) {
      case QChar::DirR:
      case QChar::DirAL:
        return true;
      case QChar::DirL:
        return false;
      default:
        break;
    }
  }
  return {};
}

}  // namespace

bool RichTextBox::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride && isUndoOrRedo(*static_cast<QKeyEvent*>(event))) {
    event->ignore();
    return true;
  }
  return QTextEdit::event(event);
}

void RichTextBox::keyPressEvent(QKeyEvent* event) {
  if (isUndoOrRedo(*event)) {
    event->ignore();
    return;
  }
  const bool ends = (isReturn(*event) || event->key() == Qt::Key_Backspace) && !isReadOnly() && endListAtCaret(*event);
  if (ends) {
    event->accept();
    return;
  }
  if (event->matches(QKeySequence::InsertParagraphSeparator) && !isReadOnly()) {
    event->accept();
    asOneChange([this] { beginParagraph(); });
    return;
  }
  const bool wasEmpty = textCursor().block().length() == 1;
  const bool isLetter = !event->text().isEmpty() && event->text()[0].isPrint();
  asOneChange([&] {
    if (isLetter || event->matches(QKeySequence::InsertLineSeparator)) {
      leaveRangeAtCaret();
    }
    QTextEdit::keyPressEvent(event);
    if (wasEmpty && textCursor().block().length() > 1) {
      directByLetters(event->text());
    }
  });
}

void RichTextBox::inputMethodEvent(QInputMethodEvent* event) {
  QString committed = event->commitString();
  if (committed.contains(QChar::ObjectReplacementCharacter)) {  // stands for an object, and none comes along
    committed.remove(QChar::ObjectReplacementCharacter);
    event->setCommitString(committed, event->replacementStart(), event->replacementLength());
  }
  const bool composes = !event->preeditString().isEmpty();
  if (composition_ == 0 && composes) {
    composition_ = ++lastComposition_;
  }
  const bool changesText = !committed.isEmpty() || event->replacementLength() > 0 || textCursor().hasSelection();
  if (changesText) {
    asOneChange([&] { takeComposed(event); });
  } else {
    quietly([&] { QTextEdit::inputMethodEvent(event); });
  }
  if (!composes || !committed.isEmpty()) {
    composition_ = 0;
  }
}

void RichTextBox::takeComposed(QInputMethodEvent* event) {
  const bool wasEmpty = textCursor().block().length() == 1;
  const QString committed = event->commitString();
  if (!committed.isEmpty()) {
    leaveRangeAtCaret();
  }
  QTextEdit::inputMethodEvent(event);
  if (wasEmpty && textCursor().block().length() > 1) {
    directByLetters(committed);
  }
}

/// Return in an empty item, and Backspace in front of any, makes an ordinary paragraph of it that stands as it stood.
/// Items behind it keep counting.
bool RichTextBox::endListAtCaret(const QKeyEvent& key) {
  const QTextCursor cursor = textCursor();
  const bool isThere = isReturn(key) ? cursor.block().length() == 1 : cursor.atBlockStart();
  const bool isPlainKey = (key.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
  if (cursor.hasSelection() || !isThere || !isPlainKey || selectedParagraph().list.style == ListMark::Style::None) {
    return false;
  }
  const int number = numberOfItem(cursor.block());
  const QTextBlock next = cursor.block().next();
  const ParagraphFormat nextFormat = next.isValid() ? RichTextDocument::fromQt(next.blockFormat()) : ParagraphFormat();
  const bool listGoesOn = number > 1 && nextFormat.list.isNumbered() && nextFormat.list.start == 0 &&
                          nextFormat.list.level == selectedParagraph().list.level;
  asOneChange([&] {
    changeParagraphs([](ParagraphFormat& format) { format.list = {}; });
    if (listGoesOn) {
      setTextCursor(QTextCursor(next));
      changeParagraphs([number](ParagraphFormat& format) { format.list.start = number; });
      setTextCursor(cursor);
    }
  });
  return true;
}

/// Formatted like the one in front, an empty one too, where the control's own Return would take the formats away
/// instead. What belongs to one paragraph alone stays with the one in front.
void RichTextBox::beginParagraph() {
  leaveRangeAtCaret();
  QTextCursor cursor = textCursor();
  cursor.insertBlock();
  setTextCursor(cursor);
  const ParagraphFormat format = selectedParagraph();
  if (format.pageBreakBefore || format.list.start > 0) {
    changeParagraphs([](ParagraphFormat& changed) {
      changed.pageBreakBefore = false;
      changed.list.start = 0;
    });
  }
  ensureCursorVisible();
}

/// What is typed behind a link or a hidden text is no part of it, nor what is typed in front of it where a paragraph
/// begins with it.
void RichTextBox::leaveRangeAtCaret() {
  QTextCursor cursor = textCursor();
  CharFormat format = RichTextDocument::fromQt(cursor.charFormat());
  if (cursor.hasSelection() || (format.field.isEmpty() && !format.hidden)) {
    return;
  }
  cursor.movePosition(QTextCursor::NextCharacter);
  const bool isInside = !textCursor().atBlockStart() && !textCursor().atBlockEnd();
  const CharFormat next = isInside ? RichTextDocument::fromQt(cursor.charFormat()) : CharFormat();
  if (next.field == format.field && next.hidden == format.hidden) {
    return;
  }
  format.field = next.field == format.field ? format.field : QString();
  format.hidden = format.hidden && next.hidden;
  format.object.reset();
  setCurrentCharFormat(RichTextDocument::toQt(format, palette()));
}

/// A new paragraph runs as the letters that it begins with.
void RichTextBox::directByLetters(const QString& typed) {
  const std::optional<bool> leftwards = runsLeftwards(typed);
  const ParagraphFormat format = selectedParagraph();
  if (isReadOnly() || !leftwards || *leftwards == format.rightToLeft) {
    return;
  }
  using Alignment = ParagraphFormat::Alignment;
  changeParagraphs([&](ParagraphFormat& changed) {
    changed.rightToLeft = *leftwards;
    if (changed.alignment == (*leftwards ? Alignment::Left : Alignment::Right)) {
      changed.alignment = *leftwards ? Alignment::Right : Alignment::Left;
    }
  });
}

/// The paragraphs that came in run as their letters do, and so does the one that they came into if it was empty.
void RichTextBox::directPasted(int from) {
  const QTextCursor end = textCursor();
  const QTextBlock last = end.block();
  QTextBlock block = document()->findBlock(from);
  block = block.position() == from ? block : block.next();
  for (; block.isValid() && block.position() <= last.position(); block = block.next()) {
    const bool isWhole = block != last || end.atBlockEnd();
    if (isWhole && block.length() > 1) {
      setTextCursor(QTextCursor(block));
      directByLetters(block.text());
    }
  }
  setTextCursor(end);
}

void RichTextBox::refreshLooks(int from, int to) {
  if (hasOwnLooks_) {
    quietly([&] { RichTextDocument::refreshLooks(*document(), from, to, palette()); });
  }
}

void RichTextBox::changeEvent(QEvent* event) {
  QTextEdit::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) {
    refreshLooks(0, document()->characterCount());
  }
}

QMimeData* RichTextBox::createMimeDataFromSelection() const {
  return new RichMimeData(SelRichText());
}

bool RichTextBox::canInsertFromMimeData(const QMimeData* source) const {
  return source->hasText() || RichMimeData::isIn(*source);
}

void RichTextBox::insertFromMimeData(const QMimeData* source) {
  // The control's own refusal stands in the routine that this one takes the place of.
  if (isReadOnly() || source == nullptr) {
    return;
  }
  asOneChange([&] {
    if (RichMimeData::isIn(*source)) {
      setSelRichText(RichMimeData::textIn(*source));
      return;
    }
    leaveRangeAtCaret();
    const int from = textCursor().selectionStart();
    setSelText(source->text());
    directPasted(from);
  });
  ensureCursorVisible();
}

int RichTextBox::characterAt(QPoint inViewport) const {
  const QPoint scrolled(horizontalScrollBar()->value(), verticalScrollBar()->value());
  return document()->documentLayout()->hitTest(inViewport + scrolled, Qt::ExactHit);
}

CharFormat RichTextBox::formatOfCharacter(int documentPosition) const {
  if (documentPosition < 0 || documentPosition + 1 >= document()->characterCount()) {
    return {};
  }
  QTextCursor cursor(document());
  cursor.setPosition(documentPosition + 1);
  CharFormat format = RichTextDocument::fromQt(cursor.charFormat());
  if (cursor.charFormat().objectType() != RichTextDocument::objectType) {
    format.object.reset();  // text typed behind an object inherits its format, but is none
  }
  return format;
}

QString RichTextBox::describe(const CharFormat& format) {
  if (format.object) {
    return ::describe(*format.object);
  }
  const QString address = linkAddress(format.field);
  if (!address.isEmpty()) {
    return address + u'\n' + translated(u"Ctrl+click to open"_s);
  }
  return format.field.isEmpty() ? QString() : translated(u"Field: %1"_s).arg(format.field);
}

bool RichTextBox::viewportEvent(QEvent* event) {
  if (event->type() != QEvent::ToolTip) {
    return QTextEdit::viewportEvent(event);
  }
  const auto& help = *static_cast<QHelpEvent*>(event);
  const QString tip = describe(formatOfCharacter(characterAt(help.pos())));
  if (tip.isEmpty()) {
    QToolTip::hideText();
    return QTextEdit::viewportEvent(event);
  }
  QToolTip::showText(help.globalPos(), plainToolTip(tip), viewport());
  return true;
}

void RichTextBox::mouseReleaseEvent(QMouseEvent* event) {
  dragFrom_.reset();
  const bool isPlainClick = event->button() == Qt::LeftButton && !textCursor().hasSelection();
  QTextEdit::mouseReleaseEvent(event);
  if (isPlainClick && event->modifiers() == Qt::ControlModifier) {
    activate(characterAt(event->pos()));
  }
}

void RichTextBox::mouseDoubleClickEvent(QMouseEvent* event) {
  const int character = characterAt(event->pos());
  const auto object = formatOfCharacter(character).object;
  if (event->button() == Qt::LeftButton && object && isNote(object->kind)) {
    activate(character);
    event->accept();
    return;
  }
  QTextEdit::mouseDoubleClickEvent(event);
  narrowToLetters(character);
}

/// A word that was pointed at ends where an object stands: typed over, it must not take a comment along.
void RichTextBox::narrowToLetters(int character) {
  QTextCursor cursor = textCursor();
  const QString selected = cursor.selectedText();
  if (!selected.contains(QChar::ObjectReplacementCharacter)) {
    return;
  }
  const qsizetype at = std::clamp<qsizetype>(character - cursor.selectionStart(), 0, selected.size() - 1);
  const bool isObject = selected[at] == QChar::ObjectReplacementCharacter;
  const qsizetype before = isObject ? at - 1 : selected.lastIndexOf(QChar::ObjectReplacementCharacter, at);
  const qsizetype behind = isObject ? at + 1 : selected.indexOf(QChar::ObjectReplacementCharacter, at);
  const int from = cursor.selectionStart();
  cursor.setPosition(from + static_cast<int>(before + 1));
  cursor.setPosition(from + static_cast<int>(behind < 0 ? selected.size() : behind), QTextCursor::KeepAnchor);
  setTextCursor(cursor);
}

void RichTextBox::mousePressEvent(QMouseEvent* event) {
  const QTextCursor selected = textCursor();
  const int place = cursorForPosition(event->pos()).position();
  const bool isInSelection = place >= selected.selectionStart() && place <= selected.selectionEnd();
  const bool mayDrag = event->button() == Qt::LeftButton && selected.hasSelection() && isInSelection;
  dragFrom_ = mayDrag ? std::optional(event->pos()) : std::nullopt;
  QTextEdit::mousePressEvent(event);
}

void RichTextBox::dragSelection() {
  auto* const drag = new QDrag(viewport());
  drag->setMimeData(createMimeDataFromSelection());
  const Qt::DropActions actions = Locked() ? Qt::DropActions(Qt::CopyAction) : Qt::CopyAction | Qt::MoveAction;
  const QPointer<RichTextBox> alive(this);
  const Qt::DropAction action = drag->exec(actions, Locked() ? Qt::CopyAction : Qt::MoveAction);
  if (alive) {
    endDrag(action, drag->target());
  }
}

/// What was dragged here and there within this text is gone from its place by now.
void RichTextBox::endDrag(Qt::DropAction action, const QObject* target) {
  const auto* const box = target == nullptr ? nullptr : qobject_cast<const RichTextBox*>(target->parent());
  // Anywhere else but the letters is lost on the way: there it is a copy.
  if (action == Qt::MoveAction && box != nullptr && box != this && !Locked()) {
    textCursor().removeSelectedText();
  }
}

void RichTextBox::mouseMoveEvent(QMouseEvent* event) {
  const bool isHeld = dragFrom_ && event->buttons().testFlag(Qt::LeftButton);
  if (isHeld && (event->pos() - *dragFrom_).manhattanLength() > QApplication::startDragDistance()) {
    dragFrom_.reset();
    dragSelection();
    return;
  }
  QTextEdit::mouseMoveEvent(event);
  const bool opens = event->modifiers() == Qt::ControlModifier && event->buttons() == Qt::NoButton &&
                     !linkAddress(formatOfCharacter(characterAt(event->pos())).field).isEmpty();
  if (opens != (viewport()->cursor().shape() == Qt::PointingHandCursor)) {
    viewport()->setCursor(opens ? Qt::PointingHandCursor : Qt::IBeamCursor);
  }
}

bool RichTextBox::activate(int documentPosition) {
  const CharFormat format = formatOfCharacter(documentPosition);
  if (format.object && isNote(format.object->kind)) {
    Q_EMIT noteActivated(fromDocument(documentPosition));
    return true;
  }
  const QString address = linkAddress(format.field);
  if (!address.isEmpty()) {
    Q_EMIT linkActivated(address);
    return true;
  }
  return false;
}

bool RichTextBox::openAtCaret() {
  const int caret = textCursor().selectionStart();
  return activate(caret) || activate(caret - 1);
}

QString RichTextBox::describeAtCaret() const {
  const int caret = textCursor().position();
  const QString behind = describe(formatOfCharacter(caret));
  return behind.isEmpty() ? describe(formatOfCharacter(caret - 1)) : behind;
}

/// A screen reader hears of what stands at the caret and is no letter.
void RichTextBox::tellOfCaret() {
  const QString told = describeAtCaret();
  if (told != accessibleDescription()) {
    setAccessibleDescription(told);
  }
}

void RichTextBox::paintEvent(QPaintEvent* event) {
  QTextEdit::paintEvent(event);
  if (hasLists_) {
    QPainter painter(viewport());
    drawListLabels(painter, *this);
  }
}
