#include "gui/shell/commands/StatisticsCommands.h"

#include "core/infra/cSHAREDSubs.h"
#include "core/infra/clsHashTable.h"
#include "core/model/Globals.h"
#include "core/model/LongWork.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/text/modWordcount.h"
#include "gui/shell/main/frmMain.h"
#include "gui/views/frmWordCount.h"

#include <vector>

using namespace Qt::StringLiterals;

void StatisticsCommands::bind(MenuBindings& menu) {
  menu.bind("mnuWordUsageCount", [this] { mnuWordUsageCount_Click(); });
}

void StatisticsCommands::mnuWordUsageCount_Click() {
  if (g_Project->IsBusy()) {
    return;
  }
  clsHashTable table;
  {
    // The scenes that are walked stay, whatever is done while the window repaints.
    const LongWork work(*g_Project, u"Counting words"_s, false);
    const std::vector<std::shared_ptr<clsScene>> scenes(g_Project->Scenes.begin(), g_Project->Scenes.end());
    for (const auto& scene : scenes) {
      main_.showMessage(scene->RTFFilename());
      Subs().RegularDoEvents();
      BreakAndHash(table, scene->ConvertedToBodyText());
    }
  }
  main_.showMessage(u"Filling word list"_s);
  const frmWordCount* const form = frmWordCount::showOver(main_, table);
  QObject::connect(form, &QDialog::finished, &main_, [&main = main_] { main.showMessage(QString()); });
}
