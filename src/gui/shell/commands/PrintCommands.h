#pragma once

#include "core/model/StoryMoves.h"
#include "core/reports/PrintReport.h"
#include "gui/shell/main/MenuBindings.h"

class frmMain;

/// The commands that put the book on paper, or its synopsis into a file.
class PrintCommands : public CommandGroup {
 public:
  explicit PrintCommands(frmMain& main) : main_(main) {}

  void bind(MenuBindings& menu) override;

 private:
  void bindChapterReport(MenuBindings& menu, const char* entry, const QString& key, const QString& prompt,
                         const ReportLayout& report);
  /// The entries of the work schedule, by the status that the scenes stand at.
  static void bindWorkSchedule(MenuBindings& menu);
  void bindList(MenuBindings& menu, const char* entry, CastKind kind);
  void mnuPrintProject_Click();
  void mnuPrintSelectedChapters_Click();
  void mnuPrintScene_Click();
  void mnuPrintSceneCards_Click();
  void mnuSaveSynopsis_Click();

  frmMain& main_;
};
