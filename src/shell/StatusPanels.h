#pragma once

#include <QLabel>
#include <QString>

class QStatusBar;

/// A label that ends in an ellipsis where its panel is too narrow, and tells the whole text as its tool tip.
class StatusPanel : public QLabel {
  Q_OBJECT

 public:
  StatusPanel(const QString& key, QWidget* parent);
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

/// The main window's status bar of four panels: running messages, the total of words, the version, the reminder
/// to make a backup. The panels bear their keys as names: "numberfiles", "Totalwords", "Version", "backup".
class StatusPanels {
 public:
  explicit StatusPanels(QStatusBar& bar);

  void setMessage(const QString& text);
  void setTotal(qint32 words);
  void setVersion(const QString& version);
  void setBackupReminder(bool due);

 private:
  StatusPanel* message_;
  StatusPanel* total_;
  StatusPanel* version_;
  StatusPanel* backup_;
};
