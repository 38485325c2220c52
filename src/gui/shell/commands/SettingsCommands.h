#pragma once

#include "gui/shell/main/MenuBindings.h"

#include <QString>

class frmMain;
struct ProjectSettings;

/// The commands that show what is settled for the whole project, its settings and its word target, and what becomes of
/// that.
class SettingsCommands : public CommandGroup {
 public:
  explicit SettingsCommands(frmMain& main) : main_(main) {}

  void bind(MenuBindings& menu) override;

 private:
  void mnuSettings_Click();
  void mnuWordTarget_Click();
  void take(const ProjectSettings& settings);
  /// Saves what was stored in the project. `inMemoryOnly` is said where the book isn't saved.
  void saveStored(const QString& inMemoryOnly);

  frmMain& main_;
};
