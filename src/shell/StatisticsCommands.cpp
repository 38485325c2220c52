#include "shell/StatisticsCommands.h"

#include "editor/frmWordCount.h"
#include "infra/cSHAREDSubs.h"
#include "model/Globals.h"
#include "model/clsProject.h"
#include "model/clsScene.h"
#include "shell/InputShield.h"
#include "shell/frmMain.h"
#include "spell/clsHashTable.h"
#include "text/modWordcount.h"

using namespace Qt::StringLiterals;

void StatisticsCommands::mnuWordUsageCount_Click() {
  if (g_Project->IsBusy()) {
    return;
  }
  clsHashTable table;
  {
    // The scenes that are walked stay as they are.
    const InputShield shield;
    Subs().BusyMouse();
    for (const auto& scene : g_Project->Scenes) {
      main_.showMessage(scene->RTFFilename());
      Subs().RegularDoEvents();
      BreakAndHash(table, scene->ConvertedToBodyText());
    }
  }
  main_.showMessage(u"Filling word list"_s);
  const frmWordCount* const form = frmWordCount::showOver(main_, table);
  QObject::connect(form, &QDialog::finished, &main_, [&main = main_] { main.showMessage(QString()); });
}
