#pragma once

#include <QByteArrayView>
#include <QString>

/// The word lists as they are fetched: an archive of several, from which the ones that the spell checker reads are put
/// in their place.
namespace WordListArchive {

/// Where the archive is fetched from, and the page that tells of it.
QString address();
QString page();
/// The archive's own file name, and the path that it is fetched to.
QString fileName();
QString path();

/// Puts one member of the archive, its name as it stands there and its content, in its place; an old list of the name
/// is replaced whole. Nothing when the checker reads no list of that name; above all, an archive never replaces the
/// writer's custom one. Throws RuntimeError as ReplaceFile does. True when it was written.
bool install(const QString& member, QByteArrayView content);

}  // namespace WordListArchive
