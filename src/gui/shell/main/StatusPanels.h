#pragma once

#include <QString>

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

  void setMessage(const QString& text);
  /// In the message's place until it is set to nothing.
  void setHint(const QString& text);
  /// In the place of the message until it is set to nothing, with a button "Load it" behind that leads to `load`.
  void setOffer(const QString& text, const std::function<void()>& load);
  void setTotal(qint32 words);
  void setVersion(const QString& version);
  void setBackupReminder(bool due);

 private:
  void showFirstPanel();

  QString said_;
  QString hint_;
  QString offer_;
  std::function<void()> load_;
  ElidedLabel* message_;
  QPushButton* loadIt_;
  QLabel* total_;
  QLabel* version_;
  QLabel* backup_;
};
