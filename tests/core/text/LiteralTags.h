#pragma once

#include "core/infra/CodePage.h"
#include "core/infra/Numbers.h"

#include <QString>
#include <QStringList>

/// The tag primitives written down word for word, with whole copies and plain searches. They are what the fast
/// ones are held against.
namespace LiteralTags {

inline QString ExtractTagged(const QString& text, const QString& open, const QString& close, bool keepTags) {
  const qsizetype from = text.indexOf(open, 0, Qt::CaseInsensitive);
  if (from < 0) {
    return {};
  }
  const qsizetype to = text.indexOf(close, from, Qt::CaseInsensitive);
  if (to >= 0 && keepTags) {
    return text.mid(from, to + close.size() - from);
  }
  QString value = to >= 0 ? text.mid(from, to - from) : text.mid(from);
  if (!keepTags) {
    value.replace(open, QString(), Qt::CaseInsensitive);
    value.replace(close, QString(), Qt::CaseInsensitive);
  }
  return value;
}

inline QStringList ExtractXMLArray(const QString& text, const QString& open, const QString& close,
                                   const QString& delimiter) {
  return ExtractTagged(text, open, close, true).split(delimiter, Qt::KeepEmptyParts, Qt::CaseInsensitive);
}

/// Without the marks of characters outside the code page, which the dialect of old did not know.
inline QString HtmlDecode(const QString& text) {
  QString decoded;
  for (qsizetype i = 0; i < text.size(); ++i) {
    if (text[i] != u'%' || text.size() - i < 3) {
      decoded += text[i];
      continue;
    }
    const auto code = static_cast<int>(Numbers::Val(QString(QStringLiteral("&H") + text.mid(i + 1, 2))));
    decoded += QChar(CodePage::toChar(static_cast<uchar>(code)));
    i += 2;
  }
  return decoded;
}

}  // namespace LiteralTags
