// The storyboard's cells, titles and tables, and what a drop does to the book.

#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/planning/BoardDrop.h"
#include "core/planning/CardTitle.h"
#include "support/SampleProject.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using BoardGrid::Cell;

namespace {

QList<qint32> scenesOf(qint32 chapter) {
  const auto& ids = chapterAt(chapter)->SceneIDs();
  return {ids.begin(), ids.end()};
}

QList<qint32> castOf(qint32 scene) {
  const auto& ids = sceneAt(scene)->CharIDs();
  return {ids.begin(), ids.end()};
}

}  // namespace

TEST(BoardGrid, PlacesCardsAndFindsTheCellUnderOne) {
  for (int place = 0; place < 60; ++place) {
    for (int row = 1; row < 40; ++row) {
      EXPECT_EQ(BoardGrid::cellOf(BoardGrid::cardAt(place, row), 7), (Cell{place + 8, row}));
    }
  }
  EXPECT_EQ(BoardGrid::cellOf({-9000, -1300}, 4), (Cell{5, 0})) << "left of the first, above the first";
}

TEST(BoardGrid, RoundsTheColumnsAndCutsTheRowsThatAreSeen) {
  EXPECT_EQ(BoardGrid::visibleColumns(2.5 * 1800), 2);
  EXPECT_EQ(BoardGrid::visibleColumns(3.5 * 1800), 4);
  EXPECT_EQ(BoardGrid::lastFirstColumn(25, 9.8 * 1800), 17) << "the last card whole";
  EXPECT_EQ(BoardGrid::lastFirstRow(9, 3.1 * 1300), 7) << "its lowest card whole";
  // Nowhere a gap; at rest where there is nothing to scroll.
  EXPECT_EQ(BoardGrid::fitted(-700, 5000, 4000), -700);
  EXPECT_EQ(BoardGrid::fitted(-1300, 5000, 4000), -1000);
  EXPECT_EQ(BoardGrid::fitted(-1300, 3000, 4000), -5);
}

TEST(CardTitle, IsBrokenAtTheLetterThatIsTooMuch) {
  // Each unit 100 wide: 15 fit in one line, and in a longer title too, since 16 of them reach the card's edge.
  int measured = 0;
  const auto wide = [&measured](QStringView text) {
    ++measured;
    return static_cast<double>(text.size()) * 100;
  };
  EXPECT_EQ(CardTitle::lines(u"123456789012345"_s, 9, wide), QStringList(u"123456789012345"_s));
  EXPECT_EQ(CardTitle::lines(u"123456789012345 two"_s, 9, wide), QStringList({u"123456789012345"_s, u" two"_s}));
  EXPECT_EQ(CardTitle::lines({}, 9, wide), QStringList(QString()));
  // A letter of two units stays whole, and one that is wider than a card has a line.
  const QString ship = u"\U0001F6A2"_s;
  EXPECT_EQ(CardTitle::lines(u"12345678901234"_s + ship, 9, wide), QStringList({u"12345678901234"_s, ship}));
  EXPECT_EQ(CardTitle::lines(u"ab"_s, 9, [](QStringView) { return 5000.0; }), QStringList({u"a"_s, u"b"_s}));
  measured = 0;
  EXPECT_EQ(CardTitle::lines(QString(1'000'000, u'x'), 4, wide).size(), 4);
  EXPECT_LT(measured, 50) << "what runs off the card costs nothing";
}

class BoardTest : public ::testing::Test {
 protected:
  /// Scene 1 is narrated by the second character, the others by nobody.
  void SetUp() override {
    makeSmallProject();
    tables.fill(*g_Project);
  }

  BoardDrop::Change drop(Cell from, Cell to) {
    const auto change = BoardDrop::drop(tables, from, to);
    tables.fill(*g_Project);
    return change;
  }

  BoardTables tables;
};

