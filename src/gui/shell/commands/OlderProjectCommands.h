#pragma once

#include "gui/shell/main/MenuBindings.h"

#include <QString>

class clsQN2Project;
class frmMain;

/// The commands that take in what the generations before have left.
class OlderProjectCommands : public CommandGroup {
 public:
  explicit OlderProjectCommands(frmMain& main) : main_(main) {}

  void bind(MenuBindings& menu) override;

 private:
  void mnuImportQuillane3_Click();
  void mnuImportQuillane2_Click();
  void mnuConvQN2Scn_Click();

  /// A new book, in a place that is asked for, takes the open one's place. When that is given up the open one is as it
  /// was.
  bool beginBook();
  void fillBook(const clsQN2Project& from);

  frmMain& main_;
};
