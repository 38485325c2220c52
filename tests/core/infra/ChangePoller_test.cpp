// The poll of the change tables: what it hands on, when it keeps still, and how far a failure reaches.

#include "core/infra/ChangePoller.h"

#include "core/infra/RuntimeError.h"
#include "core/infra/ScanPause.h"
#include "core/infra/cSharedLogging.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class ChangePollerTest : public ::testing::Test {
 protected:
  void SetUp() override { Logging().WriteActionsToLog(); }

  ChangePoller::Handler noting(const QString& prefix) {
    return [this, prefix](qint32 id) { seen_ += prefix + QString::number(id); };
  }

  clsHashTable scenes_;
  clsHashTable people_;
  QStringList seen_;
  ChangePoller poller_{"TimerScan", "frmTest", ChangeArea::SceneList};
};

}  // namespace

TEST_F(ChangePollerTest, HandsOnEachChangeOfItsAreaOnceAndSumsUp) {
  poller_.follow(scenes_, noting(u"s"_s));
  poller_.follow(people_, noting(u"p"_s));
  poller_.setAfterPoll([this](bool anyChange) { seen_ += anyChange ? u"done"_s : u"nothing"_s; });
  poller_.poll();
  people_.MarkUpdated(1);
  scenes_.MarkUpdated(5);
  scenes_.MarkUpdated(3);
  poller_.poll();
  poller_.poll();
  EXPECT_EQ(seen_, (QStringList{u"nothing"_s, u"s5"_s, u"s3"_s, u"p1"_s, u"done"_s, u"nothing"_s}));
  EXPECT_TRUE(scenes_.HasChanged(5, ChangeArea::MainWindow)) << "the other areas' flags stay";
}

TEST_F(ChangePollerTest, AFailingHandlerCostsItsOwnIDOnly) {
  poller_.follow(scenes_, [this](qint32 id) {
    if (id == 5) {
      throw RuntimeError(RuntimeError::OutOfBounds);
    }
    seen_ += QString::number(id);
  });
  for (const qint32 id : {4, 5, 6}) {
    scenes_.MarkUpdated(id);
  }
  poller_.poll();
  EXPECT_EQ(seen_, (QStringList{u"4"_s, u"6"_s}));
  EXPECT_TRUE(Logging().CurrentAction().contains(u"(9) in TimerScan of module frmTest"_s));
  poller_.poll();
  EXPECT_EQ(seen_.size(), 2) << "it is not tried for ever";
}

TEST_F(ChangePollerTest, KeepsStillDuringAPauseAndLosesNothing) {
  poller_.follow(scenes_, noting({}));
  int polls = 0;
  poller_.setAfterPoll([&](bool) { ++polls; });
  scenes_.MarkUpdated(1);
  {
    const ScanPause outer;
    { const ScanPause inner; }
    poller_.poll();
    EXPECT_EQ(seen_, QStringList());
    EXPECT_EQ(polls, 0);
  }
  poller_.poll();
  EXPECT_EQ(polls, 1);
  EXPECT_EQ(seen_, QStringList{u"1"_s});
}

// A handler may yield to a long work, or be polled from within itself.
TEST_F(ChangePollerTest, WhatAHandlerBeginsLeavesTheRestForLater) {
  std::optional<ScanPause> pause;
  poller_.follow(scenes_, [&](qint32 id) {
    seen_ += QString::number(id);
    if (id == 1) {
      pause.emplace();
      scenes_.MarkUpdated(1);
    }
    poller_.poll();
  });
  scenes_.MarkUpdated(1);
  scenes_.MarkUpdated(2);
  poller_.poll();
  EXPECT_EQ(seen_, QStringList{u"1"_s});
  pause.reset();
  EXPECT_EQ(scenes_.changedIDs(ChangeArea::SceneList), (std::vector<qint32>{1, 2}));
}
