#pragma once

#include "gui/shell/main/MenuBindings.h"

#include <QStringList>

class clsChapter;
class frmMain;

/// The commands that bring texts of other programs into the book, or in its place.
class ImportCommands : public CommandGroup {
 public:
  explicit ImportCommands(frmMain& main) : main_(main) {}

  void bind(MenuBindings& menu) override;

 private:
  void ImportWorkInProgress();
  void ImportScenesFromFile();
  void mnuImportScene_Click();

  /// The questions that stand before the project's contents are replaced.
  bool mayBegin(const QString& question, const QStringList& explanation);
  void importScenes(clsChapter& chapter, const QStringList& files);

  frmMain& main_;
};
