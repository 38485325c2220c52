#pragma once

#include <QString>
#include <QStringList>

class clsProject;

/// How the making of a backup went.
struct BackupOutcome {
  /// Skipped: it was not the time or the book for one, and nothing was written.
  enum class Result { Made, Skipped, Failed };

  Result result = Result::Skipped;
  /// Full path.
  QString archive;
  /// Why it failed or was skipped, each cause as it may be told to the user. What could be packed is in the archive all
  /// the same.
  QStringList causes;
};

/// What BackupProject does, with its causes. Of a complete one the progress is shown, and input is held back meanwhile;
/// the other one is made in one go.
BackupOutcome backUpProject(clsProject& project, bool complete, bool weekdayFile);

/// What a look at every member of an archive has found.
struct BackupCheck {
  qint32 members = 0;
  /// "name: why" of those that can't be read back as they were packed.
  QStringList damaged;
  /// Why the archive itself could not be read; empty when it could.
  QString failure;

  bool isWhole() const { return failure.isEmpty() && damaged.isEmpty(); }
};

/// Reads every member back and compares its checksum, with progress.
BackupCheck verifyBackup(clsProject& project, const QString& archive);
