#pragma once

#include <QString>
#include <QStringList>

/// Copies that stand beside a file because two programs have changed it.
namespace ConflictCopy {

/// "name (conflict YYYY-MM-DD)" beside the file; with a number where that is taken.
QString nameFor(const QString& path);
/// Ours, and those of services that keep folders the same on several machines.
bool isOne(const QString& fileName);
/// The names of those in a folder, sorted.
QStringList in(const QString& folder);

}  // namespace ConflictCopy
