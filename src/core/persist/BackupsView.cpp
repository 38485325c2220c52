#include "core/persist/BackupsView.h"

#include "core/infra/Guard.h"
#include "core/infra/Paths.h"
#include "core/infra/RuntimeError.h"
#include "core/infra/ZipContents.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "Backups";

QString backupsOf(const clsProject& project) {
  return project.Path() + u"Autobackups"_s;
}

QList<FileObject> filesIn(const clsProject& project, const QString& folder, const QString& extension) {
  QList<FileObject> files;
  Files().FillFileObjects(Files().Combine(backupsOf(project), folder), extension, files);
  return files;
}

/// "RTF_00001" of "RTF_00001_Scene_2.rtf", "RTF_00001_Original_2.rtf" and "RTF/RTF_00001.rtf".
QString stemOf(const QString& name) {
  const QString root = Files().FileWithoutExt(Files().FileOnly(name));
  const qsizetype end = std::max(root.lastIndexOf(u"_Scene_"_s), root.lastIndexOf(u"_Original"_s));
  return end < 0 ? root : root.first(end);
}

}  // namespace

QStringList backupFolders(const clsProject& project) {
  QStringList folders;
  if (!project.FileWithPath.isEmpty()) {
    Files().FillFolders(backupsOf(project), folders);
  }
  return folders;
}

QList<FileObject> backupCopies(const clsProject& project, const QString& folder) {
  return filesIn(project, folder, u"rtf"_s);
}

QList<FileObject> backupArchives(const clsProject& project, const QString& folder) {
  return filesIn(project, folder, u"zip"_s);
}

std::shared_ptr<clsScene> sceneOfCopy(const clsProject& project, const QString& name) {
  const QString stem = stemOf(name);
  for (const auto& scene : project.Scenes) {
    const QString own = Files().FileWithoutExt(scene->RTFFilename());
    if (!own.isEmpty() && own.compare(stem, Qt::CaseInsensitive) == 0) {
      return scene;
    }
  }
  return {};
}

bool deleteBackup(const clsProject& project, const QString& path) {
  const QString backups = Paths::identity(backupsOf(project)) + u'/';
  if (!Paths::identity(path).startsWith(backups)) {
    Logging().AddDebug(u"Not a backup of this book, and not deleted: "_s + path, u"deleteBackup"_s,
                       QString::fromLatin1(kModule));
    return false;
  }
  return Files().EraseFile(path);
}

ArchiveListing filesInBackup(const QString& archive) {
  ArchiveListing listing;
  listing.failure = Guard("filesInBackup", kModule).causeOf([&] {
    const ZipContents contents(archive);
    for (const ZipMember& member : contents.members()) {
      if (!member.isFolder()) {
        listing.files.append({member.name, member.date, member.size});
      }
    }
  });
  return listing;
}

RestoredFile restoreFromBackup(const QString& archive, const QString& name) {
  RestoredFile restored;
  restored.failure = Guard("restoreFromBackup", kModule).causeOf([&] {
    const ZipContents contents(archive);
    const QList<ZipMember>& members = contents.members();
    const auto found =
        std::find_if(members.begin(), members.end(), [&](const ZipMember& member) { return member.name == name; });
    if (found == members.end()) {
      throw RuntimeError(RuntimeError::FileNotFound, name + u" is not in the archive"_s);
    }
    restored.content = contents.read(found - members.begin());
  });
  return restored;
}
