#include "core/persist/Backups.h"

#include "core/infra/Guard.h"
#include "core/infra/NativeFile.h"
#include "core/infra/ZipContents.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/persist/ConflictCopy.h"
#include "core/persist/SceneCopy.h"
#include "core/persist/WholeFile.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QFileInfoList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// "Book.zip", "Book_complete.zip", those with the name of a weekday, and the copies that bear the book's name.
bool isOfBook(const QString& file, const QString& root) {
  if (!file.startsWith(root, Qt::CaseInsensitive)) {
    return false;
  }
  constexpr qsizetype kLongestEnding = 40;
  const QString ending = file.sliced(root.size()).toLower();
  return ending == u".qnc4"_s || ending == u".bak"_s || ending == u".qn4.bak"_s ||
         (ConflictCopy::isOne(file) && ending.endsWith(u".qn4"_s)) ||
         (ending.endsWith(u".zip"_s) && ending.size() <= kLongestEnding);
}

QFileInfoList candidates(const QString& projectFile) {
  const QString folder = Files().PathOnly(projectFile);
  const QString root = Files().FileWithoutExt(Files().FileOnly(projectFile));
  QFileInfoList found;
  const auto take = [&](const QFileInfo& file) {
    if (isOfBook(file.fileName(), root)) {
      found.append(file);
    }
  };
  for (const QFileInfo& file : QDir(folder).entryInfoList(QDir::Files | QDir::NoSymLinks)) {
    take(file);
  }
  QDirIterator backups(folder + u"Autobackups"_s, {u"*.zip"_s}, QDir::Files | QDir::NoSymLinks,
                       QDirIterator::Subdirectories);
  while (backups.hasNext()) {
    take(backups.nextFileInfo());
  }
  std::sort(found.begin(), found.end(),
            [](const QFileInfo& a, const QFileInfo& b) { return a.lastModified() > b.lastModified(); });
  return found;
}

std::optional<QByteArray> contentOf(const QFileInfo& file, const QString& projectFile) {
  if (file.suffix().compare(u"zip"_s, Qt::CaseInsensitive) == 0) {
    return readFromZip(file.filePath(), Files().FileOnly(projectFile));
  }
  std::optional<QByteArray> content;
  Guard("newestBackup", "Backups")([&] { content = readWholeFile(file.filePath(), Links::Refused); });
  return content;
}

}  // namespace

std::optional<Backup> newestBackup(const QString& projectFile) {
  for (const QFileInfo& file : candidates(projectFile)) {
    if (auto text = contentOf(file, projectFile); text && isWholeProjectFile(*text)) {
      return Backup{QDir::toNativeSeparators(file.filePath()), file.lastModified(), *std::move(text)};
    }
  }
  return {};
}

bool backUpScene(clsScene& scene) {
  if (!g_Project->HasPlace()) {
    return false;
  }
  return Guard("backUpScene", "Backups")([&] {
    const QString path = SceneCopy::nameOf(scene) + u".rtf"_s;
    SceneCopy::putAside(path, scene.TextRTF(), SceneCopy::textSaved(scene));
    SceneCopy::write(path, scene.TextRTF());
  });
}

bool backUpOriginal(clsScene& scene) {
  if (!g_Project->HasPlace() || scene.RTFFilename().isEmpty()) {
    return true;
  }
  if (!Files().FolderExists(g_Project->Path())) {
    return false;
  }
  const QString folder = g_Project->TodaysBackupFolder();
  Files().MkMissingDir(folder);
  const QString name = folder + Files().FileWithoutExt(scene.RTFFilename()) + u"_Original"_s;
  for (int number = 1;; ++number) {
    const QString path = name + (number == 1 ? QString() : u"_"_s + QString::number(number)) + u".rtf"_s;
    if (!Files().FileExists(path)) {
      return Files().SaveTextFile(path, QByteArrayView(scene.TextRTF()));
    }
    QByteArray there;
    if (Files().LoadTextFile(path, there) && there == scene.TextRTF()) {
      return true;
    }
  }
}
