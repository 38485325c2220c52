#pragma once

#include <QDialog>

/// The program's version, its maker and the way to the maker's page.
class frmAbout : public QDialog {
  Q_OBJECT

 public:
  explicit frmAbout(QWidget* parent);

  /// Over its window; goes by itself when closed.
  static void showOver(QWidget& window);

 private:
  void buildLayout();
};
