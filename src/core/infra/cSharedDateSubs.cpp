#include "core/infra/cSharedDateSubs.h"

#include "core/infra/Clock.h"
#include "core/infra/Guard.h"
#include "core/infra/RuntimeError.h"
#include "core/infra/cSharedLogging.h"

#include <QLocale>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

constexpr const char* kModule = "cSharedDateSubs";
constexpr int kMonths = 12;

constexpr std::array kFullEnglish{"January", "February", "March",     "April",   "May",      "June",
                                  "July",    "August",   "September", "October", "November", "December"};

QString fullEnglishName(int month) {
  return month >= 1 && month <= kMonths ? QString::fromLatin1(kFullEnglish[static_cast<size_t>(month - 1)]) : QString();
}

QString englishName(int month) {
  return fullEnglishName(month).left(3).toUpper();
}

/// The tables have fourteen slots, of which the first and the last are empty.
size_t slot(int month) {
  if (month < 0 || month > kMonths + 1) {
    throw RuntimeError(RuntimeError::OutOfBounds);
  }
  return static_cast<size_t>(month);
}

QString separatorIn(const QString& date) {
  for (const QChar separator : {u'/', u'.', u'-'}) {
    if (date.contains(separator)) {
      return separator;
    }
  }
  return u"/"_s;
}

/// A format takes the separator that the printed date holds; a hyphen wins over a dot.
QString withSeparatorOf(const QString& date, QString format) {
  for (const QChar separator : {u'.', u'-'}) {
    if (date.contains(separator)) {
      format.replace(u'/', separator).replace(u'.', separator);
    }
  }
  return format;
}

void takeWord(QString& word, const QString& ofSystem) {
  if (!ofSystem.isEmpty()) {
    word = ofSystem.toUpper();
  }
}

}  // namespace

void cSharedDateSubs::useLocale(DateLocaleSource source) {
  source_ = std::move(source);
  known_ = {};
}

const cSharedDateSubs::Conventions& cSharedDateSubs::known() const {
  if (!known_.found) {
    detect();
  }
  return known_;
}

/// Marked as found first: what is logged on the way may ask for a date itself.
void cSharedDateSubs::detect() const {
  known_.found = true;
  const Guard guard("Initialise", kModule);
  guard([&] { known_.locale = source_(); });
  known_.commaThousandSeparator = known_.locale.pointGroupsThousands;
  takeWord(known_.trueStr, known_.locale.trueWord);
  takeWord(known_.falseStr, known_.locale.falseWord);
  detectMonthNames(known_);
  detectFormat(known_);
  logFound(known_);
}

void cSharedDateSubs::detectMonthNames(Conventions& found) {
  for (int month = 1; month <= kMonths; ++month) {
    const QString name = found.locale.names.monthName(month, QLocale::ShortFormat).toUpper();
    found.shortMonthNames[slot(month)] = name;
    found.translateMonthNames = found.translateMonthNames || name != englishName(month);
  }
}

/// The printed 25 December 2001 is the single source of it all.
void cSharedDateSubs::detectFormat(Conventions& found) {
  const QString& date = found.locale.christmas2001;
  const bool shortYear = !date.contains(u"2001"_s);
  const qsizetype year = date.indexOf(shortYear ? u"01"_s : u"2001"_s);
  const qsizetype month = date.indexOf(u"12"_s);
  const qsizetype day = date.indexOf(u"25"_s);
  if (year != 0 && month <= day) {
    found.format = u"MM/DD/YYYY"_s;
    found.yearField = 3, found.monthField = 1, found.dayField = 2;
  } else if (year != 0) {
    found.format = u"DD/MM/YYYY"_s;
    found.yearField = 3, found.monthField = 2, found.dayField = 1;
  } else if (month > year && day > month) {
    found.format = u"YYYY/MM/DD"_s;
    found.yearField = 1, found.monthField = 2, found.dayField = 3;
  } else {
    // Year, day, month: such a date has fields but no format.
    found.yearField = 1, found.monthField = 3, found.dayField = 2;
  }
  found.separator = separatorIn(date);
  found.format = withSeparatorOf(date, found.format);
  if (shortYear) {
    found.format.replace(u"YYYY"_s, u"YY"_s);
  }
  found.fullFormat = withSeparatorOf(date, u"DD/MMM/YYYY"_s);
}

