#include "core/spell/ProblemWords.h"

#include "core/infra/cSHAREDSettings.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(ProblemWords, ComeBackInOrderAndLeaveNothingBehindTheirEnd) {
  Settings().DeleteAllSettings();
  ProblemWords::store({u"very"_s, u"just"_s, u"really"_s});
  EXPECT_EQ(ProblemWords::load(), QStringList({u"very"_s, u"just"_s, u"really"_s}));
  ProblemWords::store({u"just"_s});
  EXPECT_EQ(ProblemWords::load(), QStringList{u"just"_s});
  EXPECT_EQ(Settings().sGet(u"BadWord1"_s), QVariant(u"just"_s));
  EXPECT_TRUE(Settings().IsSettingPresent(u"BadWord30"_s));
  EXPECT_FALSE(Settings().IsSettingPresent(u"BadWord31"_s));
}

TEST(ProblemWords, TheFirstWordOfAnOlderFileIsTakenOverOnce) {
  Settings().DeleteAllSettings();
  Settings().sSet(u"BadWord0"_s, u"zero"_s);
  Settings().sSet(u"BadWord2"_s, u"two"_s);
  EXPECT_EQ(ProblemWords::load(), QStringList({u"zero"_s, u"two"_s}));
  ProblemWords::store(ProblemWords::load());
  EXPECT_EQ(ProblemWords::load(), QStringList({u"zero"_s, u"two"_s}));

  for (int number = 0; number <= ProblemWords::kMost; ++number) {
    Settings().sSet(u"BadWord"_s + QString::number(number), QString::number(number) + u'x');
  }
  const QStringList full = ProblemWords::load();
  EXPECT_EQ(full.size(), ProblemWords::kMost + 1);
  ProblemWords::store(full);
  EXPECT_EQ(ProblemWords::load(), full) << "not one is lost";
}
