#pragma once

#include <QString>

/// The names of members in an archive. Their folders are parted by "/".
namespace ZipNames {

/// Whether a name stays in the folder that the archive is unpacked into, on any system: no full path, no drive, no
/// "..", no backslash, nothing that ends the name before its end.
bool isSafe(const QString& name);

/// What a file is called in an archive: its path from the root folder where it is below that, else its bare name. A
/// root without a name ("\", "/") stands for no folder. Always a safe name.
QString of(const QString& file, const QString& root);

}  // namespace ZipNames
