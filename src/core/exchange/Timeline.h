#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>

class clsProject;

/// The story as a page with a table: a column for each of these characters, and the description of every scene in the
/// column of the one that tells it. A scene that somebody else tells isn't there; of characters of the same name the
/// first has all scenes. What the writer wrote goes in as it stands, markup included.
namespace Timeline {

QString page(const clsProject& project, const QStringList& characters, const QDateTime& now);

/// Where the page of a book stands.
QString pathOf(const clsProject& project);

}  // namespace Timeline
