#pragma once

#include "core/infra/ChangePoller.h"

class frmMain;

/// Keeps the rows of the main window in step with the model. Nothing calls the window when the model changes: twice a
/// second it asks the change tables.
class ChangeScan {
 public:
  explicit ChangeScan(frmMain& main);

  void start();
  void stop() { poller_.stop(); }

 private:
  void sceneChanged(qint32 id);
  void characterChanged(qint32 id);
  bool needsRefill() const;
  void showFindings();

  frmMain& main_;
  ChangePoller poller_;
  /// What the selected scene shows was changed in this poll.
  bool selectedChanged_ = false;
};
