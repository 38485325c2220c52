// The window polls the change tables: what changes in the model shows within a scan.

#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsItem.h"
#include "core/model/clsLocation.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/editor/frmEditor.h"
#include "gui/shell/MainWindow.h"
#include "gui/shell/main/MainPanes.h"
#include "gui/shell/main/ScenePane.h"
#include "support/SampleProject.h"
#include "support/WaitFor.h"

#include <QAction>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

class ChangeScanTest : public ShellTest {
 protected:
  void SetUp() override {
    ShellTest::SetUp();
    startWith(smallProject());
  }
};

TEST_F(ChangeScanTest, ASavedSceneShowsInItsRowItsChapterAndTheTotal) {
  const auto scene = g_Project->SceneByID(1);
  scene->Title = u"Landfall"_s;
  scene->setTextRTF(simpleRtf("one two three four five six"));
  scene->Save();
  ASSERT_TRUE(soon([&] { return panel("Totalwords") == u"Total words: 12"_s; }));
  EXPECT_EQ(row("ListScenes", 0).mid(1, 2), QStringList({u"6"_s, u"Landfall"_s}));
  EXPECT_EQ(row("ListChapters", 0), QStringList({u"Arrival"_s, u"8"_s, u"2"_s, u"8"_s}));
  EXPECT_EQ(cell("ListChapters", 1, 3), u"12"_s);
  EXPECT_EQ(control<QLineEdit>("txtSceneTitle").text(), u"Landfall"_s) << "the selected scene's display";
  EXPECT_FALSE(g_SceneChanges.HasChanged(1, 1));
  EXPECT_TRUE(g_SceneChanges.HasChanged(1, 2)) << "the flag of another window";
  EXPECT_TRUE(control<QTimer>("TimerScanScenes").isActive());
}

TEST_F(ChangeScanTest, AnotherScenesChangeLeavesTheDisplayAlone) {
  control<QLineEdit>("txtSceneTitle").setText(u"untouched"_s);
  g_Project->SceneByID(2)->Title = u"Renamed"_s;
  g_Project->SceneByID(2)->Save();
  ASSERT_TRUE(soon([&] { return cell("ListScenes", 1, 2) == u"Renamed"_s; }));
  EXPECT_EQ(control<QLineEdit>("txtSceneTitle").text(), u"untouched"_s);
}

TEST_F(ChangeScanTest, ASceneThatWasAddedToTheChapterComesIn) {
  auto added = std::make_shared<clsScene>();
  added->Title = u"Split off"_s;
  added->setTextRTF(simpleRtf("a b c d"));
  g_Project->ChapterByID(1)->Addscene(added);
  g_Project->SceneByID(1)->Save();
  ASSERT_TRUE(soon([&] { return list("ListScenes").rowCount() == 3; }));
  EXPECT_EQ(panel("Totalwords"), u"Total words: 13"_s);
  EXPECT_EQ(window().panes().scenes().SelectedSceneID(), 1);
}

TEST_F(ChangeScanTest, ASceneThatComesWhereAnotherGoesHasItsRow) {
  const auto moved = g_Project->SceneByID(3);
  g_Project->ChapterByID(2)->RemoveSceneByID(3);
  g_Project->ChapterByID(1)->RemoveSceneByID(2);
  g_Project->ChapterByID(1)->Addscene(moved);
  g_Project->SceneByID(1)->Save();
  EXPECT_TRUE(soon([&] { return list("ListScenes").rows().tags() == QList<qint32>{1, 3}; }));
}

TEST_F(ChangeScanTest, AnEditedLocationOrItemShowsAmongThoseOfTheScene) {
  EXPECT_EQ(cell("ListLoc(0)", 0, 0) + cell("ListItems(1)", 0, 0), u"The pierA lamp"_s);
  g_Project->LocationByID(1)->Title = u"The quay"_s;
  g_LocationChanges.MarkUpdated(1);
  EXPECT_TRUE(soon([&] { return cell("ListLoc(0)", 0, 0) == u"The quay"_s; }));
  g_Project->ItemByID(1)->Title = u"A lantern"_s;
  g_ItemChanges.MarkUpdated(1);
  EXPECT_TRUE(soon([&] { return cell("ListItems(1)", 0, 0) == u"A lantern"_s; }));
}

TEST_F(ChangeScanTest, EveryRowThatARenamedCharacterNarratesIsWrittenAnew) {
  for (const qint32 id : {1, 2}) {
    g_Project->SceneByID(id)->SetViewpointByID(3);
  }
  ASSERT_TRUE(soon([&] { return cell("ListScenes", 1, 0) == g_Project->CharByID(3)->Title(); }));
  g_Project->CharByID(3)->setTitle(u"The Captain"_s);
  EXPECT_TRUE(soon([&] { return cell("ListScenes", 0, 0) == u"The Captain"_s; }));
  EXPECT_EQ(cell("ListScenes", 1, 0), u"The Captain"_s);
}

TEST_F(ChangeScanTest, ASceneOfAnotherChapterIsCountedToo) {
  g_Project->SceneByID(3)->setTextRTF(simpleRtf("one two three four five six seven"));
  g_Project->SceneByID(3)->Save();
  EXPECT_TRUE(soon([&] { return panel("Totalwords") == u"Total words: 12"_s; }));
  EXPECT_EQ(cell("ListChapters", 1, 1), u"7"_s);
}

TEST_F(ChangeScanTest, AnOpenEditorClosesTheProjectMenuUntilItIsClosed) {
  QTest::keyClick(&list("ListScenes"), Qt::Key_Return);
  ASSERT_NE(editor(), nullptr);
  EXPECT_TRUE(window().Editing());
  EXPECT_FALSE(isEnabled("mnuProject"));
  EXPECT_FALSE(isEnabled("mnuFile"));
  EXPECT_TRUE(isEnabled("mnuWindow"));
  // What the menu forbids no key allows.
  ASSERT_TRUE(waitUntilActive(window()));
  QTest::keyClick(&window(), Qt::Key_O, Qt::ControlModifier);
  QTest::keyClick(&window(), Qt::Key_Q, Qt::ControlModifier);
  EXPECT_EQ(ended, 0);
  // Seen also from another chapter, where no row changes.
  click(list("ListChapters"), 1);
  openEditor().close();
  EXPECT_TRUE(soon([&] { return isEnabled("mnuProject") && isEnabled("mnuFile"); }));
}

TEST_F(ChangeScanTest, TheUpdateCheckWaitsUntilNoSceneIsOpen) {
  auto& timer = control<QTimer>("Timer3");
  timer.setInterval(1);
  g_SceneChanges.LockRec(1);
  const QSignalSpy ticks(&timer, &QTimer::timeout);
  ASSERT_TRUE(soon([&] { return ticks.count() >= 3; }));
  EXPECT_TRUE(timer.isActive());
  g_SceneChanges.UnLockRec(1);
  EXPECT_TRUE(soon([&] { return !timer.isActive(); }));
}
