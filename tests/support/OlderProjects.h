#pragma once

#include <QString>

/// A small project of generation 3 in this folder, with paths, letters and spellings as such projects have them: two
/// chapters, three scenes, three characters, a location, an item. The path of its file.
QString writeGeneration3(const QString& folder);

/// A small project of generation 2 in this folder: three chapters, of which one has no file, four scenes, four actors.
/// The path of its file.
QString writeGeneration2(const QString& folder);
