#include "gui/editor/EditorPlacement.h"

#include <gtest/gtest.h>

namespace {

constexpr QRect kScreen(0, 0, 1000, 800);
constexpr QSize kWindow(600, 400);

struct PlaceCase {
  double left;
  double top;
  QPoint expected;
};

TEST(EditorPlacement, AWindowStandsWhereTheLastOneStoodElseInTheMiddle) {
  const PlaceCase cases[] = {
      {0, 0, {200, 200}},          // never saved
      {1500, 750, {100, 50}},      // as it was
      {1500, -30, {100, 200}},     // each direction for itself
      {15000, 11985, {200, 799}},  // the screen's edge is off the screen
      {14985, 12000, {999, 200}},
  };
  for (const PlaceCase& one : cases) {
    EXPECT_EQ(editorPlace(one.left, one.top, kWindow, kScreen), one.expected) << one.left << ' ' << one.top;
  }
}

TEST(EditorPlacement, AWindowLargerThanTheScreenShowsItsCorner) {
  EXPECT_EQ(editorPlace(0, 0, {1200, 900}, kScreen), QPoint(0, 0));
}

TEST(EditorPlacement, ASecondScreenHasAMiddleOfItsOwn) {
  const QRect second(1000, 0, 1000, 800);
  EXPECT_EQ(editorPlace(16500, 0, kWindow, second), QPoint(1100, 200));
  EXPECT_EQ(editorPlace(1500, 0, kWindow, second), QPoint(1200, 200));
}

}  // namespace
