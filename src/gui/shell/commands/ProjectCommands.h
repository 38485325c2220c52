#pragma once

#include "gui/shell/main/MenuBindings.h"

#include <QString>

class frmMain;

/// The commands of the Project menu that replace or save the whole project.
class ProjectCommands : public CommandGroup {
 public:
  explicit ProjectCommands(frmMain& main) : main_(main) {}

  void bind(MenuBindings& menu) override;

 private:
  void mnuLoadProj_Click();
  void mnuRecent_Click(const QString& Path);
  void mnuSaveProj_Click();
  void mnuSaveAs_Click();
  void mnuCloseProject_Click();
  void mnuAppendProject_Click();
  void mnuSaveToSingleFile_Click();

  frmMain& main_;
};
