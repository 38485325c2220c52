#include "gui/editor/EditorPlacement.h"

#include "gui/editor/EditorWindow.h"

#include <QScreen>

namespace {

constexpr QRect kRoom(0, 0, 1000, 800);
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
      {15000, 11985, {200, 400}},  // the screen's edge is off the screen
      {14985, 12000, {800, 200}},  // as far out as it can be taken hold of
  };
  for (const PlaceCase& one : cases) {
    EXPECT_EQ(editorPlace(one.left, one.top, kWindow, kRoom), QRect(one.expected, kWindow)) << one.left;
  }
}

TEST(EditorPlacement, AWindowIsInTheRoomThatTheScreenHas) {
  // Panels at the top and on the left, a second screen, a small one.
  for (const QRect& room : {QRect(60, 30, 940, 770), QRect(1000, 200, 1280, 900), QRect(-1280, 0, 640, 480)}) {
    for (const QSize& window : {kWindow, QSize(1200, 300), QSize(3000, 3000)}) {
      for (const double last : {0.0, 15.0, 450.0, 9000.0, 16500.0, 60000.0}) {
        const QRect place = editorPlace(last, last, window, room);
        EXPECT_EQ(place.size(), window.boundedTo(room.size()));
        EXPECT_TRUE(place.top() >= room.top() && place.bottom() <= room.bottom()) << last;
        EXPECT_TRUE(place.left() >= room.left() && place.left() + 200 <= room.right() + 1) << last;
        EXPECT_TRUE(last > 0 || room.contains(place));
      }
    }
  }
}

TEST_F(EditorTest, AnotherEditorStandsBesideTheFirstAndTheNextSceneInItsPlace) {
  frmEditor* const first = open();
  const QPoint place = first->pos();
  frmEditor* const second = open(2);
  EXPECT_GT(second->x(), place.x());
  EXPECT_GT(second->y(), place.y());
  second->close();
  deleteUnloaded();
  click(*first, "cmdSaveAndNext");
  for (const frmEditor* const editor : editorWindows()) {
    EXPECT_EQ(editor->pos(), place);
  }
  EXPECT_EQ(editorWindows().size(), 2);
}

}  // namespace
