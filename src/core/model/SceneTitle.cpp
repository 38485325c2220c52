#include "core/model/SceneTitle.h"

#include "core/infra/cSharedLang.h"

using namespace Qt::StringLiterals;

QString calledScene(const QString& title) {
  return title.trimmed().isEmpty() ? translated(u"Untitled scene"_s) : title;
}

QString countedScenes(qsizetype count) {
  return count == 1 ? translated(u"1 scene"_s) : translated(u"%L1 scenes"_s).arg(count);
}
