// Rows that are dragged between the lists of the main window, and the keys that go the same road. A drag is made of the
// events that the desktop would send.

#include "gui/shell/main/RowDrags.h"

#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/shell/MainWindow.h"
#include "gui/shell/RowDrag.h"
#include "support/SampleProject.h"

#include <QTabWidget>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

using IDs = std::vector<qint32>;

IDs scenesOf(qint32 chapter) {
  const auto& ids = g_Project->ChapterByID(chapter)->SceneIDs();
  return {ids.begin(), ids.end()};
}

IDs chapters() {
  IDs ids;
  for (const auto& chapter : g_Project->Chapters) {
    ids.push_back(chapter->ID());
  }
  return ids;
}

}  // namespace

class RowDragsTest : public ShellTest {
 protected:
  /// Chapter 1 holds scenes 1, 2, 6 to 9; five chapters.
  void SetUp() override {
    ShellTest::SetUp();
    startWith(smallProject());
    for (int i = 0; i < 4; ++i) {
      const auto scene = std::make_shared<clsScene>();
      scene->Title = u"More"_s;
      g_Project->Addscene(scene);
      chapterAt(1)->Addscene(scene);
    }
    for (int i = 0; i < 2; ++i) {
      g_Project->AddChapter(std::make_shared<clsChapter>());
    }
    g_Project->SaveQN4(false);
    window().RefreshAll();
    window().ProjectChanged = false;
  }

  void showTab(int tab) { control<QTabWidget>("TabStrip1").setCurrentIndex(tab); }

  void select(ListView& list, const IDs& tags) {
    list.clearSelection();
    for (const qint32 tag : tags) {
      click(list, list.rowOfTag(tag), list.SelectedRow() < 0 ? Qt::NoModifier : Qt::ControlModifier);
    }
  }

  Qt::DropAction hover(ListView& from, ListView& to, int row) { return drag_.hover(from, to, row); }

  void drop(ListView& from, ListView& to, int row) {
    ASSERT_TRUE(drag_.drop(from, to, row));
    EXPECT_EQ(to.dropHighlight(), -1);
  }

  ListView& scenes() { return list("ListScenes"); }
  ListView& chapterList() { return list("ListChapters"); }
  /// What a new start would find.
  QByteArray stored() const { return fileBytes(g_Project->FileWithPath); }

 private:
  RowDrag drag_;
};

TEST_F(RowDragsTest, ScenesAreOrderedInsideTheirChapter) {
  struct Case {
    const char* what;
    IDs dragged;
    int onto;
    IDs order;
  };
  for (const Case& known : {Case{"one up", {7}, 1, {1, 7, 2, 6, 8, 9}},
                            {"one down", {1}, 2, {2, 6, 1, 7, 8, 9}},
                            {"to the end", {1}, 5, {2, 6, 7, 8, 9, 1}},
                            {"several up land reversed", {7, 8, 9}, 1, {1, 9, 8, 7, 2, 6}},
                            {"several down keep their order", {1, 2, 6}, 4, {7, 8, 1, 2, 6, 9}},
                            {"onto itself", {6}, 2, {1, 2, 6, 7, 8, 9}}}) {
    SCOPED_TRACE(known.what);
    StoryMoves::moveScenesTo(*chapterAt(1), {1, 2, 6, 7, 8, 9});
    window().RefreshAll();
    select(scenes(), known.dragged);
    drop(scenes(), scenes(), known.onto);
    EXPECT_EQ(scenesOf(1), known.order);
    EXPECT_EQ(IDs(scenes().rows().tags().begin(), scenes().rows().tags().end()), known.order);
    EXPECT_TRUE(scenes().SelectedTags().contains(known.dragged.front())) << "what was moved stays selected";
  }
}

