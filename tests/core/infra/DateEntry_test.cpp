#include "core/infra/DateEntry.h"

#include "core/infra/Clock.h"
#include "core/infra/cSharedDateSubs.h"
#include "core/infra/cSharedGetDate.h"
#include "support/ScriptedToolkit.h"

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
    QString first;
    QString second;
    QString year;
    Outcome outcome;
    Box focus;
    QString yearAfter;
    QString message;
  };
  const Case cases[] = {
      {u""_s, u""_s, u""_s, Outcome::Done, DateEntry::First, u""_s, {}},
      {u"1"_s, u""_s, u""_s, Outcome::Done, DateEntry::Second, u""_s, {}},
      {u"1"_s, u"2"_s, u""_s, Outcome::Done, DateEntry::Year, u""_s, {}},
      {u"1"_s, u"2"_s, u"89"_s, Outcome::Done, DateEntry::Year, u"2089"_s, {}},
      {u"1"_s, u"2"_s, u"90"_s, Outcome::Done, DateEntry::Year, u"1990"_s, {}},
      {u"1"_s, u"2"_s, u"123"_s, Outcome::Done, DateEntry::Year, u"123"_s, tooShort},
      {u"1"_s, u"2"_s, u"7"_s, Outcome::Done, DateEntry::Year, u"7"_s, tooShort},
      {u"1"_s, u"2"_s, u"2024"_s, Outcome::Accepted, DateEntry::Second, u"2024"_s, {}},
      {u"31"_s, u"04"_s, u"2024"_s, Outcome::Done, DateEntry::Second, u"2024"_s, u"Invalid Date"_s},
      {u"29"_s, u"02"_s, u"2023"_s, Outcome::Done, DateEntry::Second, u"2023"_s, u"Invalid Date"_s},
      {u"01"_s, u"01"_s, u"0000"_s, Outcome::Done, DateEntry::Second, u"0000"_s, u"Invalid Date"_s},
  };
  for (const Case& each : cases) {
    DateEntry entry = dayFirst(each.first, each.second, each.year, DateEntry::Second);
    EXPECT_EQ(entry.press(Key::Enter), each.outcome) << entry.joined();
    EXPECT_EQ(entry.focus(), each.focus) << entry.joined();
    EXPECT_EQ(entry.text(DateEntry::Year), each.yearAfter);
    EXPECT_EQ(entry.takeMessage(), each.message);
    EXPECT_EQ(entry.takeMessage(), QString()) << "it is told once";
    EXPECT_EQ(entry.result().has_value(), each.outcome == Outcome::Accepted);
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
      {DateEntry::First, u"1"_s, Key::Character, QChar(0x0665), Outcome::Done, DateEntry::First},
      {DateEntry::First, u"1"_s, Key::Character, u'-', Outcome::Done, DateEntry::Second},
      {DateEntry::Second, u"1"_s, Key::Character, u'.', Outcome::Done, DateEntry::Year},
      {DateEntry::Year, u"1"_s, Key::Character, u'/', Outcome::Done, DateEntry::Year},
      {DateEntry::First, u""_s, Key::Backspace, {}, Outcome::PassOn, DateEntry::First},
      {DateEntry::Second, u""_s, Key::Backspace, {}, Outcome::Done, DateEntry::First},
      {DateEntry::Second, u"1"_s, Key::Backspace, {}, Outcome::PassOn, DateEntry::Second},
      {DateEntry::Year, u""_s, Key::Backspace, {}, Outcome::Done, DateEntry::Second},
      {DateEntry::Year, u"20"_s, Key::Backspace, {}, Outcome::PassOn, DateEntry::Year},
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

TEST(DateEntry, LeavingPadsAndHoldsAMonthOverTwelve) {
  DateEntry entry = dayFirst(u"7"_s, u"13"_s, u"2026"_s, DateEntry::Year);
  EXPECT_TRUE(entry.leave(DateEntry::First));
  EXPECT_EQ(entry.text(DateEntry::First), u"07"_s);
  EXPECT_FALSE(entry.leave(DateEntry::Second));
  EXPECT_EQ(entry.focus(), DateEntry::Second);
  DateEntry american(true, u"/"_s, kStart);
  american.setText(DateEntry::First, u"25"_s);
  EXPECT_FALSE(american.leave(DateEntry::First));
  EXPECT_TRUE(american.leave(DateEntry::Year));
}

TEST(DateEntry, AcceptTakesATwoDigitYearAtOnce) {
  DateEntry entry = dayFirst(u"29"_s, u"2"_s, u"24"_s);
  EXPECT_EQ(entry.press(Key::Accept), Outcome::Accepted);
  EXPECT_EQ(entry.result(), QDate(2024, 2, 29));
}

namespace {

/// A window whose user types these dates, one each time; an empty one cancels.
class TypingUser {
 public:
  explicit TypingUser(QList<QDate> dates) : dates_(std::move(dates)) {
    cSharedGetDate::installWindow([this](DateEntry& entry, const QString& caption) { run(entry, caption); });
  }
  ~TypingUser() {
    cSharedGetDate::installWindow({});
    Dates().useLocale(&DateLocale::ofSystem);
  }
  TypingUser(const TypingUser&) = delete;
  TypingUser& operator=(const TypingUser&) = delete;

  QStringList captions;
  QStringList shown;

 private:
  void run(DateEntry& entry, const QString& caption) {
    captions.append(caption);
    shown.append(entry.joined());
    EXPECT_FALSE(dates_.isEmpty()) << "asked once too often";
    const QDate date = dates_.isEmpty() ? QDate() : dates_.takeFirst();
    if (!date.isValid()) {
      entry.press(Key::Cancel);
      return;
    }
    entry.setText(DateEntry::First, date.toString(u"dd"));
    entry.setText(DateEntry::Second, date.toString(u"MM"));
    entry.setText(DateEntry::Year, date.toString(u"yyyy"));
    entry.press(Key::Enter);
  }

  QList<QDate> dates_;
};

}  // namespace

TEST(cSharedGetDate, GivesTheDayNumberOrNothing) {
  Clock::set(kStart.startOfDay());
  TypingUser user({QDate(2024, 2, 29), QDate()});
  EXPECT_EQ(cSharedGetDate().GetDate(), Clock::dayNumber(QDate(2024, 2, 29)));
  EXPECT_EQ(cSharedGetDate().GetDate(u"When?"_s, 2), 0);
  EXPECT_EQ(user.captions, QStringList({u"Enter the date (DD/MM)"_s, u"When?"_s}));
  EXPECT_EQ(user.shown, QStringList({u"02/03/2026"_s, u"01/01/1900"_s})) << "today, and the start that was given";
  Clock::set({});
}

TEST(cSharedGetDate, YearFirstLocalesAskMonthFirst) {
  TypingUser user({QDate()});
  Dates().useLocale([] {
    DateLocale locale;
    locale.christmas2001 = u"2001-12-25"_s;
    return locale;
  });
  cSharedGetDate().GetDate({}, 3);
  EXPECT_EQ(user.captions, QStringList(u"Enter the date (MM/DD)"_s));
  EXPECT_EQ(user.shown, QStringList(u"01-02-1900"_s));
}

TEST(cSharedGetDate, TheRestrictedModeAsksUntilTheDateFits) {
  TypingUser user({QDate(2026, 3, 21), QDate(2025, 3, 1), QDate(2026, 3, 20), QDate()});
  ScriptedToolkit person;
  const QString tooLate = u"The date must be in the current month (up to 20-Mar-2026)"_s;
  person.expectBox(tooLate);
  person.expectBox(tooLate);
  const qint32 limit = Clock::dayNumber(QDate(2026, 3, 20));
  EXPECT_EQ(cSharedGetDate().GetDateUpTo(u"p"_s, limit), limit);
  EXPECT_EQ(cSharedGetDate().GetDateUpTo(u"p"_s, limit), 0);
}

TEST(cSharedGetDate, WithoutAWindowNothingIsEntered) {
  EXPECT_EQ(cSharedGetDate().GetDate(u"p"_s), 0);
}
