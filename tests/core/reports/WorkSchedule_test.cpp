#include "core/infra/Clock.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/reports/modPrintWorkSchedule.h"
#include "support/SampleProject.h"
#include "support/SquareLetters.h"

#include <gtest/gtest.h>
using namespace Qt::StringLiterals;

namespace {

const QString kHeading = u"*You need to turn the following scenes into "_s;
const QString kDashes(30, u'-');
const QString kTail(10, u'-');

class WorkScheduleTest : public ::testing::Test {
 protected:
  /// Friday, 2 January 2026, at noon.
  void SetUp() override {
    Clock::set(QDateTime(QDate(2026, 1, 2), QTime(12, 0)));
    today_ = Clock::dayNumber(Clock::today());
  }
  void TearDown() override {
    Clock::set({});
    newProject();
  }

  /// A book whose scenes of one chapter, all at this status, are to rise until a deadline.
  void makeBook(int scenes, qint16 status, qint32 start, qint32 deadline) {
    makeLargerProject(1, scenes);
    for (qint32 i = 1; i <= g_Project->SceneCount(); ++i) {
      sceneAt(i)->Status = i <= 5 ? 0 : status;
      sceneAt(i)->ForceWordcount();
    }
    g_Project->setDeadlineStartDate(status + 1, today_ + start);
    g_Project->setDeadlineDate(status + 1, today_ + deadline);
    g_Project->setDeadlineDate(5, today_ + 90);
  }

  QStringList printed(int item) {
    PrintDocument document = PrintWorkSchedule({measure_, {false, false, 10, u"Square"_s}, progress_}, item);
    QStringList texts;
    for (const PrintedPage& page : document.pages) {
      texts += textsOf(page);
    }
    return texts;
  }

  static QString scene(int number, int words) { return u"Ch 1.%1: (%2w, N/A) Scene 1.%1"_s.arg(number).arg(words); }

  qint32 today_ = 0;

 private:
  SquareLetters measure_;
  CountedProgress progress_;
};

}  // namespace

TEST_F(WorkScheduleTest, SevenScenesOverThreeDaysAreThreeTwoAndTwo) {
  makeBook(7, 1, -5, 1);
  sceneAt(1)->Status = 9;
  EXPECT_EQ(
      printed(1),
      (QStringList{u"1"_s, u"*Project work schedule.  (Starting date 02/01/2026)*"_s,
                   u"Days left until project completion date: 90"_s, u"*Needed at each status level: *"_s,
                   u"  Outline (7)   Draft (0)   1st Edit (0)   2nd Edit (0)   Done (0) "_s, kHeading + u"Draft*"_s,
                   scene(1, 8), scene(2, 12), scene(3, 16), u"*--- Complete by Fri*"_s,
                   u" 02/01/2026"_s + kDashes + u"(36 words)"_s + kTail, scene(4, 20), scene(5, 24),
                   u"*--- Complete by Sat*"_s, u" 03/01/2026"_s + kDashes + u"(44 words)"_s + kTail, scene(6, 28),
                   scene(7, 32), u"*--- Complete by Sun*"_s, u" 04/01/2026"_s + kDashes + u"(60 words)"_s + kTail}));
}

TEST_F(WorkScheduleTest, AStatusThatTheLadderLacksIsPassedOver) {
  makeBook(7, 1, -5, 1);
  for (const qint16 odd : {qint16{9}, qint16{-1}}) {
    sceneAt(1)->Status = odd;
    EXPECT_TRUE(printed(1).contains(scene(7, 32))) << odd;
  }
}

TEST_F(WorkScheduleTest, TheDaysAreFilledByTheirQuotas) {
  using Days = QList<int>;
  for (const auto& [what, scenes, start, deadline, expected, firstDay] :
       {std::tuple{"evenly", 6, 0, 1, Days{2, 2, 2}, 0},
        {"fewer than days: in pairs", 5, 0, 20, Days{2, 2, 1}, 0},
        {"later", 4, 10, 11, Days{2, 1, 1}, 10},
        {"all of them, since the deadline has passed", 5, -20, -9, Days{5}, 0},
        {"one day late, and the day behind it", 4, -20, -1, Days{4}, 0}}) {
    makeBook(scenes, 3, start, deadline);
    QList<int> days{0};
    QStringList dates;
    for (const QString& text : printed(3)) {
      days.back() += text.startsWith(u"Ch 1."_s) ? 1 : 0;
      if (text.contains(kDashes)) {
        days.append(0);
        dates.append(text.mid(1, 10));
      }
    }
    EXPECT_EQ(days, expected + Days{0}) << what;
    EXPECT_EQ(dates.value(0), Clock::dateOf(today_ + firstDay).toString(u"dd/MM/yyyy"_s)) << what;
  }
}

TEST_F(WorkScheduleTest, EachEntryPrintsItsLevels) {
  makeBook(5, 0, 0, 0);
  for (qint32 i = 1; i <= 5; ++i) {
    sceneAt(5 + i)->Status = static_cast<qint16>(i % 6);
  }
  sceneAt(9)->Unused = true;
  const QStringList names{u"Draft*"_s, u"1st Edit*"_s, u"2nd Edit*"_s};
  for (int item = 0; item <= 4; ++item) {
    const QStringList headings = printed(item).filter(kHeading);
    const QStringList expected = item == 0 ? names : names.mid(item - 1, 1);
    ASSERT_EQ(headings.size(), expected.size()) << item;
    for (qsizetype i = 0; i < headings.size(); ++i) {
      EXPECT_EQ(headings[i], kHeading + expected[i]);
    }
  }
  chapterAt(4)->Title = u"CHAPTER chapter Chapters"_s;
  EXPECT_EQ(printed(1).filter(u"Scene 1.1"_s), QStringList{u"CHAPTER chapter Chs.1: (8w, N/A) Scene 1.1"_s});
  chapterAt(4)->Unused = true;
  EXPECT_TRUE(printed(0).filter(kHeading).isEmpty());
}

TEST_F(WorkScheduleTest, LateInTheEveningItBeginsTomorrow) {
  makeBook(1, 1, -5, 5);
  Clock::set(QDateTime(QDate(2026, 1, 2), QTime(21, 59)));
  EXPECT_EQ(printed(1).at(1), u"*Project work schedule.  (Starting date 02/01/2026)*"_s);
  Clock::set(QDateTime(QDate(2026, 1, 2), QTime(22, 0)));
  const QStringList late = printed(1);
  EXPECT_EQ(late.mid(1, 3).join(u' '),
            u"*Project work schedule.  (Starting date set to 03/01/2026 because it's after 10pm)* Days left until "
            "project completion date: 89 *Needed at each status level: *"_s);
  EXPECT_EQ(late.filter(kDashes), QStringList{u" 03/01/2026"_s + kDashes + u"(8 words)"_s + kTail});
  g_Project->setDeadlineDate(5, 0);
  EXPECT_EQ(printed(1).at(2), u"Days left until project completion date: no date set"_s);
}
