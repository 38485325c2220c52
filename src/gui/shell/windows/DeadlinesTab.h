#pragma once

#include "core/planning/Deadlines.h"

#include <QWidget>

class QGridLayout;
class QLabel;
class QPushButton;

/// The deadlines of a project: for each status a start date and a deadline. Pressing one asks for another; those that
/// are out of order are red and say why.
class DeadlinesTab : public QWidget {
  Q_OBJECT

 public:
  explicit DeadlinesTab(QWidget* parent = nullptr);

  /// Unset dates are filled.
  void showDeadlines(const Deadlines& deadlines);
  const Deadlines& deadlines() const { return deadlines_; }
  /// Marks the dates that are out of order. True when there are any.
  bool BadValues();
  /// To the first of those.
  void focusBadDate();

 protected:
  void changeEvent(QEvent* event) override;

 private:
  struct Row {
    QLabel* lblFinish = nullptr;
    QPushButton* lblDeadlineStart = nullptr;
    QPushButton* lblDeadline = nullptr;
  };

  void createControls();
  void buildLayout();
  void addRow(QGridLayout& grid, const Row& row);
  void connectSignals();
  /// Asks for another date; nothing happens on cancel.
  void askForDate(const QString& caption, qint32& date);
  void showDates();
  void showDate(QPushButton& button, const QString& caption, qint32 date, const QString& fault);

  std::array<Row, Deadlines::kLevels> rows_;
  QLabel* lblHint = nullptr;
  QLabel* lblOutOfOrder = nullptr;
  Deadlines deadlines_;
  DatesOutOfOrder bad_;
};
