#pragma once

#include "infra/Guard.h"
#include "infra/Numbers.h"
#include "model/IDList.h"
#include "text/ElementReader.h"

/// Reading of single fields that can fail: each failure is logged and loses that field only.
namespace ReadFields {

inline void strictInteger(const Guard& guard, const ElementReader& element, const Tag& tag, qint32& value) {
  guard([&] { value = element.strictInteger(tag); });
}

/// The entries of a list of IDs; an entry that is no number or stands twice is logged and left out.
inline void ids(const Guard& guard, const ElementReader& element, const Tag& list, const Tag& entry, IDList& into) {
  if (!element.contains(list)) {
    return;
  }
  for (const QByteArrayView piece : Tags::ExtractXMLArray(element.text(), list, entry.close)) {
    if (Tags::find(piece, entry.open) >= 0) {
      guard([&] { into.append(Numbers::Strict32(Tags::ExtractBetweenTags(piece, entry))); });
    }
  }
}

}  // namespace ReadFields
