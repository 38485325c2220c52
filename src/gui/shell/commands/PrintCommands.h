#pragma once

#include "core/model/StoryMoves.h"
#include "gui/shell/main/MenuBindings.h"
#include "gui/views/PrintRun.h"

class frmMain;

/// The commands that put the book on paper, or its synopsis into a file.
class PrintCommands : public CommandGroup {
 public:
  explicit PrintCommands(frmMain& main) : main_(main) {}

  void bind(MenuBindings& menu) override;

 private:
  /// The chapters are asked for each time, and the file is named after the book of the time.
  static void bindChapterReport(MenuBindings& menu, const char* entry, const PrintOrder& report);
  /// The entries of the work schedule, by the status that the scenes stand at.
  static void bindWorkSchedule(MenuBindings& menu);
  static void bindList(MenuBindings& menu, const char* entry, CastKind kind);
  void mnuPrintProject_Click();
  void mnuPrintSelectedChapters_Click();
  void mnuPrintScene_Click();
  void mnuPrintSceneCards_Click();
  void mnuSaveSynopsis_Click();

  frmMain& main_;
};
