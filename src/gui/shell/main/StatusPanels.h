#pragma once

#include <QString>
#include <QStringList>
#include <QTimer>

#include <functional>

class ElidedLabel;
class QLabel;
class QPushButton;
class QStatusBar;

/// The main window's status bar of four panels: running messages, the total of words, the version, the reminder
/// to make a backup. The panels bear their keys as names: "numberfiles", "Totalwords", "Version", "backup".
class StatusPanels {
 public:
  explicit StatusPanels(QStatusBar& bar);

  enum class Rest { Passing, Lasting };
  /// What stands in the first panel when nothing else is to be said; a new one takes the message's place. What is
  /// lasting is covered by a message for a moment only.
  void setRest(const QString& text, Rest kind = Rest::Passing);
  /// In the rest's place until it is set to nothing.
  void setMessage(const QString& text);
  /// In the place of all others until it is set to nothing.
  void setHint(const QString& text);
  /// In the place of the message until it is set to nothing, with a button "Load it" behind that leads to `load`.
  void setOffer(const QString& text, const std::function<void()>& load);
  /// The word target is told by its tip.
  void setTotal(qint32 words, const QString& target);
  void setVersion(const QString& version);
  void setBackupReminder(bool due);
  /// In the reminder's place until it is set to nothing: why the last backup was not made.
  void setBackupFailure(const QStringList& causes);
  /// In the language that is in force now.
  void showAgain();

 private:
  void showFirstPanel();
  void showBackupPanel();

  QString resting() const;

  QString rest_;
  Rest restKind_ = Rest::Passing;
  QString said_;
  QTimer cover_;
  QString hint_;
  QString offer_;
  std::function<void()> load_;
  QString shownVersion_;
  bool backupDue_ = false;
  QStringList backupFailure_;
  ElidedLabel* message_;
  QPushButton* loadIt_;
  QLabel* total_;
  QLabel* version_;
  QLabel* backup_;
};
