#pragma once

#include "gui/shell/main/MenuBindings.h"

class frmMain;

/// The commands of the Backups menu that make backups of the whole book, look whether one is whole, show them, and
/// settle how the copies of texts are made.
class BackupCommands : public CommandGroup {
 public:
  explicit BackupCommands(frmMain& main) : main_(main) {}

  void bind(MenuBindings& menu) override;

  /// A complete backup was just made: nobody has to be reminded of one.
  static void noteFullBackup(frmMain& main);

 private:
  void mnuBackupProject_Click();
  void mnuVerifyBackup_Click();
  void mnuAutobackups_Click();

  frmMain& main_;
};
