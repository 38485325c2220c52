#pragma once

#include "gui/shell/main/MenuBindings.h"

class frmMain;

/// The command that gives the texts of all scenes one font.
class FontCommand : public CommandGroup {
 public:
  explicit FontCommand(frmMain& main) : main_(main) {}

  void bind(MenuBindings& menu) override;

 private:
  void mnuSetAllSceneFont_Click();

  frmMain& main_;
};
