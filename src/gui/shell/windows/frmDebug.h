#pragma once

#include <QDialog>
#include <QTimer>

class QPlainTextEdit;

/// A help for whoever works on the program: what is locked just now, as the change tables know it.
class frmDebug : public QDialog {
 public:
  explicit frmDebug(QWidget* parent = nullptr);

 protected:
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  void Timer1_Timer();

  QPlainTextEdit* txtScenes;
  QPlainTextEdit* txtChars;
  QTimer Timer1;
};
