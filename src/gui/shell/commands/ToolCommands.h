#pragma once

#include "gui/shell/main/MenuBindings.h"

#include <QString>

class frmMain;

/// Commands that open a window of their own or set what the program looks like.
class ToolCommands : public CommandGroup {
 public:
  explicit ToolCommands(frmMain& main) : main_(main) {}

  void bind(MenuBindings& menu) override;

 private:
  void mnuCreateDebug_Click();
  void mnuViewLog_Click();
  void mnuLostAndFound_Click();
  /// Takes the font for the window and keeps it in the settings.
  void mnuFont_Click(const QString& family);
  void mnuLanguage_Click(const QString& language);
  /// Gathers the texts of the windows that are open, and gives each language file the entries that it lacks.
  void mnuUpdateLanguages_Click();
  void mnuAbout_Click();
  void mnuCheckVersion_Click();
  void mnuManual_Click();

  frmMain& main_;
};
