#pragma once

#include <QDialog>

class QPlainTextEdit;

/// A plain read-only window on the log file as it stands when the window opens.
class fSHAREDLogViewer : public QDialog {
  Q_OBJECT

 public:
  explicit fSHAREDLogViewer(QWidget* parent = nullptr);

  /// Opens the window beside the others; it deletes itself when it is closed.
  static fSHAREDLogViewer* open(QWidget* parent);

 private:
  void load();

  QPlainTextEdit* txtLog = nullptr;
};
