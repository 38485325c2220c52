#include "gui/shell/main/UpdateCheck.h"

#include "core/infra/VersionFile.h"
#include "gui/shell/main/MainMenuBar.h"
#include "gui/shell/main/frmMain.h"
#include "gui/shell/windows/fSHAREDUpdater.h"
#include "gui/toolkit/GuardedSlot.h"

using namespace Qt::StringLiterals;

namespace {

fSHAREDUpdater& updaterOf(frmMain& main) {
  if (auto* const updater = main.findChild<fSHAREDUpdater*>()) {
    return *updater;
  }
  auto* const updater = new fSHAREDUpdater(&main);
  QObject::connect(updater, &fSHAREDUpdater::Status, &main,
                   guarded("Updater_Status", "frmMain", &main, &frmMain::showMessage));
  QObject::connect(updater, &fSHAREDUpdater::InstallFile, &main,
                   guarded("Updater_InstallFile", "frmMain", &main, &frmMain::Updater_InstallFile));
  QObject::connect(updater, &fSHAREDUpdater::InstallerGone, &main,
                   guarded("Updater_InstallerGone", "frmMain", [&main] { main.InstallerPath.clear(); }));
  // Somebody may have begun to write since the check began: the question waits for what that waited for.
  QObject::connect(updater, &fSHAREDUpdater::Offered, &main,
                   guarded("Updater_Offered", "frmMain", &main, &frmMain::startUpdateCheck));
  QObject::connect(&main, &frmMain::leaving, updater, guarded("StopAll", "frmMain", updater, &fSHAREDUpdater::StopAll));
  return *updater;
}

}  // namespace

void offerUpdateCheck(frmMain& main) {
  main.menus().setVisible(u"mnuCheckVersion"_s, !UpdateAddress::server().isEmpty());
}

void checkForUpdate(frmMain& main, bool silent) {
  updaterOf(main).CheckForUpdate(silent);
}

void checkForUpdateByItself(frmMain& main) {
  if (UpdateAddress::server().isEmpty()) {
    return;
  }
  fSHAREDUpdater& updater = updaterOf(main);
  if (updater.HasOffer()) {
    updater.Offer();
  } else if (!updater.NoAutoCheck() && updater.DoCheckNow()) {
    updater.CheckForUpdate(true);
  }
}
