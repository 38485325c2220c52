// What a long work keeps from happening while it lives, and what it gives back.

#include "core/model/LongWork.h"

#include "core/infra/RuntimeError.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "support/SampleProject.h"
#include "support/ScriptedToolkit.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class LongWorkTest : public ::testing::Test {
 protected:
  void SetUp() override { newProject(); }

  /// Everything that a long work holds, or nothing of it.
  void expectHeld(bool held) {
    EXPECT_EQ(screen_.inputHeld(), held);
    EXPECT_EQ(screen_.pointer, held ? Pointer::Busy : Pointer::Normal);
    EXPECT_EQ(g_Project->IsBusy(), held);
    EXPECT_EQ(ScanPause::isActive(), held);
  }

  ScriptedToolkit screen_;
};

}  // namespace

TEST_F(LongWorkTest, HoldsEverythingUntilTheOutermostHasGone) {
  {
    LongWork outer(*g_Project, u"Reading"_s, true);
    expectHeld(true);
    {
      const LongWork inner(*g_Project, u"Counting"_s, false);
      expectHeld(true);
    }
    EXPECT_TRUE(screen_.inputHeld() && g_Project->IsBusy() && ScanPause::isActive());
    outer.setCaption(u"Scene %1"_s, 7);
  }
  expectHeld(false);
  EXPECT_EQ(screen_.progressCaptions, (QStringList{u"Reading"_s, u"Counting"_s, u"Scene 7"_s}));
  EXPECT_EQ(screen_.progressWindowsShown, 1);
}

TEST_F(LongWorkTest, WhatWasTypedIntoItIsGoneBeforeInputComesBack) {
  bool heldAtTheLastYield = false;
  {
    const LongWork work(*g_Project, u"Reading"_s, false);
    screen_.onYield = [&] { heldAtTheLastYield = screen_.inputHeld() && screen_.pointer == Pointer::Normal; };
  }
  EXPECT_TRUE(heldAtTheLastYield);
}

TEST_F(LongWorkTest, IsStoppedOnlyWhereThatIsOffered) {
  {
    const LongWork refused(*g_Project, u"Saving"_s, true);
    screen_.pressStop();
    EXPECT_FALSE(refused.stopWanted());
  }
  const LongWork offered(*g_Project, u"Counting"_s, true, LongWork::Stop::Offered);
  EXPECT_FALSE(offered.stopWanted());
  screen_.pressStop();
  EXPECT_TRUE(offered.stopWanted());
}

TEST_F(LongWorkTest, GivesEverythingBackWhenAYieldFails) {
  screen_.onYield = [] { throw RuntimeError(RuntimeError::DiskFull); };
  EXPECT_THROW(LongWork(*g_Project, u"Reading"_s, true), RuntimeError);
  expectHeld(false);
  {
    const LongWork work(*g_Project, u"Reading"_s, true);
    screen_.onYield = [] { throw RuntimeError(RuntimeError::DiskFull); };
  }
  expectHeld(false);
}
