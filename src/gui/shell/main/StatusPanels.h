#pragma once

#include <QString>

class ElidedLabel;
class QLabel;
class QStatusBar;

/// The main window's status bar of four panels: running messages, the total of words, the version, the reminder
/// to make a backup. The panels bear their keys as names: "numberfiles", "Totalwords", "Version", "backup".
class StatusPanels {
 public:
  explicit StatusPanels(QStatusBar& bar);

  void setMessage(const QString& text);
  /// In the message's place until it is set to nothing.
  void setHint(const QString& text);
  void setTotal(qint32 words);
  void setVersion(const QString& version);
  void setBackupReminder(bool due);

 private:
  void showFirstPanel();

  QString said_;
  QString hint_;
  ElidedLabel* message_;
  QLabel* total_;
  QLabel* version_;
  QLabel* backup_;
};
