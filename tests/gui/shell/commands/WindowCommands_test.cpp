// The windows that stay up beside the main one: the list of all scenes, and what is locked.

#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/editor/frmEditor.h"
#include "gui/shell/MainWindow.h"
#include "gui/shell/main/MainMenuBar.h"
#include "gui/shell/windows/frmSceneList.h"
#include "support/SampleProject.h"
#include "support/WaitFor.h"

#include <QAction>
#include <QComboBox>
#include <QDialog>
#include <QHeaderView>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

enum Column { kChapter, kStatus, kViewpoint = 7, kDescription = 8 };

class SceneListTest : public ShellTest {
 protected:
  void SetUp() override {
    ShellTest::SetUp();
    startWith(smallProject());
    openList();
  }

  frmSceneList* found() { return window().findChild<frmSceneList*>(); }
  frmSceneList& form() { return required(found(), u"scene list"_s); }
  ListView& scenes() { return childOf<ListView>(form(), u"ListView1"_s); }
  QString at(int row, int column) { return scenes().text(row, column); }
  template <class Control>
  Control& part(const char* name) {
    return childOf<Control>(form(), QString::fromLatin1(name));
  }
  void openList() {
    trigger("mnuListView");
    EXPECT_TRUE(waitUntilActive(form()));
    part<QTimer>("Timer1").setInterval(0);
  }
  void choose(const QString& status) {
    part<QComboBox>("cmbStatus").setCurrentText(status);
    part<QPushButton>("cmdChangeSelected").click();
  }
};

}  // namespace

TEST_F(SceneListTest, HasARowForEachSceneOfAChapterInTheOrderOfTheStory) {
  EXPECT_EQ(scenes().rowCount(), 5);
  QStringList first;
  for (int column = 0; column < scenes().model()->columnCount(); ++column) {
    first += at(0, column);
  }
  EXPECT_EQ(first, QStringList({u"Arrival"_s, u"Draft"_s, u"A"_s, u"3"_s, u"0"_s, u"7"_s, u"0"_s, u"Zoë"_s,
                                u"Arrival 1"_s, u"0"_s, u"0"_s, u"45"_s}));
  EXPECT_EQ(at(4, kChapter), u"Cut scenes"_s);
  const auto colour = [&](int row) {
    return scenes().model()->index(row, kDescription).data(Qt::ForegroundRole).isValid();
  };
  EXPECT_TRUE(colour(3)) << "the unused one";
  EXPECT_FALSE(colour(0));
}

TEST_F(SceneListTest, KeepsInStepWithTheModelARowAtATime) {
  g_Project->SceneByID(2)->Title = u"Landfall"_s;
  g_Project->SceneByID(2)->Save();
  ASSERT_TRUE(soon([&] { return at(1, kDescription) == u"Landfall"_s; }));
  EXPECT_TRUE(soon([] { return !g_SceneChanges.HasChanged(2, ChangeArea::SceneList); }));
  g_Project->SceneByID(2)->Title.clear();
  scenes().updateRow(1);
  EXPECT_EQ(at(1, kDescription), u"Untitled scene"_s);

  const auto character = g_Project->CharByID(2);
  sceneAt(5)->AddCharByID(2);
  scenes().updateRow(4);
  character->setTitle(u"Zora"_s);
  g_CharChanges.MarkUpdated(2);
  ASSERT_TRUE(soon([&] { return at(0, kViewpoint) == u"Zora"_s; }));
  EXPECT_EQ(at(4, kViewpoint), u"Zora"_s);
  EXPECT_TRUE(g_CharChanges.HasChanged(2, ChangeArea::Storyboard)) << "the flag of another window";
}

TEST_F(SceneListTest, TakesUpWhatBecomesOfScenesAndChapters) {
  scenes().SelectTag(2);
  const auto added = std::make_shared<clsScene>();
  added->Title = u"Split off"_s;
  chapterAt(1)->Addscene(added);
  ASSERT_TRUE(soon([&] { return scenes().rowCount() == 6; }));
  EXPECT_EQ(at(2, kDescription), u"Split off"_s);
  EXPECT_EQ(scenes().SelectedTags(), QList<qint32>{2});
  chapterAt(1)->Title = u"Landing"_s;
  ASSERT_TRUE(soon([&] { return at(0, kChapter) == u"Landing"_s; }));
  // A row whose scene has gone since opens nothing.
  part<QTimer>("Timer1").stop();
  g_Project->RemoveSceneByID(2);
  scenes().viewport()->grab();
  doubleClick(scenes(), 1);
  EXPECT_EQ(editor(), nullptr);
  window().RefreshAll();
  EXPECT_EQ(scenes().rowOfTag(2), -1);
  EXPECT_EQ(scenes().rowCount(), 5);
  g_Project->RemoveSceneByID(1);
  Q_EMIT form().MovedScenes();
  EXPECT_EQ(list("ListScenes").rowCount(), 1) << "the main window follows too";
}

