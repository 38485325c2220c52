#include "core/persist/RestoredScene.h"

#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"

using namespace Qt::StringLiterals;

std::shared_ptr<clsScene> restoreAsNewScene(const QByteArray& rtf, const QString& title, clsScene* source,
                                            clsChapter& otherwise) {
  auto scene = std::make_shared<clsScene>();
  scene->Title = title;
  scene->setTextRTF(rtf);
  const auto chapter = source == nullptr ? nullptr : g_Project->ChapterByID(source->BelongsToChID);
  const qint32 place = chapter ? chapter->SceneIndex(source->ID()) : 0;
  if (place > 0) {
    chapter->InsertScene(scene, place + 1);
  } else {
    otherwise.Addscene(scene);
  }
  g_SceneChanges.MarkUpdated(scene->ID());
  return scene;
}

QString titleOfRestored(const clsScene* source, const QString& copy, const QString& time) {
  const QString title = source == nullptr ? QString() : source->Title.trimmed();
  const QString front = title.isEmpty() ? Files().FileWithoutExt(Files().FileOnly(copy)) : title;
  return time.isEmpty() ? translated(u"%1 (copy)"_s).arg(front) : translated(u"%1 (copy of %2)"_s).arg(front, time);
}
