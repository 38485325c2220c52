#pragma once

#include "core/model/StoryMoves.h"

/// What is done alike with the characters, the locations and the items of the book. An ID that nothing in the book has
/// is passed over.
namespace StoryCast {

bool contains(CastKind kind, qint32 id);
/// The sheet of what has this ID. True when it was confirmed.
bool edit(CastKind kind, qint32 id);
/// A new one through its sheet; true when it was confirmed, added and the project saved.
bool enterNew(CastKind kind);
/// Out of the book and of its scenes.
void remove(CastKind kind, qint32 id);

/// Gives these their places in the list, from 1. Locations and items stand so in the book from then on: their place
/// isn't read back from the file, their order is.
void number(CastKind kind, const QList<qint32>& ids);
/// Each of the two to the other's place in the list.
void swapPlaces(CastKind kind, qint32 a, qint32 b);

}  // namespace StoryCast
