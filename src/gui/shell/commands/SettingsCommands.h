#pragma once

#include "gui/shell/main/MenuBindings.h"

class frmMain;
struct ProjectSettings;

/// The command that shows the settings of the project, and what becomes of them.
class SettingsCommands : public CommandGroup {
 public:
  explicit SettingsCommands(frmMain& main) : main_(main) {}

  void bind(MenuBindings& menu) override;

 private:
  void mnuSettings_Click();
  void take(const ProjectSettings& settings);

  frmMain& main_;
};
