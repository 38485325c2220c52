#include "gui/shell/commands/BackupCommands.h"

#include "core/infra/Clock.h"
#include "core/infra/FirstOf.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/persist/BackupsProject.h"
#include "core/persist/BackupsView.h"
#include "gui/editor/frmEditorSettings.h"
#include "gui/shell/main/BookBackups.h"
#include "gui/shell/main/ProjectSession.h"
#include "gui/shell/main/StatusPanels.h"
#include "gui/shell/main/frmMain.h"
#include "gui/shell/windows/BackupVerdict.h"

using namespace Qt::StringLiterals;

namespace {

/// What the writer would look for in vain.
QString whatIsMissing() {
  if (g_Project->HoldsUnsaved()) {
    return u"\n\n"_s + translated(u"It holds what is on the disk: what could not be saved is not in it."_s);
  }
  return g_Project->EditorsHoldUnsaved()
             ? u"\n\n"_s + translated(u"What isn't saved yet in open editor windows is not in it."_s)
             : QString();
}

}  // namespace

void BackupCommands::bind(MenuBindings& menu) {
  menu.bind("mnuBackupProject", [this] { mnuBackupProject_Click(); });
  menu.bind("mnuVerifyBackup", [this] { mnuVerifyBackup_Click(); });
  menu.bind("mnuSetupAutobackup", [this] { frmEditorSettings::edit(main_); });
  menu.bind("mnuAutobackups", [this] { mnuAutobackups_Click(); });
}

void BackupCommands::mnuBackupProject_Click() {
  if (g_Project->IsBusy()) {
    return;
  }
  if (g_Project->ReadOnly()) {
    toolkit().MsgBox(u"The book was opened read-only, so no backup is made in its folder."_s);
    return;
  }
  if (main_.session().isChanged() || g_Project->HoldsUnsaved()) {
    main_.SaveProject(false);
  }
  if (g_Project->FileWithPath.isEmpty()) {
    return;  // no file was named, and that has been said
  }
  const BackupOutcome outcome = backUpProject(*g_Project, true, false);
  if (outcome.result != BackupOutcome::Result::Made) {
    main_.status().setBackupFailure(outcome.causes);
    toolkit().MsgBox(translated(u"Backup failed. See the Quillane log file for details."_s) + u"\n\n"_s +
                     translatedLines(firstOf(outcome.causes).join(u'\n')));
    return;
  }
  noteFullBackup(main_);
  toolkit().MsgBox(translated(u"Backup to %1 complete."_s).arg(g_Project->TodaysBackupFolder()) + whatIsMissing());
}

void BackupCommands::noteFullBackup(frmMain& main) {
  Settings().sSet(u"LastFullBackup"_s, Clock::dayNumber(Clock::today()));
  Settings().SaveSettings(g_SettingsFile);
  main.status().setBackupFailure({});
  main.status().setBackupReminder(false);
}

void BackupCommands::mnuVerifyBackup_Click() {
  if (g_Project->IsBusy()) {
    return;
  }
  const QString archive = newestCompleteBackup(*g_Project);
  if (archive.isEmpty()) {
    toolkit().MsgBox(
        u"There is no complete backup of this book yet. Tools - Backups - Backup Entire Project makes one."_s);
    return;
  }
  verifyAndTell(archive);
}

void BackupCommands::mnuAutobackups_Click() {
  if (!g_Project->IsBusy()) {
    main_.backups().showViewer();
  }
}
