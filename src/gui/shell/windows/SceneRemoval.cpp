#include "gui/shell/windows/SceneRemoval.h"

#include "core/infra/Toolkit.h"
#include "core/infra/cSharedLang.h"
#include "core/model/SceneTitle.h"
#include "core/model/clsScene.h"
#include "core/persist/LostAndFound.h"

using namespace Qt::StringLiterals;

bool mayLeaveBook(const clsScene& scene) {
  if (LostAndFound::mayBeRemoved(scene)) {
    return true;
  }
  const QString title = calledScene(scene.Title);
  toolkit().MsgBox(
      translated(u"The text of \"%1\" isn't in a file yet and would be lost. Please save the project first."_s)
          .arg(title));
  return false;
}
