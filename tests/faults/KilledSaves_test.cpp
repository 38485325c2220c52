// Saves that are killed. Whatever happens, every text, title and plan is the old one or the new one.
//
// All points are tried with QUILLANE_ALL_FAULTS set, else a sample with a fixed seed.

#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "faults/FaultTest.h"
#include "support/Figures.h"
#include "support/SampleProject.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>

#include <map>

using namespace Qt::StringLiterals;

namespace {

const QString kKill = u"kill"_s;

class KilledSaves : public FaultTest {
 protected:
  /// Kills at every point, or a sample, and sees what there is afterwards; counts go to the figures under this title.
  void killAtPoints(Means means, const QString& what, const QString& title, int calls, int sample) {
    std::map<Age, int> ages;
    int killed = 0;
    for (const int point : faultPoints(calls, sample)) {
      const QString when = u"killed at call %1 of %2"_s.arg(point).arg(calls);
      const FaultyRun run = save(means, {kKill, point}, what);
      EXPECT_TRUE(run.killed) << when << ", which it did not get to: " << run.said;
      ++killed;
      ++ages[openedIn(bookFolder(), when)];
    }
    EXPECT_EQ(ages[Age::TextsBehind], 0) << "the plan was written before its texts";
    EXPECT_GT(ages[Age::Old], 0);
    EXPECT_TRUE(ages[Age::New] > 0 || means == Means::Preloaded) << "no change comes behind the last one";
    note(title, killed, ages);
  }

  static void note(const QString& title, int killed, std::map<Age, int>& ages) {
    const int opened = ages[Age::Old] + ages[Age::TextsAhead] + ages[Age::New];
    QStringList cells{title};
    for (const int count : {killed, opened, ages[Age::Old], ages[Age::TextsAhead], ages[Age::New],
                            ages[Age::TextsBehind] + ages[Age::Lost]}) {
      cells += QString::number(count);
    }
    noteFigures(u"kill"_s, cells);
  }

  /// True, and the test is skipped, where nobody may be traced.
  bool skips() {
    const QString why = whyNotTraced(kKill, home());
    if (!why.isEmpty()) {
      [&] { GTEST_SKIP() << why; }();
    }
    return !why.isEmpty();
  }
};

}  // namespace

TEST_F(KilledSaves, AtAnySystemCallLeaveTheOldBookOrTheNewOne) {
  if (skips()) {
    return;
  }
  const int calls = saveWhole(Means::Traced, kKill, u"change"_s);
  ASSERT_GT(calls, 300) << "several hundred points";
  killAtPoints(Means::Traced, u"change"_s, u"A save of a changed book, at any call"_s, calls, 60);
}

// The machine that lets nobody trace has these; and here a write is cut off in its middle.
TEST_F(KilledSaves, InTheMiddleOfAnyChangeLeaveTheOldBookOrTheNewOne) {
  const int calls = saveWhole(Means::Preloaded, kKill, u"change"_s);
  ASSERT_GT(calls, 60) << "the calls are not seen";
  killAtPoints(Means::Preloaded, u"change"_s, u"The same, in the middle of any change to a file"_s, calls, 20);
}

TEST_F(KilledSaves, OfOneSceneLeaveItsOldTextOrItsNewOne) {
  if (skips()) {
    return;
  }
  const int calls = saveWhole(Means::Traced, kKill, u"scene"_s);
  ASSERT_GT(calls, 10);
  killAtPoints(Means::Traced, u"scene"_s, u"A save of one scene, at any call"_s, calls, 15);
}

// Words may be there twice for a while; none may be missing.
TEST_F(KilledSaves, OfASplitSceneNeverLeaveItsShorterTextWithoutThePieces) {
  const int calls = saveWhole(Means::Preloaded, kKill, u"split"_s);
  ASSERT_GT(calls, 10);
  ASSERT_EQ(after_.texts.size(), before_.texts.size() + 2);
  std::map<Age, int> ages;
  for (const int point : faultPoints(calls, 20)) {
    const QString when = u"killed at call %1 of %2"_s.arg(point).arg(calls);
    EXPECT_TRUE(save(Means::Preloaded, {kKill, point}, u"split"_s).killed) << when;
    const Age age = openedIn(bookFolder(), when);
    EXPECT_TRUE(age != Age::TextsAhead) << when;
    ++ages[age];
  }
  EXPECT_GT(ages[Age::Old], 0);
  EXPECT_GT(ages[Age::TextsBehind], 0) << "split, and the source still whole";
}

// A half-written first save must not look like a book.
TEST_F(KilledSaves, OfABookThatHasNoPlaceYetLeaveAWholeBookOrNone) {
  if (skips()) {
    return;
  }
  makeSmallProject();
  after_ = contentOfProject();
  newProject();
  const auto saveFirst = [&](int point) {
    QDir(bookFolder()).removeRecursively();
    return saveWithFault(Means::Traced, {kKill, point}, {}, home(), {u"first"_s, bookFolder() + u"/Small.qn4"_s});
  };
  saveFirst(0);
  const int calls = saveFirst(0).calls;
  ASSERT_GT(calls, 50);
  int none = 0;
  int killed = 0;
  std::map<Age, int> ages;
  for (const int point : faultPoints(calls, 30)) {
    const QString when = u"killed at call %1 of %2"_s.arg(point).arg(calls);
    EXPECT_TRUE(saveFirst(point).killed) << when;
    ++killed;
    if (!QDirIterator(bookFolder(), {u"*.qn4"_s}).hasNext()) {
      ++none;
      continue;
    }
    const Age age = openedIn(bookFolder(), when);
    EXPECT_TRUE(age == Age::New) << when;
    ++ages[age];
  }
  EXPECT_GT(none, 0);
  EXPECT_GT(ages[Age::New], 0);
  noteFigures(u"first"_s,
              {u"The first save of a new book, at any call"_s, QString::number(killed), QString::number(none),
               QString::number(ages[Age::New]), QString::number(killed - none - ages[Age::New])});
}
