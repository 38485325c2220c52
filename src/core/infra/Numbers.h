#pragma once

#include <QByteArrayView>
#include <QString>
#include <QStringView>
#include <QVariant>

#include <optional>

/// Numbers as our files and settings spell them.
namespace Numbers {

/// The longest leading number: blanks, tabs and line ends in front are passed over, a blank inside ends it,
/// "&H" is hexadecimal and "&O" octal. Text without a number gives 0.
double Val(QByteArrayView text);
double Val(QStringView text);

/// Val, cut to whole and to the low 32 or 16 bits.
qint32 ValTo32(QByteArrayView text);
qint16 ValTo16(QByteArrayView text);

/// The text as a whole number: blanks around it are taken, a fraction is rounded half to even.
/// Throws RuntimeError 6 when it is out of 32 bits and 13 for anything that is no number, the empty text too.
qint32 Strict32(QByteArrayView text);

/// The day number of a date written year, month, day with "-", "/" or "." between; a time behind is dropped.
/// Throws RuntimeError 13 when it is empty, malformed or no day of the calendar.
qint32 DayNumber(QByteArrayView text);
/// "YYYY-MM-DD"; a day that DayNumber would not read back, outside of the years 100 to 9999, is the nearest it would.
QByteArray IsoDate(qint32 dayNumber);

/// The number that a stored value stands for, blanks around it skipped; nothing when it is no number.
std::optional<double> ToNumber(const QVariant& value);
/// A value as a whole number, rounded half to even; 0 when it is no number.
qint32 ToInt(const QVariant& value);
/// True for a number other than 0, which is how a stored yes reads back.
bool ToBool(const QVariant& value);

}  // namespace Numbers