void cSharedDateSubs::logFound(const Conventions& found) {
  Logging().AddDebug(u"Date format: "_s + found.format);
  Logging().AddDebug(u"Full date format: "_s + found.fullFormat);
  Logging().AddDebug(u"Full date format plus time: "_s + found.fullFormat + u" HH:MM"_s);
  Logging().AddDebug(u"Date separator: "_s + found.separator);
  Logging().AddDebug(u"True string: "_s + found.trueStr + u" False string: "_s + found.falseStr);
}

QString cSharedDateSubs::ShortMonthNames(int month) const {
  return known().shortMonthNames[slot(month)];
}

QString cSharedDateSubs::EnglishMonthNames(int month) const {
  slot(month);
  return englishName(month);
}

QString cSharedDateSubs::FullEnglishMonthNames(int month) const {
  slot(month);
  return fullEnglishName(month);
}

QString cSharedDateSubs::FormatDate(const QDate& date) const {
  return formatByPattern(date, FullDateFormatString(), known().locale.names);
}

QString cSharedDateSubs::ShortFormatDate(const QDate& date) const {
  const QLocale& names = known().locale.names;
  return known().format.isEmpty() ? names.toString(date, QLocale::ShortFormat)
                                  : formatByPattern(date, known().format, names);
}

QDateTime cSharedDateSubs::RemoveSeconds(const QDateTime& time) const {
  QDateTime result = time;
  result.setTime({time.time().hour(), time.time().minute()});
  return result;
}

// Some locales have seconds in their short form, and some part it with blanks of other kinds.
QString cSharedDateSubs::HourAndMinute(const QTime& time) {
  static const QRegularExpression seconds(u"[^a-zA-Z\\s]?s+"_s);
  return QLocale().toString(time, QLocale().timeFormat(QLocale::ShortFormat).remove(seconds)).simplified();
}

QString cSharedDateSubs::ShortFormatDateTime(const QDateTime& time) const {
  return time.isValid() ? ShortFormatDate(time.date()) + u' ' + HourAndMinute(time.time()) : QString();
}

QString cSharedDateSubs::ConvertMyDateVar(const QString& text) const {
  if (!text.contains(u'$')) {
    return text;
  }
  const QDateTime now = Clock::now();
  const auto format = [&](const QString& pattern) { return formatByPattern(now, pattern, known().locale.names); };
  const std::array<std::pair<QString, QString>, 13> steps{{
      {u"$WEEKDAY$"_s, u"$DAY$"_s},
      {u"$YYYY$"_s, u"$YEAR$"_s},
      {u"$DAY$"_s, format(u"DDD"_s)},
      {u"$DATE$"_s, format(u"YYYYMMDD"_s)},
      {u"$MMM$"_s, format(u"MMM"_s)},
      {u"$DD$"_s, format(u"DD"_s)},
      {u"$MM$"_s, format(u"MM"_s)},
      {u"$MONTH$"_s, format(u"MMMM"_s)},
      {u"$YY$"_s, format(u"YY"_s)},
      {u"$YEAR$"_s, format(u"YYYY"_s)},
      {u"$TODAY$"_s, ShortFormatDate(now.date())},
      {u"$7DAYSAGO$"_s, ShortFormatDate(now.date().addDays(-7))},
      {u"$TIME$"_s, format(u"HH.MM.SS"_s)},
  }};
  QString result = text;
  for (const auto& step : steps) {
    result.replace(step.first, step.second, Qt::CaseInsensitive);
  }
  return result;
}

cSharedDateSubs& Dates() {
  static cSharedDateSubs dates;
  return dates;
}
