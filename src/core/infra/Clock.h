#pragma once

#include <QDate>
#include <QDateTime>

/// The present time. Nothing else reads the system clock, so a test can set it.
namespace Clock {

QDateTime now();
QDate today();
/// Milliseconds that only ever grow; for throttling, never shown.
qint64 ticks();

/// From now on the clock stands still at this time; an invalid time lets it run again.
void set(const QDateTime& time);

/// Whole days since 1899-12-30, the number that a date has in the model; 0 means unset.
qint32 dayNumber(const QDate& date);
/// The date of a day number; 0 gives 1899-12-30.
QDate dateOf(qint32 dayNumber);

}  // namespace Clock
