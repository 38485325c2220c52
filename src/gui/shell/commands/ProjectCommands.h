#pragma once

#include <QString>

class frmMain;

/// The commands of the Project menu that replace or save the whole project.
class ProjectCommands {
 public:
  explicit ProjectCommands(frmMain& main) : main_(main) {}

  void LoadProject(const QString& Path, bool ShowProgress);
  /// Stops the scan while it works. A failed save has been told by then.
  void SaveProject(bool ShowProgress);
  /// What must be saved before the project is replaced or copied; without a question.
  void saveIfChanged();
  void AddToRecent(const QString& Path);
  void UpdateRecent();
  /// True when it was done, and also when open editors stood in the way of saving. False when the project could not
  /// be saved and the user keeps it.
  bool CloseProject();

  void mnuLoadProj_Click();
  void mnuRecent_Click(const QString& Path);
  void mnuSaveProj_Click();
  void mnuSaveAs_Click();
  void mnuCloseProject_Click();
  void mnuNewProj_Click();
  void mnuAppendProject_Click();
  void mnuSaveToSingleFile_Click();

 private:
  /// Saves what is to be saved; what can't be is asked about. False when the project has to stay.
  bool mayReplaceProject();
  bool isChanged() const;
  bool readProject(const QString& path, bool showProgress);
  void showEmptyProject();
  void setMenusByProject();

  frmMain& main_;
};
