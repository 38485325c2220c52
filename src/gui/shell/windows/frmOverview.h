#pragma once

#include <QDialog>

class QPlainTextEdit;
class QPushButton;

/// A text to be read, such as an overview of the book. There is no entry of the menu that opens it.
class frmOverview : public QDialog {
 public:
  explicit frmOverview(QWidget* parent = nullptr);

  void setText(const QString& text);

  void done(int result) override;

 private:
  void cmdPrint_Click();

  QPlainTextEdit* txtOverview;
  QPushButton* cmdPrint;
  QPushButton* cmdExit;
};
