// The pop-up menus of the main window's lists.

#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/shell/MainWindow.h"
#include "support/SampleProject.h"

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QTabWidget>
#include <QTest>

using namespace Qt::StringLiterals;

class PopupMenusTest : public ShellTest {
 protected:
  void SetUp() override {
    ShellTest::SetUp();
    startWith(smallProject());
    control<QTabWidget>("TabStrip1").setCurrentIndex(2);
  }

  static QMenu* menuUp() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }
  static QString nameUp() { return menuUp() == nullptr ? QString() : menuUp()->objectName(); }
  static void closeMenu() {
    QTest::keyClick(&required(menuUp(), u"pop-up"_s), Qt::Key_Escape);
    EXPECT_EQ(menuUp(), nullptr);
  }

  /// Brings up the menu of a row; of no row for -1.
  static void rightClick(ListView& view, int row) {
    const QPoint at = placeOf(view, row);
    QTest::mouseClick(view.viewport(), Qt::RightButton, {}, at);
    QContextMenuEvent event(QContextMenuEvent::Mouse, at, view.viewport()->mapToGlobal(at));
    QApplication::sendEvent(view.viewport(), &event);
  }
  static void menuKey(ListView& view) {
    view.setFocus();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, view.rect().center(), view.mapToGlobal(view.rect().center()));
    QApplication::sendEvent(&view, &event);
  }

  QList<bool> enabled(std::initializer_list<const char*> names) {
    QList<bool> states;
    for (const char* name : names) {
      states.append(isEnabled(name));
    }
    return states;
  }
};

TEST_F(PopupMenusTest, AListBringsUpItsMenuForTheRowByMouseAndKey) {
  for (const auto& [name, menu] : {std::pair{"ListChapters", u"mnuChapters"_s},
                                   {"ListScenes", u"mnuScene"_s},
                                   {"ListChar(0)", u"mnuCharRC"_s},
                                   {"ListChar(1)", u"mnuAllCharRC"_s}}) {
    SCOPED_TRACE(name);
    ListView& view = list(name);
    rightClick(view, 1);
    EXPECT_EQ(nameUp(), menu);
    EXPECT_EQ(view.SelectedRow(), 1);
    closeMenu();
    click(view, 0);
    menuKey(view);
    EXPECT_EQ(nameUp(), menu);
    const QRect row = view.visualRect(view.currentIndex());
    EXPECT_EQ(required(menuUp(), u"menu"_s).y(), view.viewport()->mapToGlobal(row.bottomLeft()).y());
    closeMenu();
  }
  rightClick(list("ListChapters"), 1);
  EXPECT_EQ(list("ListScenes").tagAt(0), 3) << "the scenes of the chapter that was clicked";
  closeMenu();
}

TEST_F(PopupMenusTest, WithoutASelectionOnlyWhatNeedsNoneCanBeChosen) {
  const auto chapterStates = [this] {
    return enabled({"mnuEditChapter", "mnuMarkChaptersUnused", "mnuRemoveChapter", "mnuMoveChapterUp"});
  };
  const auto sceneStates = [this] {
    return enabled({"mnuEditScene", "mnuMarkScenesUnused", "mnuRemoveScene", "mnuMoveScene", "mnuStatusMain"});
  };
  rightClick(list("ListScenes"), -1);
  EXPECT_EQ(sceneStates(), QList<bool>(5, false));
  EXPECT_TRUE(isEnabled("mnuAddScene"));
  EXPECT_EQ(control<QAction>("mnuEditScene").statusTip(), u"no scene is selected"_s);
  closeMenu();
  EXPECT_EQ(sceneStates(), QList<bool>(5, true)) << "the bar offers them as before";
  rightClick(list("ListScenes"), 1);
  EXPECT_EQ(sceneStates(), QList<bool>(5, true));
  closeMenu();

  rightClick(list("ListChapters"), -1);
  EXPECT_EQ(chapterStates(), QList<bool>(4, false));
  EXPECT_TRUE(isEnabled("mnuFileNew"));
  EXPECT_EQ(control<QAction>("mnuEditChapter").statusTip(), u"no chapter is selected"_s);
  closeMenu();
  EXPECT_EQ(chapterStates(), QList<bool>(4, true));
  window().EditSelectedScene();
  rightClick(list("ListChapters"), 0);
  EXPECT_EQ(chapterStates(), QList({true, true, false, true})) << "a scene is open";
  closeMenu();
}

TEST_F(PopupMenusTest, ACharacterOfTheSceneCanBecomeItsViewpointUnlessItIs) {
  struct Case {
    int row;
    bool canEdit;
    bool canNarrate;
  };
  for (const Case& known : {Case{1, true, true}, Case{0, true, false}, Case{-1, false, false}}) {
    rightClick(list("ListChar(0)"), known.row);
    EXPECT_EQ(enabled({"mnuEditSelectedChar", "mnuRemoveCharFromScene", "mnuSetVP"}),
              QList({known.canEdit, known.canEdit, known.canNarrate}))
        << known.row;
    closeMenu();
  }
}

TEST_F(PopupMenusTest, TheListOfAllCharactersHasAMenuForSelectedOnesOnly) {
  rightClick(list("ListChar(1)"), -1);
  EXPECT_EQ(menuUp(), nullptr);
  menuKey(list("ListChar(1)"));
  EXPECT_EQ(menuUp(), nullptr);
}
