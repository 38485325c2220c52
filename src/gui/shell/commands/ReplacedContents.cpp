#include "gui/shell/commands/ReplacedContents.h"

#include "core/infra/Guard.h"
#include "core/infra/Paths.h"
#include "core/infra/ScanPause.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsProject.h"
#include "gui/shell/commands/BackupCommands.h"
#include "gui/shell/main/BookBackups.h"
#include "gui/shell/main/frmMain.h"
#include "gui/shell/windows/CompleteBackup.h"

#include <memory>
#include <optional>
#include <utility>

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
  const CompleteBackup backup = CompleteBackup::makeOrAsk(shownText(u"what is erased could not be brought back"_s),
                                                          shownText(u"Import all the same?"_s));
  if (!backup.mayGoOn) {
    return {};
  }
  if (!backup.archive.isEmpty()) {
    BackupCommands::noteFullBackup(main);
  }
  return backup.archive;
}

/// The place of the open project, lent to another one. What was open comes back as it stood in memory, unless the
/// other one is to stay.
class LentPlace {
 public:
  explicit LentPlace(frmMain& main, const QString& other) : main_(main) {
    main_.session().leaveProject();
    sharesFolder_ = !g_Project->FileWithPath.isEmpty() && Paths::areSame(g_Project->Path(), Files().PathOnly(other));
    if (sharesFolder_) {
      g_Project->UnlockFolder();
    }
    former_ = std::exchange(g_Project, std::make_unique<clsProject>());
  }
  ~LentPlace() {
    if (!former_) {
      return;
    }
    // Scenes that were open give up their locks.
    g_Project->Clear();
    g_Project = std::move(former_);
    if (sharesFolder_) {
      g_Project->LockFolder();
    }
    Guard("LentPlace", "ReplacedContents")([this] {
      main_.session().setMenusByProject();
      main_.RefreshAll();
      if (!g_Project->FileWithPath.isEmpty()) {
        main_.backups().bookOpened();
      }
    });
  }
  LentPlace(const LentPlace&) = delete;
  LentPlace& operator=(const LentPlace&) = delete;

  void keepOther() {
    former_->Clear();
    former_.reset();
  }

 private:
  frmMain& main_;
  std::unique_ptr<clsProject> former_;
  bool sharesFolder_ = false;
};

/// What was open stays until the other one is safe.
std::optional<QString> backedUpAsOpen(frmMain& main, const QString& projectFile) {
  if (isOpen(projectFile)) {
    return backedUp(main);
  }
  LentPlace place(main, projectFile);
  g_Project->Load(projectFile, true);
  std::optional<QString> archive = isOpen(projectFile) ? backedUp(main) : std::nullopt;
  if (archive) {
    place.keepOther();
  }
  return archive;
}

void beginNew(const QString& projectFile) {
  g_Project->Clear();
  g_Project = std::make_unique<clsProject>();
  g_Project->FileWithPath = projectFile;
}

/// What is open is what was put there. Where another program has changed the project file meanwhile, the writer may
/// have wanted that instead.
bool holds(const std::shared_ptr<clsCharacter>& narrator) {
  return g_Project->CharCount() > 0 && g_Project->CharByIndex(1) == narrator;
}

void tellWhereFormerIs(frmMain& main, const QString& archive) {
  if (archive.isEmpty()) {
    return;
  }
  if (g_Project->HoldsUnsaved()) {
    toolkit().MsgBox(translated(u"What was imported could not be saved whole. What the project held before is in"_s) +
                     u'\n' + archive);
  } else {
    main.showMessage(translated(u"Imported. What the project held before is in %1"_s).arg(archive));
  }
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
  const auto narrator = g_Project->CharByIndex(1);
  main.SaveProject(true);
  const bool imported = holds(narrator);
  main.session().setMenusByProject();
  main.RefreshAll();
  main.backups().bookOpened();
  if (imported) {
    tellWhereFormerIs(main, *archive);
  }
  return imported;
}
