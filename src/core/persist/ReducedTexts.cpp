#include "core/persist/ReducedTexts.h"

#include "core/infra/FirstOf.h"
#include "core/infra/RuntimeError.h"
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
        u"Its text holds what can't be kept (%1), and could not be copied to the backup folder first."_s.arg(
            namesOf(losses).join(u", "_s)));
  }
  titles_.append(calledScene(scene.Title));
  losses_ |= losses;
}

QString ReducedTexts::remark() const {
  if (titles_.isEmpty()) {
    return {};
  }
  return u"The text of %1 held what could not be kept: %2. The files as they were are in %3:\n"_s.arg(
             countedScenes(titles_.size()), namesOf(losses_).join(u", "_s), g_Project->TodaysBackupFolder()) +
         firstOf(titles_).join(u'\n');
}
