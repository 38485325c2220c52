#include "core/infra/cSHAREDSubs.h"

#include "core/infra/Clock.h"
#include "support/ScriptedToolkit.h"

#include <gtest/gtest.h>

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
