#include "core/infra/cSharedDateSubs.h"

#include "core/infra/Clock.h"
#include "core/infra/RuntimeError.h"
#include "core/infra/cSharedLogging.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

DateLocaleSource printing(const QString& christmas) {
  return [christmas] {
    DateLocale locale;
    locale.christmas2001 = christmas;
    locale.names = QLocale(QLocale::English, QLocale::UnitedKingdom);
    locale.trueWord = u"Wahr"_s;
    locale.falseWord = u"Falsch"_s;
    return locale;
  };
}

DateLocaleSource systemOf(const QLocale& locale) {
  return [locale] {
    const QLocale former;
    QLocale::setDefault(locale);
    const DateLocale result = DateLocale::ofSystem();
    QLocale::setDefault(former);
    return result;
  };
}

const QDate kSecondOfMarch(2026, 3, 2);

}  // namespace

TEST(cSharedDateSubs, TheFormatIsReadOffOnePrintedDate) {
  struct Case {
    QString printed;
    QString format;
    QString full;
    QString separator;
    int year;
    int month;
    int day;
    QString second;
  };
  const Case cases[] = {
      {u"25/12/2001"_s, u"DD/MM/YYYY"_s, u"DD/MMM/YYYY"_s, u"/"_s, 3, 2, 1, u"02/03/2026"_s},
      {u"12/25/01"_s, u"MM/DD/YY"_s, u"DD/MMM/YYYY"_s, u"/"_s, 3, 1, 2, u"03/02/26"_s},
      {u"25.12.01"_s, u"DD.MM.YY"_s, u"DD.MMM.YYYY"_s, u"."_s, 3, 2, 1, u"02.03.26"_s},
      {u"2001-12-25"_s, u"YYYY-MM-DD"_s, u"DD-MMM-YYYY"_s, u"-"_s, 1, 2, 3, u"2026-03-02"_s},
      {u"2001. 12. 25."_s, u"YYYY.MM.DD"_s, u"DD.MMM.YYYY"_s, u"."_s, 1, 2, 3, u"2026.03.02"_s},
      {u"01/12/25"_s, u"YY/MM/DD"_s, u"DD/MMM/YYYY"_s, u"/"_s, 1, 2, 3, u"26/03/02"_s},
      {u"25 12 2001"_s, u"DD/MM/YYYY"_s, u"DD/MMM/YYYY"_s, u"/"_s, 3, 2, 1, u"02/03/2026"_s},
      {u"2001-25-12"_s, u""_s, u"DD-MMM-YYYY"_s, u"-"_s, 1, 3, 2, u"02/03/2026"_s},
      {u""_s, u"MM/DD/YY"_s, u"DD/MMM/YYYY"_s, u"/"_s, 3, 1, 2, u"03/02/26"_s},
  };
  for (const Case& each : cases) {
    const cSharedDateSubs dates(printing(each.printed));
    EXPECT_EQ(dates.DateFormatString(), each.format) << each.printed;
    EXPECT_EQ(dates.FullDateFormatString(), each.full) << each.printed;
    EXPECT_EQ(dates.FullDateFormatPlusTimeString(), each.full + u" HH:MM"_s);
    EXPECT_EQ(dates.DateSeparator(), each.separator) << each.printed;
    EXPECT_EQ(dates.SysDateYearField(), each.year) << each.printed;
    EXPECT_EQ(dates.SysDateMonthField(), each.month) << each.printed;
    EXPECT_EQ(dates.SysDateDayField(), each.day) << each.printed;
    EXPECT_EQ(dates.ShortFormatDate(kSecondOfMarch), each.second) << each.printed;
  }
}

