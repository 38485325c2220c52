#pragma once

#include "core/text/RichFormat.h"

/// How characters look in the words of an RTF text: its fonts and colours are numbers in its tables, -1 when none is
/// stated. The colour 0 is the automatic one.
struct RtfLook : CharLook {
  int font = -1;
  int associatedFont = -1;
  int colour = -1;
  int background = -1;
  int field = -1;  ///< Among the fields of the text.

  friend bool operator==(const RtfLook&, const RtfLook&) = default;
};

inline size_t qHash(const RtfLook& look, size_t seed = 0) noexcept {
  return qHashMulti(seed, static_cast<const CharLook&>(look), look.font, look.associatedFont, look.colour,
                    look.background, look.field);
}
