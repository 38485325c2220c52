#pragma once

#include <QString>
#include <QStringList>

/// The projects that were open last, newest first, in the settings "Recent0", "Recent1" and so on.
namespace RecentProjects {

/// As many are read; one more is written, and never read again: so the oldest falls off.
inline constexpr int kCount = 14;

/// The path in front, and no file twice, however it is spelled.
QStringList withNewest(const QStringList& paths, const QString& path);

bool isNewest(const QString& path);
/// Puts the path in front and saves the settings file at once, so that the list outlives a crash.
void AddToRecent(const QString& path);
struct Entry {
  QString path;
  /// Its folder isn't there now: on a drive that isn't plugged in, on a computer that sleeps.
  bool away;
};

/// A path leaves the settings when its folder is there and the file isn't.
QList<Entry> known();
/// "name \folder": the file's name without extension and the last folder of its path.
QString captionOf(const QString& path);

}  // namespace RecentProjects
