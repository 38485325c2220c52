#pragma once

#include <QString>

/// Copies that stand beside a file because two programs have changed it.
namespace ConflictCopy {

/// "name (conflict YYYY-MM-DD)" beside the file; with a number where that is taken.
QString nameFor(const QString& path);
/// Ours, and those of services that keep folders the same on several machines.
bool isOne(const QString& fileName);

}  // namespace ConflictCopy
