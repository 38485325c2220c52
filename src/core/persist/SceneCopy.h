#pragma once

#include <QByteArray>
#include <QString>
#include <QStringView>

class clsScene;

/// Copies of a scene's text in the day's folder of backups, one name for each scene and place in its chapter.
namespace SceneCopy {

/// The local time in a copy's name: "9.05am".
inline constexpr QStringView kTime = u"h.mmap";

/// The full path without an extension.
QString nameOf(clsScene& scene);
/// Writes a copy. The day's folder is made where it is missing; a book's own that has gone isn't, for it may come back.
/// Throws RuntimeError.
void write(const QString& path, const QByteArray& rtf);
/// What stands at the path may hold words that never reached the scene's file: of a run that was cut off, or of an
/// editor that was left without a save. Where it is younger than that file it gets the time at which it was written
/// into its name, before another text takes its place. Throws RuntimeError, and it stays, when that fails.
void putAside(clsScene& scene, const QString& path, const QByteArray& newText);

}  // namespace SceneCopy
