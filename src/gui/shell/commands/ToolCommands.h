#pragma once

#include <QString>

class frmMain;

/// The commands of the Tools, Language and Help menus that belong to the program rather than to the story.
class ToolCommands {
 public:
  explicit ToolCommands(frmMain& main) : main_(main) {}

  void mnuViewLog_Click();
  /// Takes the font for the window and keeps it in the settings.
  void mnuFont_Click(const QString& family);
  void mnuLanguage_Click(int index);
  void mnuAbout_Click();
  void mnuManual_Click();
  void mnuCheckVersion_Click();

  /// Shows the window in this font and checks its entry; a font that isn't installed leaves the system's own.
  /// False in that case. "MS Sans Serif" stands for the system's own font everywhere.
  bool useFormFont(const QString& family);

 private:
  frmMain& main_;
};
