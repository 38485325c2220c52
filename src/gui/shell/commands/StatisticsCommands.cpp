#include "gui/shell/commands/StatisticsCommands.h"

#include "core/infra/Toolkit.h"
#include "core/infra/cSHAREDSubs.h"
#include "core/infra/cSharedLang.h"
#include "core/infra/clsHashTable.h"
#include "core/model/Globals.h"
#include "core/model/LongWork.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/text/modWordcount.h"
#include "gui/shell/main/frmMain.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/views/frmWordCount.h"

#include <algorithm>
#include <optional>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

/// As many are counted before a window about it could be read.
constexpr qint32 kScenesInAMoment = 3000;

bool isUnused(const clsScene& scene) {
  return scene.Unused || g_Project->ChapterByID(scene.BelongsToChID)->Unused;
}

/// What was counted: the total below the chapters, which leaves the unused scenes out, is another one.
QString scopeOf(const std::vector<std::shared_ptr<clsScene>>& scenes) {
  const auto unused = std::count_if(scenes.begin(), scenes.end(), [](const auto& scene) { return isUnused(*scene); });
  return translated(u"Scenes: %L1, unused ones among them: %L2"_s).arg(scenes.size()).arg(unused);
}

bool counts(clsScene& scene) {
  return !isUnused(scene) && g_Project->ChapterByID(scene.BelongsToChID)->SceneIndex(scene.ID()) > 0;
}

/// What `amountOf` says of each scene that is used in a used chapter, summed by the character that narrates, in the
/// order of the scenes. Nothing when it was stopped.
template <class AmountOf>
std::optional<clsHashTable> perCharacter(LongWork& work, AmountOf amountOf) {
  clsHashTable table;
  // The scenes that are walked stay, whatever is done while the window repaints.
  const std::vector<std::shared_ptr<clsScene>> scenes(g_Project->Scenes.begin(), g_Project->Scenes.end());
  for (const auto& scene : scenes) {
    if (counts(*scene)) {
      table.AddAmtToCount(scene->ViewPointID(), amountOf(*scene));
    }
    work.showIfLong();
    Subs().RegularDoEvents();
    if (work.stopWanted()) {
      return {};
    }
  }
  return table;
}

/// A line for each character, and what it has of the whole.
void tellShares(const clsHashTable& table, qint32 whole) {
  QString lines;
  for (qint32 i = 1; i <= table.HighWater(); ++i) {
    const HashRecord record = table.Record(i);
    const double percent = whole == 0 ? 0 : 100.0 * record.Count / whole;
    const QString name = g_Project->CharByID(record.ID)->Title();
    lines += (name.isEmpty() ? translated(u"(no name)"_s) : name) +
             u": %L1 (%L2%)\n"_s.arg(record.Count).arg(percent, 0, 'f', 2);
  }
  toolkit().MsgBox(lines.isEmpty()
                       ? translated(u"No characters"_s)
                       : lines + u'\n' +
                             translated(u"(Does not include unused scenes or scenes within unused chapters)"_s));
}

}  // namespace

void StatisticsCommands::bind(MenuBindings& menu) {
  menu.bind("mnuWordsPerCharacter", [this] { mnuWordsPerCharacter_Click(); });
  menu.bind("mnuScenesPerCharacter", [this] { mnuScenesPerCharacter_Click(); });
  menu.bind("mnuWordUsageCount", [this] { mnuWordUsageCount_Click(); });
}

void StatisticsCommands::mnuWordsPerCharacter_Click() {
  if (g_Project->IsBusy()) {
    return;
  }
  std::optional<clsHashTable> table;
  const qint32 before = g_Project->Wordcount(false);
  {
    LongWork work(*g_Project, shownText(u"Counting words"_s), g_Project->SceneCount() > kScenesInAMoment,
                  LongWork::Stop::Offered);
    table = perCharacter(work, [](clsScene& scene) {
      // What is typed in an open editor counts when it is saved, as everywhere.
      if (!scene.Locked()) {
        scene.ForceWordcount();
      }
      return scene.Wordcount();
    });
  }
  if (g_Project->Wordcount(false) != before) {
    // The project file told other counts than the texts have.
    main_.RefreshAll();
  }
  if (table) {
    tellShares(*table, g_Project->Wordcount(false));
  }
}

void StatisticsCommands::mnuScenesPerCharacter_Click() {
  if (g_Project->IsBusy()) {
    return;
  }
  std::optional<clsHashTable> table;
  {
    LongWork work(*g_Project, shownText(u"Counting scenes"_s), false, LongWork::Stop::Offered);
    table = perCharacter(work, [](const clsScene&) { return 1; });
  }
  if (table) {
    tellShares(*table, g_Project->SceneCount());
  }
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
    LongWork work(*g_Project, shownText(u"Counting words"_s), takesLong, LongWork::Stop::Offered);
    const std::vector<std::shared_ptr<clsScene>> scenes(g_Project->Scenes.begin(), g_Project->Scenes.end());
    for (const auto& scene : scenes) {
      main_.showMessage(scene->RTFFilename());
      work.showIfLong();
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
