#pragma once

#include "gui/shell/main/MenuBindings.h"

class frmMain;

/// "Synopsis with HTML Timeline": a page of the descriptions of the scenes, beside each other by who tells them.
class TimelineCommand : public CommandGroup {
 public:
  explicit TimelineCommand(frmMain& main) : main_(main) {}

  void bind(MenuBindings& menu) override;

 private:
  void ExportTimeline();

  frmMain& main_;
};
