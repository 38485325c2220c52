#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>

/// Where the program's files stand, and how a path is parted.
namespace Paths {

/// The platform's own separator, the one that is written.
QChar separator();
/// On reading both slashes part a path: old projects hold paths of another platform.
bool isSeparator(QChar character);
/// Whether a path can only be the platform's own, in which a backslash is a letter of a name: a full path where
/// "/" parts.
bool isOwnForm(QStringView path);
/// The path with both slashes turned to the platform's separator, unless it is in the platform's own form.
QString native(const QString& path);

/// One spelling for each file or folder, there or not, so that it is known again however it is named.
QString identity(const QString& path);
/// Whether two paths lead to the same file or folder, there or not.
bool areSame(const QString& path, const QString& other);

/// The folder of the program's own data, with a trailing separator: the folder of the executable when it can
/// be written to, unless the program is installed there with a share folder; else the user's data folder.
/// Decided once.
QString programFolder();
/// Where texts and books are kept that have no place of their own: no trailing separator, and often not there.
QString rescueFolder();
/// Every folder that installed() would look at and that has this, the first one first.
QStringList allInstalled(const QString& name);
/// The user's preferences.
QString settingsFile();
/// The folder of the executable itself, with a trailing separator.
QString executableFolder();
/// A folder or file that is installed with the program ("Dict", "Languages", "WebTemplate"): beside the
/// program's data when it is there, else in the executable's folder or the installed share folder.
QString installed(const QString& name);
/// A helper library: beside the executable, or in the library folder of an installed program. Where it is missing
/// in both, the path beside the executable.
QString helperLibrary(const QString& name);
/// The user's documents folder, or the home folder where there is none, with a trailing separator.
QString documentsFolder();
/// The system's temporary folder, with a trailing separator.
QString temporaryFolder();

/// For tests: both folders become this one.
void overrideFolders(const QString& folder);

}  // namespace Paths
