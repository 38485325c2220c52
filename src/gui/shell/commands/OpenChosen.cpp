#include "gui/shell/commands/OpenChosen.h"

#include "core/infra/ScanPause.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "gui/shell/main/ProjectSession.h"
#include "gui/shell/main/frmMain.h"

// Whoever opens a project by hand has no check begin in this run any more.
void openChosen(frmMain& main, const std::function<QString()>& choose) {
  if (g_Project->IsBusy()) {
    return;
  }
  main.stopUpdateCheck();
  if (!main.session().mayReplaceProject()) {
    return;
  }
  const ScanPause pause;
  if (const QString path = choose(); !path.isEmpty()) {
    main.LoadProject(path, true);
  }
  main.session().setMenusByProject();
}
