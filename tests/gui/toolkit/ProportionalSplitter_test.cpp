// Two sides and their proportion.

#include "gui/toolkit/ProportionalSplitter.h"

#include <QSplitterHandle>
#include <QTest>

#include <gtest/gtest.h>
#include <limits>

namespace {

int firstOf(const ProportionalSplitter& splitter) {
  return splitter.sizes().value(0);
}

void showWithSides(ProportionalSplitter& splitter, int width) {
  splitter.setChildrenCollapsible(false);
  splitter.addWidget(new QWidget);
  splitter.addWidget(new QWidget);
  splitter.resize(width, 100);
  splitter.show();
}

}  // namespace

TEST(ProportionalSplitter, KeepsThePartThatWasSetThroughEverySize) {
  ProportionalSplitter splitter(Qt::Horizontal);
  showWithSides(splitter, 40);
  splitter.setFraction(0.4571);
  for (const int width : {2000, 90, 1371, 3000}) {
    splitter.resize(width, 100);
    EXPECT_NEAR(firstOf(splitter), width * 0.4571, 1) << width;
    EXPECT_EQ(splitter.fraction(), 0.4571);
  }
  for (const double odd : {0.0, 1.0, -1.0, 7.0, std::numeric_limits<double>::quiet_NaN()}) {
    splitter.setFraction(odd);
    EXPECT_EQ(splitter.fraction(), 0.4571) << odd;
  }
}

TEST(ProportionalSplitter, TakesOverWhereTheUserPutsIt) {
  ProportionalSplitter splitter(Qt::Horizontal);
  showWithSides(splitter, 1000);
  splitter.setFraction(0.8);
  EXPECT_NEAR(firstOf(splitter), 800, 1);
  splitter.setFraction(0.5);
  QSplitterHandle& bar = *splitter.handle(1);
  QTest::mousePress(&bar, Qt::LeftButton, {}, {0, 5});
  QTest::mouseMove(&bar, {-200, 5});
  QTest::mouseRelease(&bar, Qt::LeftButton, {}, {0, 5});
  EXPECT_NEAR(splitter.fraction(), 0.3, 0.01);
  splitter.resize(2000, 100);
  EXPECT_NEAR(firstOf(splitter), 600, 20);
}
