#pragma once

#include "gui/shell/main/MenuBindings.h"

#include <QList>

class clsChapter;
class frmMain;

/// The commands of the Scene menu that make, mark and remove scenes.
class SceneCommands : public CommandGroup {
 public:
  explicit SceneCommands(frmMain& main) : main_(main) {}

  void bind(MenuBindings& menu) override;

 private:
  void mnuAddScene_Click();
  void mnuAddMultiScenes_Click();
  void mnuMarkScenesUnused_Click();
  void mnuStatus_Click(int Index);
  void RemoveScenes(bool AlsoDeleteFile);

  void createScenes(clsChapter& chapter, qint32 count);
  QList<qint32> selected() const;

  frmMain& main_;
};
