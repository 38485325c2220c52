#include "core/persist/SceneCopy.h"

#include "core/infra/RuntimeError.h"
#include "core/infra/ToldText.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLang.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"

#include <QFileInfo>
#include <QStringList>

#include <initializer_list>
#include <utility>

using namespace Qt::StringLiterals;

namespace SceneCopy {

namespace {

/// Parts the name of the scene's file from its place in the chapter.
const QString kPlace = u"_Scene_"_s;

}  // namespace

QString nameOf(clsScene& scene) {
  const qint32 place = g_Project->ChapterByID(scene.BelongsToChID)->SceneIndex(scene.ID());
  return g_Project->TodaysBackupFolder() + Files().FileWithoutExt(scene.RTFFilename()) + kPlace +
         QString::number(place);
}

QString planOf(const clsScene& scene) {
  const std::initializer_list<std::pair<QString, QString>> parts = {
      {u"Title"_s, scene.Title},       {u"Description"_s, scene.DescText}, {u"Goal"_s, scene.Goal},
      {u"Conflict"_s, scene.Conflict}, {u"Outcome"_s, scene.Outcome},      {u"Notes"_s, scene.Notes},
  };
  QStringList filled;
  for (const auto& [caption, words] : parts) {
    if (!words.trimmed().isEmpty()) {
      filled.append(caption + u'\n' + words);
    }
  }
  return filled.join(u"\n\n"_s);
}

bool isOfUnsaved(const QString& path) {
  return Files().FileOnly(path).startsWith(kPlace, Qt::CaseInsensitive);
}

bool isOfPlan(const QString& path) {
  const QString name = Files().FileOnly(path);
  const qsizetype place = name.lastIndexOf(kPlace, -1, Qt::CaseInsensitive);
  return place >= 0 && name.indexOf(kPlan, place, Qt::CaseInsensitive) >= 0;
}

// The path of a scene without a name is the folder's.
QDateTime textSaved(const clsScene& scene) {
  const QFileInfo file(scene.RTFFilename().isEmpty() ? QString() : scene.RTFFileWithPath());
  return file.isFile() ? file.lastModified() : QDateTime();
}

void write(const QString& path, const QByteArray& rtf) {
  if (!Files().FolderExists(g_Project->Path())) {
    throw RuntimeError(RuntimeError::PathNotFound, shownText(u"The book's folder isn't there any more."_s));
  }
  g_Project->MakeAutoBackupFolder();
  Files().MkMissingDir(g_Project->TodaysBackupFolder());
  Files().ReplaceFile(path, rtf);
}

void putAside(const QString& path, const QByteArray& newText, const QDateTime& saved) {
  const QFileInfo old(path);
  // Of a scene without a file it may be all that is left of one that was never saved.
  if (!old.isFile() || old.size() == 0 || (saved.isValid() && old.lastModified() <= saved)) {
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
    throw RuntimeError(RuntimeError::PathAccess,
                       toldText(shownText(u"The copy of earlier words could not be put aside: %1"_s), {path}));
  }
  Logging().LogEvent(u"A copy that is younger than its scene is kept as "_s + aside);
}

}  // namespace SceneCopy