TEST_F(RowDragsTest, ScenesGoToTheEndOfAnotherChapterAndNotOfTheirOwn) {
  select(scenes(), {2, 7});
  EXPECT_EQ(hover(scenes(), chapterList(), 0), Qt::IgnoreAction) << "their own";
  EXPECT_EQ(hover(scenes(), chapterList(), -1), Qt::IgnoreAction) << "no row";
  EXPECT_EQ(hover(scenes(), chapterList(), 1), Qt::MoveAction);
  EXPECT_EQ(chapterList().dropHighlight(), 1);
  const QByteArray before = stored();
  drop(scenes(), chapterList(), 1);
  EXPECT_EQ(scenesOf(1), IDs({1, 6, 8, 9}));
  EXPECT_EQ(scenesOf(2), IDs({3, 4, 2, 7}));
  EXPECT_EQ(g_Project->SceneByID(7)->BelongsToChID, 2);
  EXPECT_EQ(chapterList().SelectedTag(), 2) << "the list goes along";
  EXPECT_EQ(scenes().SelectedTag(), 7);
  EXPECT_EQ(row("ListChapters", 1).value(2), u"4"_s);
  EXPECT_NE(stored(), before);
  EXPECT_TRUE(window().ProjectChanged);
}

TEST_F(RowDragsTest, ChaptersAreOrdered) {
  struct Case {
    const char* what;
    IDs dragged;
    int onto;
    IDs order;
  };
  for (const Case& known : {Case{"one up", {3}, 0, {3, 1, 2, 4, 5}},
                            {"one down", {1}, 2, {2, 3, 1, 4, 5}},
                            {"several up keep their order", {3, 4}, 0, {3, 4, 1, 2, 5}},
                            {"several to the end keep it too", {1, 2}, 4, {3, 4, 5, 1, 2}},
                            {"onto itself", {2}, 1, {1, 2, 3, 4, 5}}}) {
    SCOPED_TRACE(known.what);
    for (const qint32 id : {1, 2, 3, 4, 5}) {
      const auto chapter = g_Project->ChapterByID(id);
      g_Project->RemoveChapterByID(id);
      g_Project->AddChapter(chapter);
    }
    window().RefreshAll();
    select(chapterList(), known.dragged);
    drop(chapterList(), chapterList(), known.onto);
    EXPECT_EQ(chapters(), known.order);
    EXPECT_EQ(IDs(chapterList().rows().tags().begin(), chapterList().rows().tags().end()), known.order);
    EXPECT_TRUE(known.dragged.front() == chapterList().SelectedTag() ||
                known.dragged.back() == chapterList().SelectedTag());
  }
  select(chapterList(), {2});
  EXPECT_EQ(hover(chapterList(), scenes(), 0), Qt::IgnoreAction);
}

TEST_F(RowDragsTest, PeoplePlacesAndThingsGoIntoTheSelectedScenesAndOut) {
  select(scenes(), {6, 7});
  showTab(2);
  click(list("ListChar(1)"), list("ListChar(1)").rowOfTag(3));
  EXPECT_EQ(hover(list("ListChar(1)"), scenes(), 0), Qt::CopyAction);
  drop(list("ListChar(1)"), scenes(), 0);
  for (const qint32 id : {6, 7}) {
    EXPECT_EQ(g_Project->SceneByID(id)->ViewPointID(), 3) << "the first one narrates";
  }
  EXPECT_EQ(row("ListScenes", 2).value(0), g_Project->CharByID(3)->Title());
  EXPECT_EQ(list("ListChar(0)").rows().tags(), QList<qint32>{3});
  EXPECT_EQ(hover(list("ListChar(1)"), list("ListLoc(0)"), -1), Qt::IgnoreAction) << "its own kind only";

  list("ListChar(0)").SelectRow(0);
  drop(list("ListChar(0)"), list("ListChar(0)"), 0);
  EXPECT_EQ(g_Project->SceneByID(7)->CharCount(), 1) << "it is there already";
  drop(list("ListChar(0)"), list("ListChar(1)"), -1);
  EXPECT_EQ(g_Project->SceneByID(7)->CharCount(), 0);
  EXPECT_EQ(row("ListScenes", 3).value(0), u"N/A"_s);
  for (const auto& [tab, kind] : {std::pair{3, "ListLoc"}, {4, "ListItems"}}) {
    showTab(tab);
    ListView& inScene = list((QByteArray(kind) + "(0)").constData());
    ListView& all = list((QByteArray(kind) + "(1)").constData());
    all.SelectRow(0);
    drop(all, inScene, -1);
    EXPECT_EQ(inScene.rows().tags(), QList<qint32>{1}) << kind;
    inScene.SelectRow(0);
    drop(inScene, all, -1);
    EXPECT_EQ(inScene.rowCount(), 0) << kind;
  }
}

