// The main window without a mouse: where Tab leads and what the keys of the lists do.

#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/editor/frmEditor.h"
#include "gui/shell/MainWindow.h"
#include "gui/shell/main/MainMenuBar.h"

#include <QApplication>
#include <QMenuBar>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>

using namespace Qt::StringLiterals;

class KeyboardTest : public ShellTest {
 protected:
  void SetUp() override {
    ShellTest::SetUp();
    startWith(smallProject());
    control<QWidget>("txtTitle").setFocus();
  }

  static QWidget& focused() { return required(QApplication::focusWidget(), u"control with the keyboard"_s); }
  /// Bars of tabs have no names of their own.
  static QString nameOfFocused() {
    const QWidget& control = focused();
    return (qobject_cast<const QTabBar*>(&control) == nullptr ? &control : control.parentWidget())->objectName();
  }
  static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}, int times = 1) {
    for (; times > 0; --times) {
      QTest::keyClick(&focused(), key, modifiers);
    }
  }
  static void tabTo(const QString& name) {
    for (int i = 0; i < 30 && nameOfFocused() != name; ++i) {
      press(Qt::Key_Tab);
    }
    ASSERT_EQ(nameOfFocused(), name);
  }
  /// What has the keyboard one after the other until the first has it again.
  static QStringList walk(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QStringList walked;
    do {
      walked += nameOfFocused();
      press(key, modifiers);
    } while (nameOfFocused() != walked.first() && walked.size() < 30);
    return walked;
  }
  static void expectWalk(const QStringList& forwards) {
    EXPECT_EQ(walk(Qt::Key_Tab), forwards);
    QStringList backwards = walk(Qt::Key_Backtab, Qt::ShiftModifier);
    std::reverse(backwards.begin() + 1, backwards.end());
    EXPECT_EQ(backwards, forwards);
  }
  static QString popup() {
    const QWidget* const menu = QApplication::activePopupWidget();
    return menu == nullptr ? QString() : menu->objectName();
  }
};

TEST_F(KeyboardTest, TabFollowsTheEyeAndComesBack) {
  const QStringList left{u"txtTitle"_s, u"txtAuthor"_s, u"ListChapters"_s, u"txtChapterDesc"_s, u"TabStrip2"_s};
  const QList<QStringList> tabs{{u"txtSceneTitle"_s, u"txtDesc"_s},
                                {u"txtBody"_s},
                                {u"ListChar(0)"_s, u"ListChar(1)"_s},
                                {u"ListLoc(0)"_s, u"ListLoc(1)"_s},
                                {u"ListItems(0)"_s, u"ListItems(1)"_s},
                                {u"txtGoal"_s, u"txtConflict"_s, u"txtOutcome"_s},
                                {u"txtNotes"_s}};
  for (int tab = 0; tab < tabs.size(); ++tab) {
    control<QTabWidget>("TabStrip1").setCurrentIndex(tab);
    expectWalk(left + QStringList{u"ListScenes"_s, u"TabStrip1"_s} + tabs[tab]);
  }
  control<QTabWidget>("TabStrip2").setCurrentIndex(1);
  expectWalk(left + QStringList{u"ListNotes"_s, u"cmdNew"_s, u"cmdEdit"_s, u"txtNoteTitle"_s, u"txtNoteEditor"_s});
  tabTo(u"ListNotes"_s);
  press(Qt::Key_Return);
  tabTo(u"txtTitle"_s);
  expectWalk(left + QStringList{u"txtNoteTitle"_s, u"txtNoteEditor"_s, u"cmdSave"_s, u"cmdDiscard"_s});
}

TEST_F(KeyboardTest, WithoutAProjectTheKeyboardIsWhereTheWayToOneIsTold) {
  tabTo(u"ListScenes"_s);
  trigger("mnuCloseProject");
  EXPECT_EQ(nameOfFocused(), u"ListChapters"_s);
  expectWalk({u"ListChapters"_s, u"TabStrip2"_s});
}

TEST_F(KeyboardTest, ANoteThatItsBookHasLeftBehindKeepsTheKeyboardUntilItIsDone) {
  control<QTabWidget>("TabStrip2").setCurrentIndex(1);
  tabTo(u"ListNotes"_s);
  press(Qt::Key_Return);
  window().DisableMenus();
  EXPECT_EQ(nameOfFocused(), u"txtNoteEditor"_s);
  press(Qt::Key_Escape);
  EXPECT_EQ(nameOfFocused(), u"ListChapters"_s);
}

TEST_F(KeyboardTest, ABookIsArrangedAndOpenedWithoutAMouse) {
  tabTo(u"ListChapters"_s);
  press(Qt::Key_Down);
  EXPECT_EQ(cell("ListScenes", 0, 2), u"Departure 1"_s);
  press(Qt::Key_Up, Qt::AltModifier);
  EXPECT_EQ(cell("ListChapters", 0, 0), u"Departure"_s);
  tabTo(u"TabStrip2"_s);
  press(Qt::Key_Right);
  EXPECT_TRUE(list("ListNotes").isVisible());
  press(Qt::Key_Left);
  tabTo(u"ListScenes"_s);
  press(Qt::Key_Down);
  press(Qt::Key_PageDown, Qt::AltModifier);
  EXPECT_EQ(cell("ListScenes", 2, 2), u"Departure 2"_s) << "in the chapter behind";
  EXPECT_EQ(nameOfFocused(), u"ListScenes"_s);
  tabTo(u"TabStrip1"_s);
  press(Qt::Key_Right, {}, 2);
  tabTo(u"ListChar(1)"_s);
  press(Qt::Key_Insert);
  EXPECT_EQ(cell("ListScenes", 2, 0), u"Anna"_s);
  tabTo(u"ListScenes"_s);
  press(Qt::Key_Return);
  EXPECT_EQ(g_SceneChanges.lockedIDs(), std::vector<qint32>{4});
  openEditor().close();
}

TEST_F(KeyboardTest, ListsBringUpTheirMenusOnSmallKeyboardsToo) {
  control<QTabWidget>("TabStrip1").setCurrentIndex(2);
  for (const auto& [name, menu] : {std::pair{u"ListChapters"_s, u"mnuChapters"_s},
                                   {u"ListScenes"_s, u"mnuScene"_s},
                                   {u"ListChar(0)"_s, u"mnuCharRC"_s},
                                   {u"ListChar(1)"_s, u"mnuAllCharRC"_s}}) {
    tabTo(name);
    press(Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_EQ(popup(), menu);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
    EXPECT_EQ(nameOfFocused(), name);
  }
}
