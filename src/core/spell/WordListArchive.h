#pragma once

#include <QString>

/// The word lists as they are fetched: an archive of several.
namespace WordListArchive {

/// Where the archive is fetched from, and the page that tells of it.
QString address();
QString page();
/// The archive's own file name, and the path that it is fetched to.
QString fileName();
QString path();

/// Unpacks the archive at `path` into the folder of the lists, which is made where it is missing; what is there of the
/// same names is replaced, the writer's custom list never. False, and logged, when not all of it could be unpacked.
bool unpack();

/// For tests: fetched from here; empty for the real address.
void overrideAddress(const QString& address);

}  // namespace WordListArchive
