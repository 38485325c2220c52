#include "core/infra/Numbers.h"

#include "core/infra/Clock.h"
#include "support/ErrorOf.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

using namespace Qt::StringLiterals;

TEST(Numbers, ValTakesTheLongestLeadingNumber) {
  const std::pair<double, QByteArrayList> cases[] = {{0, {"", "abc", "-", ".", "&H", "--1", "1e-999"}},
                                                     {1, {"1 2", "1e+", "1-2"}},
                                                     {12, {"  12abc", "12,5"}},
                                                     {15, {"&hfg", "&O17"}},
                                                     {-3.5, {"\t-3.5x"}},
                                                     {0.5, {".5"}},
                                                     {1000, {"1e3"}},
                                                     {HUGE_VAL, {"1e999", "0001e99999999999999999"}},
                                                     {-HUGE_VAL, {"-.05e+999"}}};
  for (const auto& [expected, texts] : cases) {
    for (const QByteArray& text : texts) {
      EXPECT_EQ(Numbers::Val(text), expected) << '"' << text.constData() << '"';
    }
  }
}

TEST(Numbers, ValIsCutToWholeLowBits) {
  for (const auto& [text, expected] : {std::pair{"3.9", 3},
                                       {"-3.9", -3},
                                       {"2147483647", 2147483647},
                                       {"2147483648", int(-2147483648)},
                                       {"1e300", 0},
                                       {"1e999", 0}}) {
    EXPECT_EQ(Numbers::ValTo32(text), expected) << text;
  }
  EXPECT_EQ(Numbers::ValTo16("32768"), -32768);
}

TEST(Numbers, StrictReadingRoundsAndRefuses) {
  for (const auto& [text, expected] :
       {std::pair{" 5 ", 5}, {"2.5", 2}, {"3.5", 4}, {"1e2", 100}, {"2147483647.4", 2147483647}}) {
    EXPECT_EQ(Numbers::Strict32(text), expected) << text;
  }
  for (const auto& [text, number] : {std::pair{"", 13}, {"5x", 13}, {"1 2", 13}, {"2147483648", 6}, {"1,5", 13}}) {
    EXPECT_EQ(errorOf([&, bytes = text] { Numbers::Strict32(bytes); }), number) << '"' << text << '"';
  }
}

TEST(Numbers, DatesAreReadStrictlyAndWrittenBack) {
  EXPECT_EQ(Numbers::DayNumber("1899-12-30"), 0);
  EXPECT_EQ(Numbers::DayNumber("1900-01-01"), 2);
  EXPECT_EQ(Numbers::DayNumber(" 2024/2/29 10:00"), Numbers::DayNumber("2024.02.29"));
  for (const char* bad :
       {"", "2023-02-29", "2024-13-01", "20240101", "2024-01", "2024-01-01x", "31-12-2001", "a-b-c", "2024--1-1"}) {
    EXPECT_EQ(errorOf([&] { Numbers::DayNumber(bad); }), 13) << bad;
  }
  for (const qint32 day : {-657434, -1, 0, 1, 36526, 45351, 2958465}) {
    EXPECT_EQ(Numbers::DayNumber(Numbers::IsoDate(day)), day);
  }
  EXPECT_EQ(Numbers::IsoDate(std::numeric_limits<qint32>::max()), "9999-12-31");
  EXPECT_EQ(Numbers::IsoDate(std::numeric_limits<qint32>::min()), "0100-01-01");
}

TEST(Numbers, StoredValuesStandForNumbers) {
  const std::pair<QVariant, std::optional<double>> cases[] = {
      {u" 5 "_s, 5}, {u"-1 "_s, -1},   {true, -1},  {false, 0},    {7, 7},           {2.5, 2.5},
      {u"x"_s, {}},  {QVariant(), {}}, {u""_s, {}}, {u"5x"_s, {}}, {u"1e3"_s, 1000}, {u"\u0665"_s, {}}};
  for (const auto& [value, expected] : cases) {
    EXPECT_EQ(Numbers::ToNumber(value), expected) << value.toString();
  }
  EXPECT_EQ(Numbers::ToInt(u"9e99"_s), std::numeric_limits<qint32>::max());
  EXPECT_EQ(Numbers::ToInt(u" 2.5 "_s), 2);
}