TEST_F(SceneListTest, OpensASceneByDoubleClickAndByEnter) {
  doubleClick(scenes(), 3);
  ASSERT_NE(editor(), nullptr);
  EXPECT_TRUE(sceneAt(4)->EditingScene());
  EXPECT_FALSE(isEnabled("mnuProject")) << "the main window knows of it at once";
  scenes().SelectTag(1);
  scenes().setFocus();
  QTest::keyClick(&scenes(), Qt::Key_Return);
  EXPECT_TRUE(sceneAt(1)->EditingScene());
}

TEST_F(SceneListTest, GivesTheSelectedScenesAStatusButThoseInAnEditor) {
  auto& change = part<QPushButton>("cmdChangeSelected");
  EXPECT_EQ(part<QComboBox>("cmbStatus").count(), g_StatusNames.size() - 1);
  click(scenes(), 0);
  EXPECT_FALSE(change.isEnabled()) << "no status is chosen";
  click(scenes(), 3, Qt::ControlModifier);
  choose(u"2nd Edit"_s);
  EXPECT_EQ(sceneAt(1)->Status * 10 + sceneAt(4)->Status, 44);
  EXPECT_EQ(sceneAt(2)->Status, 2);
  EXPECT_EQ(at(0, kStatus), u"2nd Edit"_s);
  EXPECT_EQ(scenes().SelectedTags(), (QList<qint32>{1, 4}));
  EXPECT_TRUE(window().ProjectChanged);
  EXPECT_FALSE(window().isWindowModified()) << "it is saved at once";
  EXPECT_TRUE(soon([&] { return cell("ListScenes", 0, 3) == u"2nd Edit"_s; }));
  sceneAt(1)->Edit();
  toolkit.expectBox(u"One or more scenes could not be updated, since they're being edited"_s);
  choose(u"Outline"_s);
  EXPECT_EQ(sceneAt(1)->Status * 10 + sceneAt(4)->Status, 41);
  scenes().clearSelection();
  EXPECT_FALSE(change.isEnabled());
}

TEST_F(SceneListTest, MayBeClosedWhileASaveOfItsChangesAsks) {
  sceneAt(1)->setTextRTF(simpleRtf("mine"));
  writeFile(sceneAt(1)->RTFFileWithPath(), simpleRtf("another program's"));
  scenes().SelectTag(1);
  toolkit.expectChoice(u"Another program has changed"_s, u"Keep mine"_s);
  toolkit.onChoice = [this] { form().reject(); };
  choose(u"2nd Edit"_s);
  EXPECT_EQ(sceneAt(1)->Status, 4);
  EXPECT_FALSE(window().isWindowModified());
}

TEST_F(SceneListTest, TheEntryShowsAndHidesItAndWhoClosesItFindsItAgainAsItWas) {
  const auto isChecked = [this] {
    Q_EMIT window().menus().menu(u"mnuScene"_s)->aboutToShow();
    return control<QAction>("mnuListView").isChecked();
  };
  EXPECT_TRUE(isChecked());
  trigger("mnuListView");
  EXPECT_FALSE(form().isVisible() || isChecked());
  chapterAt(1)->Title = u"Landing"_s;
  trigger("mnuListView");
  EXPECT_TRUE(form().isVisible());
  EXPECT_EQ(at(0, kChapter), u"Landing"_s);
  form().resize(777, 333);
  form().move(55, 66);
  scenes().header()->resizeSection(kStatus, 123);
  const QPointer<frmSceneList> closed = &form();
  ASSERT_TRUE(waitUntilActive(form()));
  QTest::keyClick(&scenes(), Qt::Key_Escape);
  EXPECT_TRUE(soon([&] { return closed.isNull(); }));
  openList();
  EXPECT_EQ(form().pos(), QPoint(55, 66));
  EXPECT_EQ(form().size(), QSize(777, 333));
  EXPECT_EQ(scenes().columnWidth(kStatus), 123);
}

TEST_F(SceneListTest, ShowsTheBookThatIsOpen) {
  const QString other = smallProject(u"Other"_s);
  startWith(smallProject(u"First"_s));
  openList();
  scenes().SelectTag(3);
  toolkit.onYield = [this] { EXPECT_EQ(scenes().rowCount(), 0) << "while the other book is read"; };
  window().LoadProject(other, true);
  EXPECT_FALSE(toolkit.onYield);
  EXPECT_EQ(scenes().rowCount(), 5);
  EXPECT_EQ(scenes().SelectedTags(), QList<qint32>()) << "another book's scene has this number now";
  trigger("mnuCloseProject");
  EXPECT_EQ(scenes().rowCount(), 0);
  EXPECT_TRUE(form().isVisible());
  EXPECT_FALSE(isEnabled("mnuListView"));
}

TEST_F(SceneListTest, TheDebugWindowListsWhatIsLocked) {
  sceneAt(2)->Edit();
  trigger("mnuShowDebug");
  auto& debug = childOf<QDialog>(window(), u"frmDebug"_s);
  auto& locked = childOf<QPlainTextEdit>(debug, u"txtScenes"_s);
  EXPECT_EQ(locked.toPlainText(), u"2\tArrival 2"_s);
  g_CharChanges.LockRec(1);
  childOf<QTimer>(debug, u"Timer1"_s).setInterval(0);
  EXPECT_TRUE(soon([&] { return childOf<QPlainTextEdit>(debug, u"txtChars"_s).toPlainText() == u"1\tAnna"_s; }));
}
