#include "gui/shell/commands/ReplacedContents.h"

#include "core/infra/Paths.h"
#include "core/infra/ScanPause.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "gui/shell/commands/BackupCommands.h"
#include "gui/shell/main/BookBackups.h"
#include "gui/shell/main/frmMain.h"
#include "gui/shell/windows/CompleteBackup.h"

#include <optional>

using namespace Qt::StringLiterals;

namespace {

bool isOpen(const QString& projectFile) {
  return !g_Project->FileWithPath.isEmpty() && Paths::areSame(projectFile, g_Project->FileWithPath);
}

/// The backup of the open project, empty where the writer goes on without; nothing when the project is to stay.
std::optional<QString> backedUp(frmMain& main) {
  if (g_Project->ReadOnly()) {
    toolkit().MsgBox(u"The book was opened read-only, so nothing is saved to its place."_s);
    return {};
  }
  const CompleteBackup backup =
      CompleteBackup::makeOrAsk(u"what is erased could not be brought back"_s, u"Import all the same?"_s);
  if (!backup.mayGoOn) {
    return {};
  }
  if (!backup.archive.isEmpty()) {
    BackupCommands::noteFullBackup(main);
  }
  return backup.archive;
}

/// What was open stays until the other one is safe.
std::optional<QString> backedUpAsOpen(frmMain& main, const QString& projectFile) {
  if (isOpen(projectFile)) {
    return backedUp(main);
  }
  const QString former = g_Project->FileWithPath;
  main.LoadProject(projectFile, true);
  std::optional<QString> archive = isOpen(projectFile) ? backedUp(main) : std::nullopt;
  if (!archive && !former.isEmpty() && !isOpen(former)) {
    main.LoadProject(former, true);
  }
  return archive;
}

void beginNew(const QString& projectFile) {
  g_Project->Clear();
  g_Project = std::make_unique<clsProject>();
  g_Project->FileWithPath = projectFile;
}

}  // namespace

bool replaceContents(frmMain& main, const QString& projectFile, const std::function<void(clsProject&)>& fill) {
  if (g_Project->IsBusy() || !main.session().mayReplaceProject()) {
    return false;
  }
  const QString target = projectFile.isEmpty() ? g_Project->FileWithPath : projectFile;
  const bool isThere = isOpen(target) || Files().FileExists(target);
  const std::optional<QString> archive = isThere ? backedUpAsOpen(main, target) : QString();
  if (!archive) {
    main.session().setMenusByProject();
    return false;
  }
  const ScanPause pause;
  main.session().leaveProject();
  if (!isThere) {
    beginNew(target);
  }
  fill(*g_Project);
  main.SaveProject(true);
  main.session().setMenusByProject();
  main.RefreshAll();
  main.backups().bookOpened();
  if (!archive->isEmpty() && !g_Project->HoldsUnsaved()) {
    main.showMessage(u"Imported. What the project held before is in "_s + *archive);
  }
  return true;
}
