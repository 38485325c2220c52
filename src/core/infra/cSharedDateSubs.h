#pragma once

#include "core/infra/DateFormat.h"

#include <QDate>
#include <QDateTime>
#include <QString>

#include <array>

/// Dates as the machine's regional settings show them, and the macros that stand for dates in file names and
/// templates. The conventions are read off one printed date when the first member is asked for.
class cSharedDateSubs {
 public:
  explicit cSharedDateSubs(DateLocaleSource source = &DateLocale::ofSystem) : source_(std::move(source)) {}
  /// Forgets what was found out and asks this source from now on.
  void useLocale(DateLocaleSource source);

  bool TranslateMonthNames() const { return known().translateMonthNames; }
  /// Months count from 1; 0 and 13 are empty, any other index throws RuntimeError 9. Upper-cased.
  QString ShortMonthNames(int month) const;
  QString EnglishMonthNames(int month) const;
  QString FullEnglishMonthNames(int month) const;
  bool CommaThousandSeparator() const { return known().commaThousandSeparator; }
  /// 1 to 3: where the part stands in a local date.
  int SysDateYearField() const { return known().yearField; }
  int SysDateMonthField() const { return known().monthField; }
  int SysDateDayField() const { return known().dayField; }
  /// Upper-cased; the English words where the machine has none of its own.
  QString TrueStr() const { return known().trueStr; }
  QString FalseStr() const { return known().falseStr; }
  /// "DD/MM/YYYY" and its kin; empty for a locale that puts the year first and the day before the month.
  QString DateFormatString() const { return known().format; }
  QString FullDateFormatString() const { return known().fullFormat; }
  QString FullDateFormatPlusTimeString() const { return known().fullFormat + QStringLiteral(" HH:MM"); }
  QString DateSeparator() const { return known().separator; }

  QString FormatDate(const QDate& date) const;
  /// The same: the time is left out.
  QString FormatDatePlusTime(const QDate& date) const { return FormatDate(date); }
  QString ShortFormatDate(const QDate& date) const;
  QString LocalDateFormat() const { return DateFormatString(); }
  QDateTime RemoveSeconds(const QDateTime& time) const;
  /// As the locale has them, without seconds; and the same behind the date. Empty for an invalid time.
  static QString HourAndMinute(const QTime& time);
  QString ShortFormatDateTime(const QDateTime& time) const;
  /// Expands "$DATE$", "$TIME$" and their kin with the present time; case doesn't matter.
  QString ConvertMyDateVar(const QString& text) const;

 private:
  static constexpr size_t kSlots = 14;

  struct Conventions {
    bool found = false;
    DateLocale locale;
    bool translateMonthNames = false;
    std::array<QString, kSlots> shortMonthNames;
    bool commaThousandSeparator = false;
    int yearField = 3;
    int monthField = 2;
    int dayField = 1;
    QString trueStr = QStringLiteral("TRUE");
    QString falseStr = QStringLiteral("FALSE");
    QString format;
    QString fullFormat;
    QString separator;
  };

  const Conventions& known() const;
  void detect() const;
  static void detectMonthNames(Conventions& found);
  static void detectFormat(Conventions& found);
  static void logFound(const Conventions& found);

  DateLocaleSource source_;
  mutable Conventions known_;
};

/// The application's one instance.
cSharedDateSubs& Dates();
