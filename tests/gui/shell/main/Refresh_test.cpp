// What a refresh of the main window leaves as it was, and what it paints.

#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/shell/MainWindow.h"
#include "support/SampleProject.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>

#include <array>
#include <functional>
#include <memory>

using namespace Qt::StringLiterals;

class RefreshTest : public ShellTest {
 protected:
  static constexpr int kRows = 80;

  /// More chapters, and more scenes in the one that is shown, than the lists have room for.
  void SetUp() override {
    ShellTest::SetUp();
    startWith(smallProject());
    makeLargerProject(kRows, kRows);
    window().RefreshAll();
    click(list("ListChapters"), 40);
  }

  /// What the user has made of a list: by IDs, so that it doesn't matter where the rows stand.
  struct Place {
    QList<qint32> selected;
    qint32 current;
    qint32 top;
    int across;
    bool operator==(const Place&) const = default;
  };
  static Place placeIn(const ListView& view) {
    return {view.SelectedTags(), view.tagAt(view.currentIndex().row()), view.tagAt(view.indexAt({0, 0}).row()),
            view.horizontalScrollBar()->value()};
  }

  /// Several rows, the last but one of them current, and scrolled so far that none of them is seen.
  Place arrange(ListView& view) {
    click(view, 40);
    click(view, 44, Qt::ControlModifier);
    click(view, 42, Qt::ControlModifier);
    view.scrollTo(view.model()->index(10, 0), QAbstractItemView::PositionAtTop);
    view.setColumnWidth(0, view.width());
    view.horizontalScrollBar()->setValue(7);
    view.setFocus();
    const Place place = placeIn(view);
    EXPECT_EQ(place.selected, QList({view.tagAt(40), view.tagAt(42), view.tagAt(44)}));
    EXPECT_EQ(place.current, view.tagAt(42));
    EXPECT_EQ(place.top, view.tagAt(10));
    EXPECT_EQ(place.across, 7);
    return place;
  }

  clsChapter& shown() { return *g_Project->ChapterByID(list("ListChapters").SelectedTag()); }
};

TEST_F(RefreshTest, KeepsSelectionPlaceAndFocus) {
  struct Case {
    const char* name;
    std::function<void(const ListView& chapters, const ListView& scenes)> change;
    /// How the first row that is seen is another one.
    int topMovesBy;
  };
  const std::array cases{
      Case{"nothing has changed", [](auto&, auto&) {}, 0},
      Case{"rows above have gone",
           [](const ListView& chapters, const ListView& scenes) {
             g_Project->RemoveChapterByID(chapters.tagAt(0));
             g_Project->RemoveSceneByID(scenes.tagAt(0));
           },
           0},
      Case{"rows above have come",
           [this](auto&, auto&) {
             g_Project->InsertChapter(std::make_shared<clsChapter>(), 1);
             shown().InsertScene(std::make_shared<clsScene>(), 1);
           },
           0},
      Case{"the first row that was seen has gone",
           [](const ListView& chapters, const ListView& scenes) {
             g_Project->RemoveChapterByID(chapters.tagAt(10));
             g_Project->RemoveSceneByID(scenes.tagAt(10));
           },
           1},
  };
  for (const char* name : {"ListScenes", "ListChapters"}) {
    ListView& view = list(name);
    for (const Case& each : cases) {
      SCOPED_TRACE(name);
      SCOPED_TRACE(each.name);
      Place expected = arrange(view);
      expected.top = view.tagAt(10 + each.topMovesBy);
      each.change(list("ListChapters"), list("ListScenes"));
      window().RefreshAll();
      EXPECT_EQ(placeIn(view), expected);
      EXPECT_TRUE(view.hasFocus());
    }
  }
}

TEST_F(RefreshTest, LeavesAFieldToWhoIsTypingInIt) {
  auto& title = control<QLineEdit>("txtTitle");
  title.setFocus();
  title.setSelection(2, 3);
  window().RefreshAll();
  EXPECT_TRUE(title.hasFocus());
  EXPECT_EQ(title.selectedText(), title.text().mid(2, 3));
}

TEST_F(RefreshTest, AHeldKeyRunsThroughTheChaptersAndTheScenesFollowWhenItGoesUp) {
  ListView& chapters = list("ListChapters");
  ListView& scenes = list("ListScenes");
  chapters.setFocus();
  const qint32 first = scenes.tagAt(0);
  for (const bool repeated : {false, true, true}) {
    QKeyEvent down(QEvent::KeyPress, Qt::Key_Down, {}, {}, repeated);
    QApplication::sendEvent(&chapters, &down);
  }
  EXPECT_EQ(chapters.SelectedRow(), 43);
  EXPECT_EQ(scenes.tagAt(0), first);
  QTest::keyRelease(&chapters, Qt::Key_Down);
  EXPECT_EQ(scenes.tagAt(0), g_Project->ChapterByID(chapters.SelectedTag())->SceneID(1));
  EXPECT_EQ(control<QLineEdit>("txtSceneTitle").text(), g_Project->SceneByID(scenes.SelectedTag())->Title);
}
