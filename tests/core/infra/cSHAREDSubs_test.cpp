#include "core/infra/cSHAREDSubs.h"

#include "core/infra/Clock.h"
#include "support/ScriptedToolkit.h"

#include <gtest/gtest.h>

TEST(cSHAREDSubs, EveryPointerYieldsOnce) {
  ScriptedToolkit person;
  cSHAREDSubs subs;
  subs.BusyMouse();
  EXPECT_EQ(person.pointer, Pointer::Busy);
  subs.BackgroundMouse();
  EXPECT_EQ(person.pointer, Pointer::Background);
  subs.NormalMouse();
  EXPECT_EQ(person.pointer, Pointer::Normal);
  EXPECT_EQ(person.yields, 3);
}

TEST(cSHAREDSubs, RegularYieldsComeTenTimesASecond) {
  ScriptedToolkit person;
  cSHAREDSubs subs;
  subs.RegularDoEvents();
  ASSERT_EQ(person.yields, 1);
  const qint64 first = Clock::ticks();
  while (person.yields == 1 && Clock::ticks() < first + 10000) {
    subs.RegularDoEvents();
  }
  EXPECT_EQ(person.yields, 2);
  EXPECT_GE(Clock::ticks() - first, 99);
}

TEST(cSHAREDSubs, KnowsVersionAndPlatform) {
  EXPECT_EQ(cSHAREDSubs().AppVersion().count(u'.'), 2);
  EXPECT_FALSE(cSHAREDSubs().GetWinPlatform().isEmpty());
}
