#pragma once

#include "gui/shell/main/MenuBindings.h"

struct NewBook;
class frmMain;

/// The two ways to begin a book.
class NewProjectCommands : public CommandGroup {
 public:
  explicit NewProjectCommands(frmMain& main) : main_(main) {}

  void bind(MenuBindings& menu) override;

 private:
  void mnuNewProj_Click();
  void mnuProjectGen_Click();
  /// In the place of the project that is open.
  /// False when the book that is open stays.
  bool begin(const NewBook& book);

  frmMain& main_;
};
