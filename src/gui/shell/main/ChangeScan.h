#pragma once

#include <QObject>
#include <QTimer>

class QTreeWidgetItem;
class frmMain;

/// The polling loop that keeps the rows of the selected chapter in step with the model. Nothing calls the window
/// when the model changes: twice a second it asks the change tables about the scenes that it shows.
class ChangeScan : public QObject {
  Q_OBJECT

 public:
  explicit ChangeScan(frmMain& main);

  void Stop() { TimerScanScenes_.stop(); }
  void Start() { TimerScanScenes_.start(); }
  bool isRunning() const { return TimerScanScenes_.isActive(); }

 private:
  struct Findings {
    bool NeedsRefill = false;
    bool AnyChange = false;
    bool SelectedChanged = false;
  };

  void TimerScanScenes_Timer();
  void scanRow(QTreeWidgetItem& row, Findings& found);
  void updateSceneAndChapter(QTreeWidgetItem& row, qint32 id, Findings& found);
  void showFindings(const Findings& found);

  frmMain& main_;
  QTimer TimerScanScenes_;
};
