#pragma once

#include "infra/Guard.h"
#include "model/IDList.h"
#include "text/TagView.h"

/// Reading of single fields that can fail: each failure is logged and loses that field only.
namespace ReadFields {

inline void strictInteger(const Guard& guard, const TagView& element, const Tag& tag, qint32& value) {
  guard([&] { value = element.strictInteger(tag); });
}

/// The entries of a list of IDs; an entry that is no number or stands twice is logged and left out.
inline void ids(const Guard& guard, const TagView& element, const Tag& list, const Tag& entry, IDList& into) {
  if (!element.contains(list)) {
    return;
  }
  for (const TagView& piece : element.block(list).split(entry.close)) {
    if (piece.contains(entry)) {
      guard([&] { into.append(piece.strictInteger(entry)); });
    }
  }
}

}  // namespace ReadFields
