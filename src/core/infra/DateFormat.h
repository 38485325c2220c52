#pragma once

#include <QDate>
#include <QDateTime>
#include <QLocale>
#include <QString>

#include <functional>

/// What the system tells of its regional conventions.
struct DateLocale {
  /// How it prints 25 December 2001 in its short form.
  QString christmas2001;
  /// Its names of months and weekdays.
  QLocale names;
  /// True when the text "2.29" converts to 229.
  bool pointGroupsThousands = false;
  QString trueWord;
  QString falseWord;

  static DateLocale ofSystem();
};

using DateLocaleSource = std::function<DateLocale()>;

/// A date or time by a format of the kind "DD/MMM/YYYY HH:MM": DD MM YY YYYY are digits, MMM and MMMM month
/// names, DDD and DDDD weekday names, HH hours, SS seconds, MM minutes when it follows HH; case doesn't matter.
QString formatByPattern(const QDateTime& time, const QString& pattern, const QLocale& names);
QString formatByPattern(const QDate& date, const QString& pattern, const QLocale& names);
