#include "core/persist/SceneCopy.h"

#include "core/infra/RuntimeError.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace SceneCopy {

QString nameOf(clsScene& scene) {
  const qint32 place = g_Project->ChapterByID(scene.BelongsToChID)->SceneIndex(scene.ID());
  return g_Project->TodaysBackupFolder() + Files().FileWithoutExt(scene.RTFFilename()) + u"_Scene_"_s +
         QString::number(place);
}

void write(const QString& path, const QByteArray& rtf) {
  if (!Files().FolderExists(g_Project->Path())) {
    throw RuntimeError(RuntimeError::PathNotFound, u"The book's folder isn't there any more."_s);
  }
  g_Project->MakeAutoBackupFolder();
  Files().MkMissingDir(g_Project->TodaysBackupFolder());
  Files().ReplaceFile(path, rtf);
}

void putAside(clsScene& scene, const QString& path, const QByteArray& newText) {
  const QFileInfo old(path);
  const QFileInfo file(scene.RTFFilename().isEmpty() ? QString() : scene.RTFFileWithPath());
  // Of a scene without a file it may be all that is left of one that was never saved.
  if (!old.isFile() || old.size() == 0 || (file.isFile() && old.lastModified() <= file.lastModified())) {
    return;
  }
  QByteArray text;
  if (Files().LoadTextFile(path, text) && text == newText) {
    return;
  }
  const QString name = Files().FileWithoutExt(path) + u'_' + old.lastModified().toString(kTime);
  QString aside = name + u".rtf"_s;
  for (int number = 2; QFileInfo::exists(aside); ++number) {
    aside = name + u'_' + QString::number(number) + u".rtf"_s;
  }
  if (!Files().MoveFile(path, aside)) {
    throw RuntimeError(RuntimeError::PathAccess, u"The copy of earlier words could not be put aside: "_s + path);
  }
  Logging().LogEvent(u"A copy that is younger than its scene is kept as "_s + aside);
}

}  // namespace SceneCopy