TEST_F(BoardTest, HasAColumnForEachSceneAndARowForEachViewpoint) {
  EXPECT_EQ(tables.columns(), 5);
  EXPECT_EQ(tables.sceneAt(4), 4);
  EXPECT_EQ(tables.chapterAt(4), 2);
  EXPECT_EQ(tables.sceneAt(0) + tables.sceneAt(6) + tables.rowAt(6), 0);
  EXPECT_EQ(tables.rows(), 2);
  EXPECT_EQ(tables.viewpointAt(1), 2);
  EXPECT_EQ(tables.viewpointAt(2), 0);
  EXPECT_EQ(tables.rowAt(5), 2);
  EXPECT_TRUE(tables.isInStep(*g_Project));
  EXPECT_EQ(tables.columnBeside(4, -1), 1);
  EXPECT_EQ(tables.columnBeside(1, 1), 2);
  EXPECT_EQ(tables.columnBeside(3, 1), 3);

  const auto chapter = g_Project->ChapterByID(1);
  g_Project->RemoveChapterByID(1);
  EXPECT_FALSE(tables.isInStep(*g_Project));
  g_Project->AddChapter(chapter);
  EXPECT_FALSE(tables.isInStep(*g_Project)) << "the same chapters in another order";
  // A row stays where it is until its character goes.
  sceneAt(1)->RemoveCharByID(2);
  tables.fill(*g_Project);
  EXPECT_EQ(tables.rowAt(2), 2);
  g_Project->RemoveCharByID(2);
  tables.fill(*g_Project);
  EXPECT_EQ(tables.rowAt(2), 1);
}

TEST_F(BoardTest, ACardThatIsPutDownElsewhereMovesItsScene) {
  struct Case {
    const char* what;
    Cell from, to;
    QList<qint32> first, second;
    bool moved;
  };
  for (const Case& known : {Case{"its own cell", {1, 1}, {1, 1}, {1, 2}, {3, 4}, false},
                            Case{"to the right in the chapter", {1, 1}, {2, 1}, {2, 1}, {3, 4}, true},
                            Case{"to the left in the chapter", {4, 2}, {3, 2}, {1, 2}, {4, 3}, true},
                            Case{"into another chapter", {1, 1}, {4, 1}, {2}, {3, 1, 4}, true},
                            Case{"over the end of the chapter", {2, 2}, {3, 2}, {1}, {2, 3, 4}, true},
                            Case{"beyond the last", {1, 1}, {6, 1}, {1, 2}, {3, 4}, false},
                            Case{"from nowhere", {9, 1}, {1, 1}, {1, 2}, {3, 4}, false}}) {
    SetUp();
    g_SceneChanges.ResetChangedByArea(1);
    const auto change = drop(known.from, known.to);
    EXPECT_EQ(change.place, known.moved) << known.what;
    EXPECT_FALSE(change.viewpoint) << known.what;
    EXPECT_EQ(scenesOf(1), known.first) << known.what;
    EXPECT_EQ(scenesOf(2), known.second) << known.what;
    EXPECT_EQ(g_SceneChanges.changedIDs(1).size(), known.moved ? 1U : 0U) << known.what;
  }
  drop({1, 1}, {5, 1});
  EXPECT_EQ(sceneAt(1)->BelongsToChID, 3);
  // The chapters' lists say where a scene stands, whatever it says itself.
  SetUp();
  sceneAt(1)->BelongsToChID = 3;
  sceneAt(4)->BelongsToChID = 1;
  EXPECT_TRUE(drop({1, 1}, {4, 1}).place);
  EXPECT_EQ(scenesOf(1), QList<qint32>{2});
  EXPECT_EQ(scenesOf(2), (QList<qint32>{3, 1, 4}));
}

TEST_F(BoardTest, AnotherRowGivesAnotherViewpoint) {
  EXPECT_TRUE(drop({3, 2}, {3, 1}).viewpoint);
  EXPECT_EQ(castOf(3), QList<qint32>{2});
  EXPECT_TRUE(drop({1, 1}, {2, 2}).viewpoint) << "both at once";
  EXPECT_EQ(castOf(1), (QList<qint32>{0, 1})) << "nobody in the place of the former viewpoint";
  EXPECT_EQ(scenesOf(1), (QList<qint32>{2, 1}));
  for (const int row : {0, 3, 99, -1}) {
    EXPECT_FALSE(drop({3, 1}, {3, row}).viewpoint) << row;
  }
  // A scene that was moved out of the row of a character who isn't in the book can be moved back.
  sceneAt(5)->SetViewpointByID(77);
  tables.fill(*g_Project);
  EXPECT_EQ(tables.rowAt(5), 3);
  EXPECT_TRUE(drop({3, 1}, {3, 3}).viewpoint);
  EXPECT_EQ(castOf(3), QList<qint32>{77});
}
