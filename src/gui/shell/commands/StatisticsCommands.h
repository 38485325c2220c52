#pragma once

#include "gui/shell/main/MenuBindings.h"

class frmMain;

/// The commands that count over the whole story.
class StatisticsCommands : public CommandGroup {
 public:
  explicit StatisticsCommands(frmMain& main) : main_(main) {}

  void bind(MenuBindings& menu) override;

 private:
  /// Words belong to the viewpoint alone, whoever else is in the scene.
  void mnuWordsPerCharacter_Click();
  void mnuScenesPerCharacter_Click();
  /// How often each word is used in all scenes, unused ones too.
  void mnuWordUsageCount_Click();

  frmMain& main_;
};
