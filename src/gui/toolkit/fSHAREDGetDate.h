#pragma once

#include "core/infra/DateEntry.h"

#include <QDialog>

#include <array>

class QLabel;
class QLineEdit;
class QPushButton;

/// The date picker's window: three numeric fields in local order over a DateEntry, which decides everything.
class fSHAREDGetDate : public QDialog {
  Q_OBJECT

 public:
  /// The entry must outlive the window; it holds the result afterwards.
  fSHAREDGetDate(DateEntry& entry, const QString& caption, QWidget* parent = nullptr);

  /// Makes this the window of cSharedGetDate.
  static void install();
  static void run(DateEntry& entry, const QString& caption);

 public Q_SLOTS:
  void reject() override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void createControls();
  void buildLayout();
  void connectSignals();
  /// True when the key was dealt with here.
  bool handleKey(const QKeyEvent& event, DateEntry::Box box);
  void press(DateEntry::Key key, QChar character = {});
  void settle(DateEntry::Outcome outcome);
  void leaveBox(DateEntry::Box box);
  void showTexts();
  void focusBox(DateEntry::Box box);

  DateEntry& entry_;
  bool closing_ = false;
  std::array<QLineEdit*, 3> boxes_{};
  std::array<QLabel*, 2> lblSlash{};
  QLabel* lblFormatString = nullptr;
  QLabel* lblDate = nullptr;
  QPushButton* cmdAccept = nullptr;
  QPushButton* cmdAbort = nullptr;
};
