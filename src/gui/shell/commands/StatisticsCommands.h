#pragma once

class frmMain;

/// The commands that count over the whole story.
class StatisticsCommands {
 public:
  explicit StatisticsCommands(frmMain& main) : main_(main) {}

  /// How often each word is used in all scenes, unused ones too.
  void mnuWordUsageCount_Click();

 private:
  frmMain& main_;
};
