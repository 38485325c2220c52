#pragma once

#include "core/infra/Guard.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/IDList.h"
#include "core/persist/OwnTags.h"
#include "core/text/TagView.h"

/// Reading of single fields that can fail: each failure is logged and loses that field only.
namespace ReadFields {

inline void strictInteger(const Guard& guard, const TagView& element, const Tag& tag, qint32& value) {
  guard([&] { value = element.strictInteger(tag); });
}

/// A field that stands in the file as it is. Written back, a value with one of the file's tags in it would hide the
/// fields behind it: it is cut there, and at any "<" where a missing closing tag swallowed the rest. That is logged.
inline QString rawValue(const TagView& element, const Tag& tag, const char* module) {
  QString value = element.raw(tag);
  if (!value.contains(u'<')) {
    return value;
  }
  const QByteArrayView span = element.block(tag).text();
  const bool closed = Tags::startsWith(span.last(qMin(tag.close.size(), span.size())), tag.close);
  const qsizetype inner = closed ? OwnTags::firstIn(value) : value.indexOf(u'<');
  if (inner < 0) {
    return value;
  }
  Logging().AddDebug(QStringLiteral("The value of ") + QString::fromLatin1(tag.open.data(), tag.open.size()) +
                         QStringLiteral(" is cut at a tag that stands in it"),
                     QStringLiteral("CreateFromXML"), QString::fromLatin1(module));
  return value.first(inner).trimmed();
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
