#include "gui/shell/commands/StatisticsCommands.h"

#include "core/infra/cSHAREDSubs.h"
#include "core/infra/clsHashTable.h"
#include "core/model/Globals.h"
#include "core/model/LongWork.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/text/modWordcount.h"
#include "gui/shell/main/frmMain.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/views/frmWordCount.h"

#include <algorithm>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

/// As many are counted before a window about it could be read.
constexpr qint32 kScenesInAMoment = 300;

bool isUnused(const clsScene& scene) {
  return scene.Unused || g_Project->ChapterByID(scene.BelongsToChID)->Unused;
}

/// What was counted: the total below the chapters, which leaves the unused scenes out, is another one.
QString scopeOf(const std::vector<std::shared_ptr<clsScene>>& scenes) {
  const auto unused = std::count_if(scenes.begin(), scenes.end(), [](const auto& scene) { return isUnused(*scene); });
  return u"Scenes: %L1, unused ones among them: %L2"_s.arg(scenes.size()).arg(unused);
}

}  // namespace

void StatisticsCommands::bind(MenuBindings& menu) {
  menu.bind("mnuWordUsageCount", [this] { mnuWordUsageCount_Click(); });
}

void StatisticsCommands::mnuWordUsageCount_Click() {
  if (g_Project->IsBusy()) {
    return;
  }
  clsHashTable table;
  QString scope;
  {
    // The scenes that are walked stay, whatever is done while the window repaints.
    const bool takesLong = g_Project->SceneCount() > kScenesInAMoment;
    const LongWork work(*g_Project, u"Counting words"_s, takesLong, LongWork::Stop::Offered);
    const std::vector<std::shared_ptr<clsScene>> scenes(g_Project->Scenes.begin(), g_Project->Scenes.end());
    for (const auto& scene : scenes) {
      main_.showMessage(scene->RTFFilename());
      Subs().RegularDoEvents();
      BreakAndHash(table, scene->ConvertedToBodyText());
      if (work.stopWanted()) {
        main_.showMessage(QString());
        return;
      }
    }
    scope = scopeOf(scenes);
  }
  main_.showMessage(u"Filling word list"_s);
  const frmWordCount* const form = frmWordCount::showOver(main_, table, scope);
  QObject::connect(form, &QDialog::finished, &main_,
                   guarded("mnuWordUsageCount_Click", "frmMain", [&main = main_] { main.showMessage(QString()); }));
}
