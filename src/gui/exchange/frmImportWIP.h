#pragma once

#include "core/exchange/WorkImport.h"
#include "core/text/Rtf.h"

#include <QDialog>

class ElidedLabel;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QStackedWidget;
class QVBoxLayout;

/// Asks for a manuscript in one file and for the project whose contents it replaces, and says what will come of it. It
/// changes nothing itself.
class frmImportWIP : public QDialog {
  Q_OBJECT

 public:
  explicit frmImportWIP(QWidget* parent = nullptr);

  /// The wizard over a window, in the way of all others; it goes when it is closed.
  static frmImportWIP* showOver(QWidget& window);

  /// In full; empty where nothing was typed.
  QString ImportFile() const;
  QString ProjectFile() const;
  /// The manuscript as it was read when its step was left.
  const WorkImport& Work() const { return work_; }

 Q_SIGNALS:
  /// All steps were gone through. The window is hidden.
  void importWanted();

 private:
  void createControls();
  void buildLayout();
  void addStep(QVBoxLayout& column);
  QHBoxLayout* buildButtons();
  QWidget* buildConfirmation();
  void connectSignals();

  void showStep(int step);
  void showConfirmation();
  QString whatComes() const;
  QString whatGoes() const;
  void cmdBack_Click();
  void cmdNext_Click();
  void cmdPickWIP_Click();
  void cmdPickProj_Click();
  bool mayLeaveStep();
  bool importFileIsGood();
  bool projectFileIsGood();
  /// Said, and the writer back at the field.
  bool refused(const QString& complaint, QLineEdit& field);
  bool readManuscript();

  QLabel* lblStepNum = nullptr;
  QLabel* lblStepDetails = nullptr;
  QStackedWidget* steps_ = nullptr;
  QLineEdit* txtWipFile = nullptr;
  QPushButton* cmdPickWIP = nullptr;
  QLineEdit* txtProjFile = nullptr;
  QPushButton* cmdPickProj = nullptr;
  ElidedLabel* lblImportFile = nullptr;
  ElidedLabel* lblProjFile = nullptr;
  QLabel* lblFound = nullptr;
  QLabel* lblErased = nullptr;
  QPushButton* cmdBack = nullptr;
  QPushButton* cmdNext = nullptr;

  int step_ = 0;
  WorkImport work_;
  RtfLosses losses_;
};
