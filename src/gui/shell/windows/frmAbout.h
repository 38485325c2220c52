#pragma once

#include <QDialog>

/// The program's version, licence and maker, the libraries that it uses and where its files are kept.
class frmAbout : public QDialog {
  Q_OBJECT

 public:
  explicit frmAbout(QWidget* parent);

  /// Over its window; goes by itself when closed.
  static void showOver(QWidget& window);

 private:
  void buildLayout();
  QWidget* makeFacts();
};
