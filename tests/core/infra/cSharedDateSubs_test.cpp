#include "core/infra/cSharedDateSubs.h"

#include "core/infra/RuntimeError.h"

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
    QString printed, separator;
    int month, day;
    QString second;
  };
  const Case cases[] = {
      {u"25/12/2001"_s, u"/"_s, 2, 1, u"02/03/2026"_s},
      {u"12/25/01"_s, u"/"_s, 1, 2, u"03/02/26"_s},
      {u"25.12.01"_s, u"."_s, 2, 1, u"02.03.26"_s},
      {u"2001-12-25"_s, u"-"_s, 2, 3, u"2026-03-02"_s},
      {u"2001. 12. 25."_s, u"."_s, 2, 3, u"2026.03.02"_s},
      {u"2001-25-12"_s, u"-"_s, 3, 2, u"02/03/2026"_s},
      {u""_s, u"/"_s, 1, 2, u"03/02/26"_s},
  };
  for (const Case& each : cases) {
    const cSharedDateSubs dates(printing(each.printed));
    EXPECT_EQ(dates.DateSeparator(), each.separator) << each.printed;
    EXPECT_EQ(dates.SysDateMonthField(), each.month) << each.printed;
    EXPECT_EQ(dates.SysDateDayField(), each.day) << each.printed;
    EXPECT_EQ(dates.ShortFormatDate(kSecondOfMarch), each.second) << each.printed;
  }
}

TEST(cSharedDateSubs, RealLocalesAreUnderstood) {
  for (const auto& [locale, second] : {std::pair{QLocale(QLocale::English, QLocale::UnitedStates), u"03/02/26"_s},
                                       {QLocale(QLocale::English, QLocale::UnitedKingdom), u"02/03/2026"_s},
                                       {QLocale(QLocale::German, QLocale::Germany), u"02.03.26"_s},
                                       {QLocale(QLocale::Swedish, QLocale::Sweden), u"2026-03-02"_s},
                                       {QLocale(QLocale::Arabic, QLocale::Egypt), u"02/03/2026"_s}}) {
    EXPECT_EQ(cSharedDateSubs(systemOf(locale)).ShortFormatDate(kSecondOfMarch), second) << locale.name().toStdString();
  }
}

TEST(cSharedDateSubs, AFailingSourceLeavesTheDefaults) {
  EXPECT_EQ(cSharedDateSubs(printing(u"25.12.2001"_s)).TrueStr(), u"WAHR"_s);
  EXPECT_EQ(cSharedDateSubs([] { return DateLocale(); }).FalseStr(), u"FALSE"_s) << "no word is no wish for none";
  const cSharedDateSubs broken([]() -> DateLocale { throw RuntimeError(RuntimeError::Internal); });
  EXPECT_EQ(broken.DateSeparator(), u"/"_s);
}

TEST(formatByPattern, MinutesFollowHours) {
  const QDateTime time(QDate(2026, 3, 2), QTime(9, 5, 7));
  const QLocale english(QLocale::English, QLocale::UnitedStates);
  EXPECT_EQ(formatByPattern(time, u"dd-MMM-YYYY HH:MM:SS"_s, english), u"02-Mar-2026 09:05:07"_s);
  EXPECT_EQ(formatByPattern(time, u"dddd d/m/yy"_s, english), u"Monday 2/3/26"_s);
}
