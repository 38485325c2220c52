#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QStringView>

class clsScene;

/// Copies of a scene's text in the day's folder of backups, one name for each scene and place in its chapter.
namespace SceneCopy {

/// The local time in a copy's name: "9.05am".
inline constexpr QStringView kTime = u"h.mmap";

/// The full path without an extension.
QString nameOf(clsScene& scene);
/// The words of a scene's plan, each part under its caption: title, description, goals and notes. What is empty is left
/// out.
QString planOf(const clsScene& scene);
/// What the name of a copy of the plan has behind that of the text's.
inline const QString kPlan = QStringLiteral("_Plan");
/// True for the name of a copy that was made of a scene before it had a file.
bool isOfUnsaved(const QString& path);
/// When the scene's own file was written; invalid without one.
QDateTime textSaved(const clsScene& scene);
/// Writes a copy. The day's folder is made where it is missing; a book's own that has gone isn't, for it may come back.
/// Throws RuntimeError.
void write(const QString& path, const QByteArray& rtf);
/// What stands at the path may hold words that never reached the book: of a run that was cut off, or of an editor that
/// was left without a save. Where it is younger than what was saved it gets the time at which it was written into its
/// name, before another text takes its place. Nothing was saved at an invalid time. Throws RuntimeError, and it stays,
/// when that fails.
void putAside(const QString& path, const QByteArray& newText, const QDateTime& saved);

}  // namespace SceneCopy
