#include "gui/shell/windows/SceneRemoval.h"

#include "core/infra/Toolkit.h"
#include "core/model/SceneTitle.h"
#include "core/model/clsScene.h"
#include "core/persist/LostAndFound.h"

using namespace Qt::StringLiterals;

bool mayLeaveBook(const clsScene& scene) {
  if (LostAndFound::mayBeRemoved(scene)) {
    return true;
  }
  const QString title = calledScene(scene.Title);
  toolkit().MsgBox(u"The text of \""_s + title +
                   u"\" isn't in a file yet and would be lost. Please save the project first."_s);
  return false;
}
