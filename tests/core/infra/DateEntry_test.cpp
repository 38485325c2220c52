#include "core/infra/DateEntry.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using Box = DateEntry::Box;
using Key = DateEntry::Key;
using Outcome = DateEntry::Outcome;

namespace {

const QDate kStart(2026, 3, 2);

DateEntry dayFirst(const QString& first, const QString& second, const QString& year, Box focus = DateEntry::First) {
  DateEntry entry(false, u"/"_s, kStart);
  entry.setText(DateEntry::First, first);
  entry.setText(DateEntry::Second, second);
  entry.setText(DateEntry::Year, year);
  entry.setFocus(focus);
  return entry;
}

}  // namespace

TEST(DateEntry, EnterAsksForWhatIsMissing) {
  const QString tooShort = u"Year must be 2 or 4 digits. If you enter 2 digits I will guess at the century."_s;
  struct Case {
    QString first, second, year;
    Box focus;
    QString yearAfter, message;
  };
  const Case cases[] = {
      {u""_s, u""_s, u""_s, DateEntry::First, u""_s, {}},
      {u"1"_s, u""_s, u""_s, DateEntry::Second, u""_s, {}},
      {u"1"_s, u"2"_s, u""_s, DateEntry::Year, u""_s, {}},
      {u"1"_s, u"2"_s, u"89"_s, DateEntry::Year, u"2089"_s, {}},
      {u"1"_s, u"2"_s, u"90"_s, DateEntry::Year, u"1990"_s, {}},
      {u"1"_s, u"2"_s, u"123"_s, DateEntry::Year, u"123"_s, tooShort},
      {u"1"_s, u"2"_s, u"2024"_s, DateEntry::Second, u"2024"_s, {}},
      {u"29"_s, u"02"_s, u"2023"_s, DateEntry::Second, u"2023"_s, u"Invalid Date"_s},
      {u"01"_s, u"01"_s, u"0000"_s, DateEntry::Second, u"0000"_s, u"Invalid Date"_s},
  };
  for (const Case& each : cases) {
    DateEntry entry = dayFirst(each.first, each.second, each.year, DateEntry::Second);
    const bool accepted = each.year == u"2024"_s;
    EXPECT_EQ(entry.press(Key::Enter), accepted ? Outcome::Accepted : Outcome::Done) << entry.joined();
    EXPECT_EQ(entry.focus(), each.focus) << entry.joined();
    EXPECT_EQ(entry.text(DateEntry::Year), each.yearAfter);
    EXPECT_EQ(entry.takeMessage(), each.message);
    EXPECT_EQ(entry.result().has_value(), accepted);
  }
}

TEST(DateEntry, KeysMoveTypeOrDoNothing) {
  struct Case {
    Box focus;
    QString text;
    Key key;
    QChar character;
    Outcome outcome;
    Box focusAfter;
  };
  const Case cases[] = {
      {DateEntry::First, u"1"_s, Key::Character, u'5', Outcome::PassOn, DateEntry::First},
      {DateEntry::First, u"1"_s, Key::Character, u'x', Outcome::Done, DateEntry::First},
      {DateEntry::Second, u"1"_s, Key::Character, u'.', Outcome::Done, DateEntry::Year},
      {DateEntry::Second, u""_s, Key::Backspace, {}, Outcome::Done, DateEntry::First},
      {DateEntry::Second, u"1"_s, Key::Backspace, {}, Outcome::PassOn, DateEntry::Second},
      {DateEntry::Year, u"2026"_s, Key::Cancel, {}, Outcome::Cancelled, DateEntry::Year},
  };
  for (const Case& each : cases) {
    DateEntry entry(false, u"/"_s, kStart);
    entry.setFocus(each.focus);
    entry.setText(each.focus, each.text);
    EXPECT_EQ(entry.press(each.key, each.character), each.outcome);
    EXPECT_EQ(entry.focus(), each.focusAfter);
    EXPECT_EQ(entry.text(each.focus), each.text) << "the box itself types";
  }
}

TEST(DateEntry, AcceptTakesATwoDigitYearAtOnce) {
  DateEntry entry = dayFirst(u"29"_s, u"2"_s, u"24"_s);
  EXPECT_EQ(entry.press(Key::Accept), Outcome::Accepted);
  EXPECT_EQ(entry.result(), QDate(2024, 2, 29));
}
