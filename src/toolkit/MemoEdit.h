#pragma once

#include <QPlainTextEdit>

/// A plain text of several lines, as fields of the model hold it: lines end in CR LF. What was put in comes out
/// again as it was, to the character, until the user changes it. The Tab key leaves the field.
class MemoEdit : public QPlainTextEdit {
  Q_OBJECT

 public:
  explicit MemoEdit(QWidget* parent = nullptr);

  QString Text() const;
  void setText(const QString& text);

 private:
  QString given_;
};
