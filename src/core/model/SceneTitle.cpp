#include "core/model/SceneTitle.h"

#include "core/infra/cSharedLang.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsScene.h"

using namespace Qt::StringLiterals;

QString calledScene(const QString& title) {
  return title.trimmed().isEmpty() ? translated(u"Untitled scene"_s) : title;
}

QString shownViewpoint(const clsScene& scene) {
  const QString title = scene.ViewPointChar()->Title();
  return scene.ViewPointID() == 0 ? translated(title) : title;
}

QString countedScenes(qsizetype count) {
  return count == 1 ? translated(u"1 scene"_s) : translated(u"%L1 scenes"_s).arg(count);
}
