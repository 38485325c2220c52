#pragma once

#include "core/infra/ScanPause.h"
#include "core/model/GlobalReplace.h"

#include <QDialog>

#include <functional>

class QCheckBox;
class QGridLayout;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;

/// Replaces a text in all scenes of the book, behind a complete backup of it. The rows of other windows follow when
/// this one has gone.
class frmGlobalReplace : public QDialog {
  Q_OBJECT

 public:
  explicit frmGlobalReplace(QWidget* parent = nullptr);
  /// Modal over the window; it goes when it is closed.
  static frmGlobalReplace* showOver(QWidget& window);

  /// Saves the book, so that the backup holds it as it is now.
  std::function<void()> SaveBook = [] {};

 Q_SIGNALS:
  /// Scenes were changed and saved.
  void bookChanged();

 private:
  void createControls();
  void buildLayout();
  QGridLayout* buildFields();
  QHBoxLayout* buildNote();
  void connectSignals();
  void chkCaseSensitive_Click();
  void cmdOK_Click();
  bool mayReplace();
  bool backUp();
  void tell(const GlobalReplace::Outcome& outcome);

  QLineEdit* txtLookfor = nullptr;
  QLineEdit* txtReplaceWith = nullptr;
  QCheckBox* chkCaseSensitive = nullptr;
  QCheckBox* chkWholeWordOnly = nullptr;
  QLabel* lblResult = nullptr;
  QPushButton* cmdOK = nullptr;
  QPushButton* cmdExit = nullptr;
  bool caseSensitive_ = false;
  /// Full path of the archive that was made before the last replacement; empty when there is none.
  QString archive_;
  ScanPause pause_;
};
