// The menus as the window shows them: what isn't built, what goes wrong in a command, what a key says that goes
// nowhere.

#include "gui/shell/main/MainMenuBar.h"

#include "core/infra/RuntimeError.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "gui/editor/frmEditor.h"
#include "gui/shell/MainWindow.h"
#include "support/Required.h"
#include "support/WaitFor.h"

#include <QAction>
#include <QApplication>
#include <QHelpEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QTest>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace {

class Failing : public CommandGroup {
 public:
  void bind(MenuBindings& menu) override {
    menu.bind("mnuStoryboard", [] { throw RuntimeError(RuntimeError::DiskFull); });
  }
};

class Finding : public CommandGroup {
 public:
  void bind(MenuBindings& menu) override {
    menu.bind("mnuFindLy", [] {});
  }
};

}  // namespace

using MainMenuBarTest = ShellTest;

TEST_F(MainMenuBarTest, WhatIsNotBuiltIsDisabledInEveryStateAndSaysSo) {
  QMenuBar bar;
  Finding group;
  MainMenuBar menus(bar, false);
  menus.addCommands(group);
  const QString notBuilt = u"not in this version yet"_s;
  for (const auto& state : {menusWithProject(), menusWithoutProject()}) {
    menus.apply(state, u"for a reason"_s);
    EXPECT_FALSE(menus.action(u"mnuChart"_s)->isEnabled());
    EXPECT_EQ(menus.action(u"mnuChart"_s)->toolTip(), notBuilt);
    EXPECT_NE(menus.action(u"mnuFindLy"_s)->toolTip(), notBuilt);
  }
  startWith(smallProject());
  EXPECT_TRUE(isEnabled("mnuSaveProj"));
  window().DisableMenus();
  EXPECT_FALSE(isEnabled("mnuSaveProj"));
  EXPECT_TRUE(isEnabled("mnuLoadProj"));
}

TEST_F(MainMenuBarTest, AGreyMenuOfTheBarTellsWhyToMouseAndKey) {
  startWith(smallProject());
  QMenuBar& bar = *window().menuBar();
  const auto hover = [&](const char* menu) {
    QTest::mouseMove(&bar, bar.actionGeometry(control<QMenu>(menu).menuAction()).center());
  };
  const auto pressKeyOf = [&](const char* menu) {
    ASSERT_TRUE(waitUntilActive(window()));
    // A menu that was up a moment ago may count as the active window still.
    ASSERT_TRUE(soon([&] { return QApplication::activeWindow() == &window(); }));
    const QString caption = control<QMenu>(menu).title();
    QTest::keyClick(&list("ListScenes"), caption.at(caption.indexOf(u'&') + 1).toLatin1(), Qt::AltModifier);
  };
  const auto tipOf = [&](const char* menu) {
    const QPoint place = bar.actionGeometry(control<QMenu>(menu).menuAction()).center();
    QHelpEvent help(QEvent::ToolTip, place, bar.mapToGlobal(place));
    qApp->notify(&bar, &help);
    return QToolTip::text();
  };
  window().EditSelectedScene();
  ASSERT_NE(editor(), nullptr);
  const QString why = u"please close all editor windows first"_s;
  hover("mnuProject");
  EXPECT_EQ(panel("numberfiles"), why);
  EXPECT_EQ(window().statusBar()->currentMessage(), QString()) << "it would hide the panels";
  EXPECT_EQ(tipOf("mnuHelp"), QString());
  EXPECT_TRUE(tipOf("mnuFile").contains(why));
  hover("mnuHelp");
  EXPECT_EQ(panel("numberfiles"), QString());
  hover("mnuFile");
  QEvent leave(QEvent::Leave);
  qApp->notify(&bar, &leave);
  EXPECT_EQ(panel("numberfiles"), QString());
  pressKeyOf("mnuProject");
  EXPECT_EQ(panel("numberfiles"), u"Project: "_s + why);
  childOf<QAction>(openEditor(), u"mnuExit"_s).trigger();
  window().followEditing();
  pressKeyOf("mnuProject");
  EXPECT_TRUE(control<QMenu>("mnuProject").isVisible());
  control<QMenu>("mnuProject").close();
  trigger("mnuCloseProject");
  pressKeyOf("mnuScene");
  EXPECT_EQ(panel("numberfiles"), u"Scene: no project is open"_s);
}

TEST_F(MainMenuBarTest, AKeyThatGoesNowhereSaysWhy) {
  startWith(smallProject());
  auto& rows = list("ListScenes");
  rows.setFocus();
  QTest::keyClick(&rows, Qt::Key_F1);
  EXPECT_EQ(panel("numberfiles"), QString()) << "no manual is installed, and its entry isn't offered";
  window().EditSelectedScene();
  ASSERT_NE(editor(), nullptr);
  ASSERT_TRUE(waitUntilActive(window()));
  QTest::keyClick(&rows, Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(panel("numberfiles"), u"Save: please close all editor windows first"_s);
  childOf<QAction>(openEditor(), u"mnuExit"_s).trigger();
  EXPECT_TRUE(soon([this] { return panel("numberfiles").isEmpty(); })) << "the reason has gone";
  trigger("mnuCloseProject");
  window().setFocus();
  QTest::keyClick(&window(), Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(panel("numberfiles"), u"Save: no project is open"_s);
}

TEST_F(MainMenuBarTest, AFailingCommandIsLoggedUnderItsOwnName) {
  QMenuBar bar;
  Failing group;
  MainMenuBar menus(bar, false);
  menus.addCommands(group);
  menus.apply({{u"mnuStoryboard"_s, true}});
  ASSERT_TRUE(menus.action(u"mnuStoryboard"_s)->isEnabled());
  menus.action(u"mnuStoryboard"_s)->trigger();
  const QString logged = Logging().CurrentAction();
  EXPECT_TRUE(logged.contains(u"mnuStoryboard_Click"_s)) << logged;
}

TEST_F(MainMenuBarTest, ABookThatWasJustOpenedHasNoChanges) {
  const QString other = smallProject(u"Other"_s);
  startWith(smallProject());
  window().ProjectChanged = true;
  window().LoadProject(other, false);
  EXPECT_FALSE(window().ProjectChanged);
  EXPECT_FALSE(window().isWindowModified());
}

TEST_F(MainMenuBarTest, TheTitleBarNamesTheBookAndWhetherItIsSaved) {
  startWith(smallProject());
  const QString program = u"Quillane 4 by Brackenlight Software"_s;
  EXPECT_EQ(window().windowTitle(), g_Project->Title + u"[*] \u2013 "_s + program);
  EXPECT_FALSE(window().isWindowModified());
  control<QLineEdit>("txtTitle").setText(u"Odd [*] title"_s);
  EXPECT_EQ(window().windowTitle(), u"Odd [*][*] title[*] \u2013 "_s + program);
  EXPECT_TRUE(window().isWindowModified());
  trigger("mnuSaveProj");
  EXPECT_FALSE(window().isWindowModified());
  window().EditSelectedScene();
  ASSERT_NE(editor(), nullptr);
  childOf<QAction>(openEditor(), u"mnuSaveAndExit"_s).trigger();
  EXPECT_TRUE(soon([this] { return window().isWindowModified(); })) << "what an editor saved stands in no project file";
  trigger("mnuCloseProject");
  EXPECT_EQ(window().windowTitle(), program);
  EXPECT_FALSE(window().isWindowModified());
}
