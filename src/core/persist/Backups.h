#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <optional>

class clsScene;

/// A whole older copy of a project file.
struct Backup {
  QString path;
  QDateTime date;
  /// The project file in it.
  QByteArray text;
};

/// The newest that is whole: of the archives in the backup folder, the single file and other copies beside the project
/// file.
std::optional<Backup> newestBackup(const QString& projectFile);

/// Writes a scene's text to the day's folder of backups: one file for each scene and place in its chapter. False, and
/// logged, when that failed.
bool backUpScene(clsScene& scene);

/// Writes the text that the scene holds to the same folder, under a name that no later backup takes: to be called
/// before something of it is lost. A text that is there already isn't written again. False, and logged, when that
/// failed; true when there is no file yet that could lose anything.
bool backUpOriginal(clsScene& scene);
