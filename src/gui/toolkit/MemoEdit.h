#pragma once

#include "gui/toolkit/PlainTextBox.h"

/// A plain text of several lines, as fields of the model hold it: lines end in CR LF. What was put in comes out
/// again as it was, to the character, until the user changes it. The Tab key leaves the field.
class MemoEdit : public PlainTextBox {
  Q_OBJECT

 public:
  explicit MemoEdit(QWidget* parent = nullptr);

  QString Text() const;
  void setText(const QString& text);
  /// Room for a few lines; layouts may give more.
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 private:
  int heightOf(int lines) const;

  QString given_;
};
