#include "core/persist/ReducedTexts.h"

#include "core/infra/FirstOf.h"
#include "core/infra/RuntimeError.h"
#include "core/infra/ToldText.h"
#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/SceneTitle.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/persist/Backups.h"

using namespace Qt::StringLiterals;

void ReducedTexts::keepOriginal(clsScene& scene, RtfLosses losses) {
  if (!losses) {
    return;
  }
  if (!backUpOriginal(scene)) {
    throw RuntimeError(
        RuntimeError::PathAccess,
        toldText(
            shownText(u"Its text holds what can't be kept (%1), and could not be copied to the backup folder first."_s),
            {namesOf(losses).join(u", "_s)}));
  }
  titles_.append(calledScene(scene.Title));
  losses_ |= losses;
}

QString ReducedTexts::remark() const {
  if (titles_.isEmpty()) {
    return {};
  }
  return translated(u"The text of %1 held what could not be kept: %2. The files as they were are in %3:"_s)
             .arg(countedScenes(titles_.size()), namesOf(losses_).join(u", "_s), g_Project->TodaysBackupFolder()) +
         u'\n' + firstOf(titles_).join(u'\n');
}
