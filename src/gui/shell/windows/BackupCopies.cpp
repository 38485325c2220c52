#include "gui/shell/windows/BackupCopies.h"

#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/SceneTitle.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/persist/SceneCopy.h"

#include <algorithm>
#include <tuple>

using namespace Qt::StringLiterals;

namespace {

/// What is of no scene of the book comes last.
void sortByScene(std::vector<BackupCopy>& copies) {
  const CopySources sources(*g_Project);
  QHash<QString, QString> files;
  for (BackupCopy& copy : copies) {
    const auto scene = sources.sceneOf(copy.name);
    copy.sceneID = scene ? scene->ID() : 0;
    files.insert(copy.name, (scene ? u'0' + scene->RTFFilename() : u'1' + Files().FileOnly(copy.name)).toLower());
  }
  std::stable_sort(copies.begin(), copies.end(), [&](const BackupCopy& a, const BackupCopy& b) {
    return std::tuple(files.value(a.name), a.date, a.name) < std::tuple(files.value(b.name), b.date, b.name);
  });
}

/// Members of an archive are the scenes' own files.
QString withKind(const BackupCopy& copy, const QString& title) {
  if (!copy.archive.isEmpty()) {
    return title;
  }
  if (SceneCopy::isOfPlan(copy.name)) {
    return translated(u"Plan: %1"_s).arg(title);
  }
  return copy.name.contains(u"_Original"_s, Qt::CaseInsensitive) ? translated(u"Original: %1"_s).arg(title) : title;
}

}  // namespace

QString BackupCopy::title() const {
  const auto scene = sceneID == 0 ? nullptr : g_Project->SceneByID(sceneID);
  const bool isKnown = (scene && scene->InScenes()) || SceneCopy::isOfUnsaved(name);
  return withKind(*this, isKnown ? titleInCopies(scene.get()) : translated(u"(not in the book now)"_s));
}

RestoredFile BackupCopy::read() const {
  return archive.isEmpty() ? readBackupCopy(path) : restoreFromBackup(archive, name);
}

QString titleInCopies(const clsScene* scene) {
  if (scene == nullptr) {
    return translated(u"A new scene that was never saved"_s);
  }
  return calledScene(scene->Title);
}

BackupCopies BackupCopies::inFolder(const QString& folder) {
  BackupCopies found;
  for (const FileObject& file : backupCopies(*g_Project, folder)) {
    found.copies.push_back({file.Name, file.Path, {}, file.Date});
  }
  sortByScene(found.copies);
  if (found.copies.empty()) {
    found.whyNone = backupFolders(*g_Project).contains(folder)
                        ? shownText(u"There is no copy of a scene from this day."_s)
                        : shownText(u"This folder isn't there any more."_s);
  }
  return found;
}

BackupCopies BackupCopies::inArchive(const QString& archive) {
  BackupCopies found;
  const ArchiveListing listing = filesInBackup(archive);
  for (const ArchivedFile& file : listing.files) {
    if (file.name.endsWith(u".rtf"_s, Qt::CaseInsensitive)) {
      found.copies.push_back({file.name, {}, archive, file.date});
    }
  }
  sortByScene(found.copies);
  found.whyNone = listing.failure.isEmpty()
                      ? shownText(u"This archive holds the project file and no text of a scene."_s)
                      : translated(u"This archive can't be read: %1"_s).arg(translated(listing.failure));
  return found;
}
