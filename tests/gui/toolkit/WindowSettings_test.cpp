#include "gui/toolkit/WindowSettings.h"

#include "gui/toolkit/Twips.h"
#include "support/WaitFor.h"

#include <QDialog>
#include <QHeaderView>
#include <QScreen>
#include <QTest>
#include <QTreeWidget>

#include <gtest/gtest.h>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

class WindowSettingsTest : public ::testing::Test {
 protected:
  void SetUp() override { Settings().DeleteAllSettings(); }
};

TEST_F(WindowSettingsTest, AWindowComesBackInItsSize) {
  QWidget first;
  first.resize(481, 357);
  storeWindow(u"Editor"_s, first);
  EXPECT_EQ(Settings().sGet(u"EditorWindowWidth"_s).toDouble(), 481 * 15);
  QWidget second;
  restoreWindow(u"Editor"_s, second);
  EXPECT_EQ(second.size(), QSize(481, 357));
}

TEST_F(WindowSettingsTest, AMaximisedWindowKeepsTheSizeThatItHadBefore) {
  QWidget window;
  window.resize(300, 200);
  storeWindow(u"Editor"_s, window);
  window.showMaximized();
  ASSERT_TRUE(waitFor([&] { return window.size() != QSize(300, 200); }));
  storeWindow(u"Editor"_s, window);
  window.setWindowState(Qt::WindowMinimized);
  storeWindow(u"Editor"_s, window);
  QWidget again;
  restoreWindow(u"EDITOR"_s, again);
  EXPECT_TRUE(again.isMaximized());
  EXPECT_EQ(again.size(), QSize(300, 200));
}

TEST_F(WindowSettingsTest, ASizeFromALargerScreenIsBroughtWithinThisOne) {
  QWidget window;
  const QSize room = window.screen()->availableGeometry().size();
  Settings().sSet(u"EditorWindowWidth"_s, 1e9);
  Settings().sSet(u"EditorWindowHeight"_s, 4500);
  restoreWindow(u"Editor"_s, window);
  EXPECT_EQ(window.width(), room.width());
  EXPECT_EQ(window.height(), 300);
  EXPECT_FALSE(window.isMaximized());
  Settings().sSet(u"EditorWindowHeight"_s, 1e9);
  restoreWindow(u"Editor"_s, window);
  EXPECT_TRUE(window.isMaximized());
}

TEST_F(WindowSettingsTest, AHighDialogBeginsWithItsFrameAtTheTop) {
  QDialog window;
  const QRect room = window.screen()->availableGeometry();
  Settings().sSet(u"EditorWindowWidth"_s, 15 * 400);
  Settings().sSet(u"EditorWindowHeight"_s, 15 * (room.height() * 9 / 10));
  restoreWindow(u"Editor"_s, window);
  window.show();
  EXPECT_EQ(window.frameGeometry().topLeft(), QPoint(room.left() + (room.width() - 400) / 2, room.top()));
}

TEST_F(WindowSettingsTest, APlaceIsTakenAgainWhereTheTitleBarCanBeReached) {
  QWidget first;
  first.move(70, 80);
  storePlace(u"List"_s, first);
  const auto placeOf = [](const QVariant& left) {
    Settings().sSet(u"ListWindowLeft"_s, left);
    QWidget window;
    window.move(1, 2);
    restorePlace(u"List"_s, window);
    return window.pos();
  };
  EXPECT_EQ(placeOf(Settings().sGet(u"ListWindowLeft"_s)), QPoint(70, 80));
  for (const QVariant& away : {QVariant(1e6), QVariant(-3000), QVariant(u"left"_s)}) {
    EXPECT_EQ(placeOf(away), QPoint(1, 2));
  }
}

TEST_F(WindowSettingsTest, ColumnsComeBackInTheirWidthsAndNeverVanish) {
  QTreeWidget first;
  first.setColumnCount(3);
  first.header()->setStretchLastSection(false);
  first.header()->resizeSection(0, 120);
  first.header()->resizeSection(1, 61);
  storeColumns(u"MainScn"_s, first);
  EXPECT_EQ(Settings().sGet(u"MainScn1_W"_s).toDouble(), 120 * 15);
  Settings().sSet(u"MainScn3_W"_s, 0.5);

  QTreeWidget second;
  second.setColumnCount(4);
  second.header()->setStretchLastSection(false);
  second.header()->resizeSection(3, 77);
  restoreColumns(u"MainScn"_s, second);
  EXPECT_EQ(second.header()->sectionSize(0), 120);
  EXPECT_EQ(second.header()->sectionSize(1), 61);
  EXPECT_GE(second.header()->sectionSize(2), second.header()->minimumSectionSize());
  EXPECT_EQ(second.header()->sectionSize(3), 77) << "what was never stored stays";
}

TEST(Twips, AreFifteenToThePixelAndBearAnyNumber) {
  EXPECT_EQ(Twips::fromPixels(669), 10035);
  EXPECT_EQ(Twips::toPixels(10032), 669);
  EXPECT_EQ(Twips::toPixels(-15), -1);
  EXPECT_EQ(Twips::toPixels(std::numeric_limits<double>::quiet_NaN()), 0);
  EXPECT_GT(Twips::toPixels(std::numeric_limits<double>::infinity()), 10000);
}

}  // namespace
