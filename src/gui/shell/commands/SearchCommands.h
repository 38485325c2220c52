#pragma once

#include "gui/shell/commands/BookSearch.h"
#include "gui/shell/main/MenuBindings.h"

class MainMenuBar;
class frmMain;

/// The commands of the Search menu.
class SearchCommands : public CommandGroup {
 public:
  explicit SearchCommands(frmMain& main) : main_(main), search_(main) {}

  void bind(MenuBindings& menu) override;

  /// Fills the submenu of the writer's own problem words from the settings.
  static void fillProblemWords(MainMenuBar& menus);

 private:
  void mnuUDW_Click(const MenuChoice& chosen);
  void defineProblemWords();
  void mnuGlobalReplace_Click();

  frmMain& main_;
  BookSearch search_;
};
