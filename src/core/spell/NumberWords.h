#pragma once

#include <QStringView>

/// Words that no list holds: numbers, and dates and times of day in figures.
namespace NumberWords {

/// "12", "-3.5", "1,000", "1e5".
bool isNumeric(QStringView word);
/// "3/4/2005" in any order of day, month and year, with "/", "-" or "." between, the year left out ("3/4") or of two
/// figures; "10:30", "10:30:59", "10pm".
bool isDate(QStringView word);

}  // namespace NumberWords
