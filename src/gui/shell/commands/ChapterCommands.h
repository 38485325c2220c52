#pragma once

#include "gui/shell/main/MenuBindings.h"

class frmMain;

/// The commands of the Chapter menu that make, edit, mark and remove chapters.
class ChapterCommands : public CommandGroup {
 public:
  explicit ChapterCommands(frmMain& main) : main_(main) {}

  void bind(MenuBindings& menu) override;

 private:
  void mnuFileNew_Click();
  void mnuCreateChapters_Click();
  void mnuEditChapter_Click();
  void mnuMarkEndBeginning_Click();
  void mnuMarkEndMiddle_Click();
  void mnuRenumber_Click();
  void mnuMarkChaptersUnused_Click();
  void mnuRemoveChapter_Click();

  void createChapters(qint32 count);
  void markEnd(qint32& section);
  void showChanged();

  frmMain& main_;
};
