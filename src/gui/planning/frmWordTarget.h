#pragma once

#include "core/planning/WordTarget.h"

#include <QDialog>

class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class TargetBar;

/// The daily word target: what a writer means to write in a period, and what that comes to each day. It is given the
/// values and gives them back; the project itself isn't touched.
class frmWordTarget : public QDialog {
  Q_OBJECT

 public:
  frmWordTarget(const WordTarget& target, qint32 projectWords, QWidget* parent = nullptr);
  /// The window over another one, on the screen and in the way of all others; it goes when it is closed.
  static frmWordTarget* showOver(QWidget& window, const WordTarget& target, qint32 projectWords);

  /// What stands in the fields. A field that holds no number gives back what it was given.
  WordTarget target() const;

  void done(int result) override;

 private:
  void createControls();
  void createFigures();
  void buildLayout();
  void addRow(QGridLayout& grid, const QString& caption, QWidget& control);
  void addFigure(QGridLayout& grid, const QString& caption, QLabel& figure);
  void connectSignals();
  void Form_Load();
  void Recalc();
  void clearFigures();
  void showFigures(const TargetFigures& figures);
  /// Asks for another date; nothing happens on cancel.
  void askForDate(const QString& caption, qint32& date);
  void showDates();

  QPushButton* lblStartDate = nullptr;
  QPushButton* lblEndDate = nullptr;
  QLineEdit* txtStartCount = nullptr;
  QLineEdit* txtEndCount = nullptr;
  QPushButton* cmdCopy = nullptr;
  QLabel* lblProjCount = nullptr;
  QLabel* lblNumDays = nullptr;
  QLabel* lblWordsPerDay = nullptr;
  QLabel* lblTotalWords = nullptr;
  TargetBar* Picture1 = nullptr;
  QLabel* lblStart = nullptr;
  QLabel* lblMid = nullptr;
  QLabel* lblEnd = nullptr;
  QLabel* lblStatus = nullptr;
  QPushButton* cmdSave = nullptr;
  QPushButton* cmdExit = nullptr;

  WordTarget given_;
  qint32 startDate_;
  qint32 endDate_;
  qint32 projectWords_;
  bool loading_ = true;
};
