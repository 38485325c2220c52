#pragma once

#include <QStringList>

/// A few of the names, and "..." behind them where there are more: so that a box stays readable.
inline QStringList firstOf(const QStringList& names, qsizetype most = 10) {
  return names.size() <= most ? names : names.first(most) + QStringList{QStringLiteral("...")};
}
