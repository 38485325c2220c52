#pragma once

#include "gui/shell/main/MenuBindings.h"

class frmMain;

/// "to HTML": chosen chapters as one page to read.
class HtmlExportCommand : public CommandGroup {
 public:
  explicit HtmlExportCommand(frmMain& main) : main_(main) {}

  void bind(MenuBindings& menu) override;

 private:
  void mnuExportHTML_Click();

  frmMain& main_;
};
