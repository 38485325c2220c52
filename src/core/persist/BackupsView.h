#pragma once

#include "core/infra/cSharedFileSubs.h"

#include <QByteArray>
#include <QDateTime>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

#include <memory>

class clsProject;
class clsScene;

/// The names of the folders of backups, sorted; none when there are none.
QStringList backupFolders(const clsProject& project);

/// The copies of scenes in one of them, sorted by name, and the archives.
QList<FileObject> backupCopies(const clsProject& project, const QString& folder);
QList<FileObject> backupArchives(const clsProject& project, const QString& folder);

/// Full path of the youngest archive that the whole book was packed into; empty when there is none.
QString newestCompleteBackup(const clsProject& project);

/// Where copies in the folders of backups come from, or members of an archive, by the names of the scenes' files at the
/// time that it is made.
class CopySources {
 public:
  explicit CopySources(const clsProject& project);

  /// The scene whose file begins this name; null when there is none.
  std::shared_ptr<clsScene> sceneOf(const QString& copy) const;

 private:
  QHash<QString, std::shared_ptr<clsScene>> scenes_;
};

/// The same for one copy.
std::shared_ptr<clsScene> sceneOfCopy(const clsProject& project, const QString& name);

/// What was typed and never reached the book.
struct YoungerCopy {
  /// Null for one that was never saved.
  std::shared_ptr<clsScene> scene;
  FileObject copy;
  /// Of title, description, goals and notes, not of the text.
  bool isOfPlan = false;
};

/// The newest copies of texts that are younger than the scene's file, and of plans that are younger than the project
/// file, where they hold other words, in the order of the scenes; then those of scenes that were never saved. Copies
/// that were kept of a text that was to be replaced are passed over.
QList<YoungerCopy> youngerCopies(const clsProject& project);

/// Erases a file below the folder of backups, and no other, wherever links lead. False, and logged, when it is still
/// there.
bool deleteBackup(const clsProject& project, const QString& path);

/// One file in an archive.
struct ArchivedFile {
  /// With its folders, parted by "/".
  QString name;
  QDateTime date;
  qint64 size = 0;
};

struct ArchiveListing {
  QList<ArchivedFile> files;
  /// Why the archive can't be read, as it may be told to the user; empty when it could.
  QString failure;
};

ArchiveListing filesInBackup(const QString& archive);

struct RestoredFile {
  QByteArray content;
  /// Why there is none, as it may be told to the user; empty when there is.
  QString failure;
};

/// The content of a copy in the folders of backups.
RestoredFile readBackupCopy(const QString& path);
/// The content of one file in an archive, by its whole name; its checksum is compared. Nothing is written.
RestoredFile restoreFromBackup(const QString& archive, const QString& name);
