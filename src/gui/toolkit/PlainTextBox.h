#pragma once

#include <QMimeData>
#include <QPlainTextEdit>

/// A plain text of several lines. The base class asks for the first form of what is pasted, and an empty clipboard has
/// none: that ends the program.
class PlainTextBox : public QPlainTextEdit {
 public:
  using QPlainTextEdit::QPlainTextEdit;

 protected:
  void insertFromMimeData(const QMimeData* source) override {
    if (source != nullptr && !source->formats().isEmpty()) {
      QPlainTextEdit::insertFromMimeData(source);
    }
  }
};
