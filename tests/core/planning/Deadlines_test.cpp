#include "core/planning/Deadlines.h"

#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "support/SampleProject.h"

#include <gtest/gtest.h>
#include <vector>

namespace {

constexpr qint32 kToday = 46000;

Deadlines withLevels(const std::array<Deadlines::Range, Deadlines::kLevels>& levels) {
  Deadlines deadlines;
  deadlines.levels = levels;
  return deadlines;
}

Deadlines filled(Deadlines deadlines) {
  deadlines.fillUnset(kToday);
  return deadlines;
}

}  // namespace

TEST(Deadlines, ANewBookGetsFiveMonthsOneBehindTheOther) {
  Deadlines expected = withLevels({{{46000, 46029}, {46030, 46059}, {46060, 46089}, {46090, 46119}, {46120, 46149}}});
  EXPECT_EQ(filled({}), expected);
  EXPECT_FALSE(BadValues(expected, kToday).any());
}

TEST(Deadlines, WhatIsSetStaysAndTheLastPairIsPutInOrderBehindTheFilling) {
  using Range = Deadlines::Range;
  for (const auto& [second, last, filledSecond, filledLast] :
       {std::tuple{Range{0, 46500}, Range{0, 46200}, Range{46030, 46500}, Range{46120, 46200}},
        {Range{-20, 0}, Range{46100, 0}, Range{-20, 46059}, Range{46100, 46149}},
        {Range{9, 8}, Range{46201, 46200}, Range{9, 8}, Range{46199, 46200}},
        {Range{9, 9}, Range{0, 45000}, Range{9, 9}, Range{44999, 45000}}}) {
    Deadlines deadlines;
    deadlines.levels[1] = second;
    deadlines.levels[4] = last;
    Deadlines expected = filled({});
    expected.levels[1] = filledSecond;
    expected.levels[4] = filledLast;
    EXPECT_EQ(filled(deadlines), expected) << second.start << ' ' << last.start;
  }
}

TEST(Deadlines, ADateBeforeTheOneThatItMustFollowIsFound) {
  // Levels in which one date was moved: which of the level, by how much, and what that puts out of order.
  struct Case {
    size_t level;
    bool start;
    qint32 days;
    std::vector<size_t> badStarts, badEnds;
  };
  for (const Case& known : {Case{0, true, 500, {}, {}}, Case{0, false, -500, {}, {}}, Case{0, false, 1, {}, {}},
                            Case{0, false, 2, {1}, {}}, Case{1, true, -1, {}, {}}, Case{1, true, -2, {1}, {}},
                            Case{1, true, 29, {}, {}}, Case{1, true, 30, {}, {1}}, Case{1, false, -30, {}, {1}},
                            Case{4, false, -30, {}, {4}}, Case{3, false, 100, {4}, {}}, Case{4, true, -100, {4}, {}}}) {
    Deadlines deadlines = filled({});
    Deadlines::Range& moved = deadlines.levels[known.level];
    (known.start ? moved.start : moved.end) += known.days;
    DatesOutOfOrder expected;
    for (const size_t level : known.badStarts) {
      expected.start[level] = true;
    }
    for (const size_t level : known.badEnds) {
      expected.end[level] = true;
    }
    const DatesOutOfOrder found = BadValues(deadlines, kToday);
    EXPECT_EQ(found.start, expected.start) << known.level << ' ' << known.days;
    EXPECT_EQ(found.end, expected.end) << known.level << ' ' << known.days;
    EXPECT_EQ(found.any(), !known.badStarts.empty() || !known.badEnds.empty());
  }
}

TEST(Deadlines, WhatIsNoDateIsTodayForTheCheck) {
  Deadlines deadlines = filled({});
  deadlines.levels[2].start = 0;
  EXPECT_TRUE(BadValues(deadlines, kToday).start[2]);
  EXPECT_EQ(deadlines.levels[2], (Deadlines::Range{kToday, 46089}));
}

TEST(Deadlines, AProjectGivesBackWhatWasStoredInIt) {
  newProject();
  const Deadlines stored = withLevels({{{1, 2}, {3, 4}, {0, 6}, {-7, 8}, {9, 10}}});
  stored.storeIn(*g_Project);
  EXPECT_EQ(Deadlines::of(*g_Project), stored);
  EXPECT_EQ(g_Project->DeadlineStartDate(2), 3);
  EXPECT_EQ(g_Project->DeadlineDate(5), 10);
}
