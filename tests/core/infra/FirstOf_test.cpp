#include "core/infra/FirstOf.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(FirstOf, LeavesOutNothingWithoutSayingSo) {
  const QStringList three{u"a"_s, u"b"_s, u"c"_s};
  EXPECT_EQ(firstOf({}), QStringList());
  EXPECT_EQ(firstOf(three), three);
  EXPECT_EQ(firstOf(three, 3), three);
  EXPECT_EQ(firstOf(three, 2), QStringList({u"a"_s, u"b"_s, u"..."_s}));
}