TEST(cSharedDateSubs, RealLocalesAreUnderstood) {
  struct Case {
    QLocale locale;
    QString format;
    bool commas;
    bool translate;
    QString full;
  };
  const Case cases[] = {
      {QLocale(QLocale::English, QLocale::UnitedStates), u"MM/DD/YY"_s, false, false, u"02/Mar/2026"_s},
      {QLocale(QLocale::English, QLocale::UnitedKingdom), u"DD/MM/YYYY"_s, false, true, u"02/Mar/2026"_s},
      {QLocale(QLocale::German, QLocale::Germany), u"DD.MM.YY"_s, true, true, u"02.M\u00E4rz.2026"_s},
      {QLocale(QLocale::Swedish, QLocale::Sweden), u"YYYY-MM-DD"_s, false, true, u"02-mars-2026"_s},
      {QLocale(QLocale::Arabic, QLocale::Egypt), u"DD/MM/YYYY"_s, false, true, {}},
  };
  for (const Case& each : cases) {
    const cSharedDateSubs dates(systemOf(each.locale));
    const std::string name = each.locale.name().toStdString();
    EXPECT_EQ(dates.DateFormatString(), each.format) << name;
    EXPECT_EQ(dates.CommaThousandSeparator(), each.commas) << name;
    EXPECT_EQ(dates.TranslateMonthNames(), each.translate) << name;
    if (!each.full.isEmpty()) {
      EXPECT_EQ(dates.FormatDate(kSecondOfMarch), each.full) << name;
    }
  }
}

TEST(cSharedDateSubs, MonthNamesHaveFourteenSlots) {
  const cSharedDateSubs dates(systemOf(QLocale(QLocale::German, QLocale::Germany)));
  EXPECT_EQ(dates.ShortMonthNames(3), u"M\u00C4RZ"_s);
  EXPECT_EQ(dates.EnglishMonthNames(12), u"DEC"_s);
  EXPECT_EQ(dates.FullEnglishMonthNames(1), u"January"_s);
  EXPECT_EQ(dates.ShortMonthNames(0) + dates.EnglishMonthNames(13), QString());
  EXPECT_THROW(dates.ShortMonthNames(14), RuntimeError);
  EXPECT_THROW(dates.FullEnglishMonthNames(-1), RuntimeError);
}

TEST(cSharedDateSubs, DetectionIsLoggedOnceAndSurvivesAFailingSource) {
  Logging().WriteActionsToLog();
  const cSharedDateSubs dates(printing(u"25.12.2001"_s));
  EXPECT_EQ(dates.TrueStr(), u"WAHR"_s);
  EXPECT_EQ(Logging().CurrentAction(), u"DBG: True string: WAHR False string: FALSCH"_s);
  EXPECT_EQ(cSharedDateSubs([] { return DateLocale(); }).FalseStr(), u"FALSE"_s) << "no word is no wish for none";
  Logging().WriteActionsToLog();
  EXPECT_EQ(dates.FalseStr(), u"FALSCH"_s);
  EXPECT_EQ(Logging().CurrentAction(), QString());
  const cSharedDateSubs broken([]() -> DateLocale { throw RuntimeError(RuntimeError::Internal); });
  EXPECT_EQ(broken.DateSeparator(), u"/"_s);
}

TEST(cSharedDateSubs, MacrosAreExpandedInOrderWithoutRegardToCase) {
  Clock::set(QDateTime(QDate(2026, 3, 2), QTime(9, 5, 7)));
  const cSharedDateSubs dates(printing(u"25/12/2001"_s));
  const std::pair<QString, QString> cases[] = {
      {u"$weekday$ $YYYY$"_s, u"Mon 2026"_s},
      {u"$DATE$ $DD$ $MM$ $YY$"_s, u"20260302 02 03 26"_s},
      {u"$mmm$-$Month$-$Year$"_s, u"Mar-March-2026"_s},
      {u"$TODAY$ $7daysago$"_s, u"02/03/2026 23/02/2026"_s},
      {u"b_$TIME$.zip"_s, u"b_09.05.07.zip"_s},
      {u"$5 and $"_s, u"$5 and $"_s},
      {u"$DD$$MM$"_s, u"0203"_s},
  };
  for (const auto& [text, expected] : cases) {
    EXPECT_EQ(dates.ConvertMyDateVar(text), expected);
  }
  EXPECT_EQ(dates.RemoveSeconds(Clock::now()), QDateTime(QDate(2026, 3, 2), QTime(9, 5)));
  Clock::set({});
}

TEST(formatByPattern, MinutesFollowHours) {
  const QDateTime time(QDate(2026, 3, 2), QTime(9, 5, 7));
  const QLocale english(QLocale::English, QLocale::UnitedStates);
  EXPECT_EQ(formatByPattern(time, u"dd-MMM-YYYY HH:MM:SS"_s, english), u"02-Mar-2026 09:05:07"_s);
  EXPECT_EQ(formatByPattern(time, u"dddd d/m/yy"_s, english), u"Monday 2/3/26"_s);
}
