#pragma once

#include "core/exchange/BookWalk.h"
#include "gui/shell/main/MenuBindings.h"

class frmMain;

/// The commands that write the book out as a text: the manuscript, its outline, its descriptions.
class TextExportCommands : public CommandGroup {
 public:
  explicit TextExportCommands(frmMain& main) : main_(main) {}

  void bind(MenuBindings& menu) override;

 private:
  struct Manuscript;

  void exportManuscript(const Manuscript& kind);
  void mnuExportOutline_Click();
  void mnuExportDesc_Click();
  void mnuExportNano_Click();

  frmMain& main_;
};
