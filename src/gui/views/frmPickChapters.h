#pragma once

#include "core/reports/PrintReport.h"

#include <QDialog>

#include <optional>

class QComboBox;
class QPushButton;

/// Asks for a range of chapters, such as those that are to be printed.
class frmPickChapters : public QDialog {
  Q_OBJECT

 public:
  explicit frmPickChapters(QWidget* parent = nullptr);

  /// No range was chosen.
  bool Cancelled = true;
  /// Places among the chapters, from 1; the last isn't before the first.
  qint32 FirstChapter = 0;
  qint32 LastChapter = 0;

  /// Offers all chapters of the book, from the first to the last, and returns when the window has closed. Without a
  /// chapter it says so, and nothing is chosen.
  void ShowRange();

  void done(int result) override;

 private:
  void createControls();
  void buildLayout();
  void connectSignals();
  void fillCombos();
  void cmdAll_Click();
  void cmdOk_Click();
  void choose(qint32 first, qint32 last);

  QComboBox* Combo1 = nullptr;
  QComboBox* Combo2 = nullptr;
  QPushButton* cmdAll = nullptr;
  QPushButton* cmdOk = nullptr;
  QPushButton* cmdCancel = nullptr;
};

/// Asks for a range over the active window; nothing when none was chosen. Help opens this page of the manual.
std::optional<ChapterRange> pickChapters(const QString& helpPage);
