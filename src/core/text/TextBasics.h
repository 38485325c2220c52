#pragma once

#include "core/infra/Blanks.h"
#include "core/infra/CodePage.h"

#include <QString>
#include <QStringView>

/// What the string tools share: text compare, blanks, and case.
namespace TextBasics {

/// The position of the first occurrence at or behind `from`, -1 for none. An empty `what` is found at `from` unless
/// nothing stands there. By default a text compare, which ignores case.
qsizetype find(QStringView text, QStringView what, qsizetype from = 0, Qt::CaseSensitivity cs = Qt::CaseInsensitive);

/// Every occurrence replaced, in one pass; an empty `what` replaces nothing.
QString replaceAll(const QString& text, QStringView what, QStringView with, Qt::CaseSensitivity cs);

using Blanks::trimmed;
using Blanks::trimmedRight;
/// The same where the text stands.
void trimRight(QString& text);
void trim(QString& text);

/// Unit by unit, so that a text keeps its length. A character of the code page whose other case the code page lacks
/// (as of the micro sign) stays.
inline QChar upper(QChar character) {
  const QChar large = character.toUpper();
  return large.unicode() > 0xFF && CodePage::toByte(character.unicode()) >= 0 && CodePage::toByte(large.unicode()) < 0
             ? character
             : large;
}
inline QChar lower(QChar character) {
  return character.toLower();
}

}  // namespace TextBasics
