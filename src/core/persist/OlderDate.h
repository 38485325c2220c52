#pragma once

#include "core/infra/CodePage.h"
#include "core/infra/Numbers.h"

#include <QString>
#include <QStringList>

/// The day number of a date in an older project. An unset one is 0: nothing at all, or the zero of those programs as
/// it was printed. Throws RuntimeError 13 for what is no date.
inline qint32 olderDay(const QString& stored) {
  const QString text = stored.trimmed();
  const QStringList unset{QString(), QStringLiteral("0"), QStringLiteral("00:00:00"), QStringLiteral("12:00:00 AM")};
  return unset.contains(text, Qt::CaseInsensitive) ? 0 : Numbers::DayNumber(CodePage::toBytes(text));
}
