#include "gui/toolkit/MemoEdit.h"

using namespace Qt::StringLiterals;

MemoEdit::MemoEdit(QWidget* parent) : PlainTextBox(parent) {
  setTabChangesFocus(true);
}

QString MemoEdit::Text() const {
  if (!document()->isModified()) {
    return given_;
  }
  // The raw text: the plain one would turn a no-break space into a blank.
  QString text = document()->toRawText();
  text.replace(QChar::ParagraphSeparator, u"\r\n"_s);
  text.replace(QChar::LineSeparator, u"\r\n"_s);
  return text;
}

void MemoEdit::setText(const QString& text) {
  given_ = text;
  setPlainText(text);
  document()->setModified(false);
}

QSize MemoEdit::sizeHint() const {
  return {QPlainTextEdit::sizeHint().width(), heightOf(5)};
}

QSize MemoEdit::minimumSizeHint() const {
  return {QPlainTextEdit::minimumSizeHint().width(), heightOf(2)};
}

int MemoEdit::heightOf(int lines) const {
  return fontMetrics().lineSpacing() * lines + 2 * (frameWidth() + qRound(document()->documentMargin()));
}
