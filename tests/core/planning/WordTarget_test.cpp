#include "core/planning/WordTarget.h"

#include "support/ErrorOf.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr qint32 kToday = 46000;
constexpr auto kEndTooEarly = u"Please ensure the end date is ahead of today's date";

}  // namespace

TEST(WordTarget, ADayCountsByWhetherThePeriodIsRunning) {
  // Both ends are counted from today.
  for (const auto& [start, end, days] :
       {std::tuple{0, 0, 1}, {0, 30, 31}, {5, 9, 5}, {-1, 0, 0}, {-1, 1, 1}, {-9, 30, 30}, {3, 2, 0}, {-9, -3, 0}}) {
    const TargetFigures figures = targetFigures({kToday + start, kToday + end, 0, 100, 0}, kToday);
    EXPECT_EQ(figures.daysLeft.value_or(0), days) << start << ' ' << end;
    EXPECT_EQ(figures.share.has_value(), days > 0);
    EXPECT_EQ(figures.status == kEndTooEarly, days == 0) << figures.status;
  }
}

TEST(WordTarget, EachDayAsksForItsShareOfWhatIsLeft) {
  struct Case {
    const char* what;
    double startCount, target;
    qint32 now, days;
    qint64 perDay;
    QString status, text;
  };
  const QString half = u"You need to write 1 more words"_s;
  for (const Case& known :
       {Case{"half a word is none", 0, 100, 99, 2, 0, half, u"99 words done (99.0%)"_s},
        Case{"one and a half", 0, 3, 0, 2, 2, u"You need to write 3 more words"_s, u"0 words done (0.0%)"_s},
        Case{"two and a half", 0, 5, 0, 2, 2, u"You need to write 5 more words"_s, u"0 words done (0.0%)"_s},
        Case{"the very target", 50, 100, 150, 9, 0, u"You need to write 0 more words"_s, u"100 words done (100.0%)"_s},
        Case{"fewer than at the start", 500, 100, 450, 10, 15, u"You need to write 150 more words"_s,
             u"-50 words done (-50.0%)"_s},
        Case{"a hair below a twentieth percent", 0, 2000, 1, 1, 1999, u"You need to write 1,999 more words"_s,
             u"1 words done (0.0%)"_s},
        Case{"fractions", 10.4, 99.6, 20, 1, 90, u"You need to write 90 more words"_s, u"10 words done (10.0%)"_s},
        Case{"a fraction that is none", 0, 0.3, 0, 1, 0, u"You need to write 0 more words"_s,
             u"0 words done (0.0%)"_s}}) {
    const TargetInput input{kToday, kToday + known.days - 1, known.startCount, known.target, known.now};
    const TargetFigures figures = targetFigures(input, kToday);
    ASSERT_TRUE(figures.share) << known.what;
    EXPECT_EQ(figures.share->perDay, known.perDay) << known.what;
    EXPECT_EQ(figures.share->text(), known.text) << known.what;
    EXPECT_EQ(figures.status, known.status) << known.what;
  }
  const TargetShare share{0, 2'000'000'001, 2'000'000'000, 0};
  EXPECT_EQ(share.total(), 4'000'000'001);
  EXPECT_EQ(share.middle(), 3'000'000'000);
}

TEST(WordTarget, NumbersAreReadAsTheyAreWritten) {
  EXPECT_EQ(typedNumber(u" 80,000 "_s), 80000);
  EXPECT_EQ(typedNumber({}), 0);
  EXPECT_EQ(typedCount(u"2.5"_s), 2);
  EXPECT_EQ(typedCount(u"-2147483647"_s), -2147483647);
  for (const QString& text : {u"many"_s, u"12 words"_s, u"nan"_s, u"inf"_s}) {
    EXPECT_EQ(errorOf([&] { typedNumber(text); }), 13) << text;
  }
  EXPECT_EQ(errorOf([] { typedNumber(u"3000000000"_s); }), 6);
}