TEST_F(RowDragsTest, WhatComesFromElsewhereIsRefused) {
  select(scenes(), {6});
  ASSERT_EQ(hover(scenes(), scenes(), 0), Qt::MoveAction);
  QMimeData text;
  text.setText(u"2"_s);
  QDragEnterEvent enter(RowDrag::placeIn(scenes(), 0), Qt::MoveAction, &text, Qt::LeftButton, {});
  QCoreApplication::sendEvent(scenes().viewport(), &enter);
  EXPECT_FALSE(enter.isAccepted());
  QDropEvent dropped(QPointF(RowDrag::placeIn(scenes(), 0)), Qt::MoveAction, &text, Qt::LeftButton, {});
  QCoreApplication::sendEvent(scenes().viewport(), &dropped);
  EXPECT_FALSE(dropped.isAccepted());
  EXPECT_EQ(scenesOf(1), IDs({1, 2, 6, 7, 8, 9}));
  EXPECT_FALSE(window().ProjectChanged);
}

// A scene that has gone while it was dragged is none to put into a chapter.
TEST_F(RowDragsTest, WhatHasGoneMeanwhileStaysAway) {
  select(scenes(), {6, 7});
  ASSERT_EQ(hover(scenes(), chapterList(), 1), Qt::MoveAction);
  chapterAt(1)->RemoveSceneByID(6);
  g_Project->RemoveSceneByID(6);
  drop(scenes(), chapterList(), 1);
  EXPECT_EQ(scenesOf(2), IDs({3, 4, 7}));
  EXPECT_EQ(g_Project->SceneCount(), 8);
}

TEST_F(RowDragsTest, KeysGoTheRoadOfADropOfOneRow) {
  const auto press = [](ListView& view, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::AltModifier) {
    view.setFocus();
    QTest::keyClick(&view, key, modifiers);
  };
  select(scenes(), {2});
  press(scenes(), Qt::Key_Down);
  press(scenes(), Qt::Key_Down);
  EXPECT_EQ(scenesOf(1), IDs({1, 6, 7, 2, 8, 9}));
  press(scenes(), Qt::Key_Up);
  EXPECT_EQ(scenesOf(1), IDs({1, 6, 2, 7, 8, 9}));
  EXPECT_EQ(scenes().SelectedTags(), QList<qint32>{2});
  EXPECT_TRUE(scenes().hasFocus());
  press(scenes(), Qt::Key_PageDown);
  EXPECT_EQ(scenesOf(2), IDs({3, 4, 2}));
  EXPECT_EQ(chapterList().SelectedTag(), 2);
  trigger("mnuMoveSceneToPrevious");
  EXPECT_EQ(scenesOf(1), IDs({1, 6, 7, 8, 9, 2}));

  select(chapterList(), {1});
  press(chapterList(), Qt::Key_Up);
  EXPECT_EQ(chapters(), IDs({1, 2, 3, 4, 5})) << "there is nothing above";
  press(chapterList(), Qt::Key_Down);
  EXPECT_EQ(chapters(), IDs({2, 1, 3, 4, 5}));
  select(chapterList(), {1, 3});
  press(chapterList(), Qt::Key_Down);
  EXPECT_EQ(chapters(), IDs({2, 1, 3, 4, 5}));
  EXPECT_EQ(panel("numberfiles"), u"Select one chapter to move it up or down."_s);

  click(chapterList(), chapterList().rowOfTag(2));
  showTab(3);
  list("ListLoc(1)").SelectRow(1);
  press(list("ListLoc(1)"), Qt::Key_Insert, Qt::NoModifier);
  EXPECT_EQ(list("ListLoc(0)").rows().tags(), QList<qint32>{2});
  list("ListLoc(0)").SelectRow(0);
  press(list("ListLoc(0)"), Qt::Key_Delete, Qt::NoModifier);
  EXPECT_EQ(g_Project->SceneByID(3)->LocationCount(), 0);
}
