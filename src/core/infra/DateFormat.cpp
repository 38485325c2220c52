#include "core/infra/DateFormat.h"

using namespace Qt::StringLiterals;

namespace {

/// Digits of any script as 0 to 9, so that the numbers in a printed date are found.
QString withPlainDigits(QString text) {
  for (QChar& character : text) {
    if (const int digit = character.digitValue(); digit >= 0) {
      character = QChar(u'0' + digit);
    }
  }
  return text;
}

QString twoDigits(int number) {
  return QString::number(number).rightJustified(2, u'0');
}

QString year(int number, qsizetype length) {
  return length <= 2 ? twoDigits(number % 100) : QString::number(number).rightJustified(4, u'0');
}

QString month(int number, qsizetype length, const QLocale& names) {
  return length <= 1   ? QString::number(number)
         : length == 2 ? twoDigits(number)
                       : names.monthName(number, length == 3 ? QLocale::ShortFormat : QLocale::LongFormat);
}

QString day(const QDate& date, qsizetype length, const QLocale& names) {
  return length <= 1   ? QString::number(date.day())
         : length == 2 ? twoDigits(date.day())
                       : names.dayName(date.dayOfWeek(), length == 3 ? QLocale::ShortFormat : QLocale::LongFormat);
}

}  // namespace

DateLocale DateLocale::ofSystem() {
  const QLocale locale;
  return {withPlainDigits(locale.toString(QDate(2001, 12, 25), QLocale::ShortFormat)), locale,
          locale.decimalPoint() == u"," && locale.groupSeparator() == u".", u"True"_s, u"False"_s};
}

QString formatByPattern(const QDateTime& time, const QString& pattern, const QLocale& names) {
  QString result;
  bool afterHours = false;
  for (qsizetype from = 0, end = 0; from < pattern.size(); from = end) {
    const QChar letter = pattern[from].toUpper();
    while (end < pattern.size() && pattern[end].toUpper() == letter) {
      ++end;
    }
    const qsizetype length = end - from;
    if (letter == u'Y') {
      result += year(time.date().year(), length);
    } else if (letter == u'M' && afterHours) {
      result += twoDigits(time.time().minute());
    } else if (letter == u'M') {
      result += month(time.date().month(), length, names);
    } else if (letter == u'D') {
      result += day(time.date(), length, names);
    } else if (letter == u'H') {
      result += twoDigits(time.time().hour());
    } else if (letter == u'S') {
      result += twoDigits(time.time().second());
    } else {
      result += pattern.mid(from, length);
      continue;
    }
    afterHours = letter == u'H';
  }
  return result;
}

QString formatByPattern(const QDate& date, const QString& pattern, const QLocale& names) {
  return formatByPattern(date.startOfDay(Qt::UTC), pattern, names);
}
