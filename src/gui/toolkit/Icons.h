#pragma once

#include <QIcon>

/// An icon of the program's own set, drawn sharp at any size: "chapter", "chapterunused", "scene", "sceneunused",
/// "file", "edit", "note", "notes", "goal", "viewpoint", "character", "location", "item", "bold", "italic",
/// "underline", "replaced" and "quillane", the program's own. The straight strokes of those for lists lie on a grid
/// of 1.5 units of 24, where they cover whole pixels at 16 and 32. Kept once made. Null for a key that isn't in the
/// set.
QIcon icon(const char* key);

/// The same in the colour of the text of buttons: for signs that stand among text and have to read as well.
QIcon textIcon(const char* key);
