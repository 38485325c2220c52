#pragma once

#include <QStringList>

/// The writer's own list of words to look for, in the settings under "BadWord1" to "BadWord30".
namespace ProblemWords {

constexpr int kMost = 30;

/// In order, empty ones left out. An older settings file begins with "BadWord0".
QStringList load();
/// Keys beyond the list's end are emptied.
void store(const QStringList& words);

}  // namespace ProblemWords
