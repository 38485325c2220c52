#pragma once

#include <QDialog>

class QLineEdit;
class QRadioButton;

/// How the program gets to the web: the system's way, through a proxy of one's own, or directly. OK stores it.
class fSHAREDProxy : public QDialog {
  Q_OBJECT

 public:
  explicit fSHAREDProxy(QWidget* parent);

  /// Over its window; goes by itself when closed.
  static void showOver(QWidget& window);
  /// Stays open, and says why, where what was typed can't be kept.
  void accept() override;

 private:
  void buildLayout();
  void connectSignals();
  void load();
  void partServer();
  bool mayBeKept();
  void store() const;
  void enableFields();

  QRadioButton* optDefault;
  QRadioButton* optNamed;
  QRadioButton* optNoProxy;
  QLineEdit* txtServer;
  QLineEdit* txtPort;
  QLineEdit* txtUser;
  QLineEdit* txtPwd;
  QLineEdit* txtPwdRepeat;
};
