#pragma once

#include "core/model/Globals.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsProject.h"

#include <algorithm>

/// A character of this ID is in the book. The lookup of an unknown one gives a new character.
inline bool isInCast(qint32 id) {
  const auto& cast = g_Project->Chars;
  return std::any_of(cast.begin(), cast.end(), [id](const auto& character) { return character->ID() == id; });
}
