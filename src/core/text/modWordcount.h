#pragma once

#include <QStringView>

class clsHashTable;

/// Adds the words of a text to a table of word frequency: each once for every time that it stands there, in title
/// case. This is not the word count of a scene, which parts words otherwise: "well-known" is two words here, a colon
/// stays on its word, possessive endings go and the usual contractions keep a typographic apostrophe.
void BreakAndHash(clsHashTable& table, QStringView text);
