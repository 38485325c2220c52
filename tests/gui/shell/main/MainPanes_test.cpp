// What the panes show of the model, and what the user's selections do.

#include "gui/shell/main/MainPanes.h"

#include "core/infra/cSHAREDSettings.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/editor/frmEditor.h"
#include "gui/shell/MainWindow.h"
#include "gui/shell/main/ChapterPane.h"
#include "gui/shell/main/ScenePane.h"
#include "gui/toolkit/Colours.h"
#include "gui/views/RowIcon.h"
#include "gui/views/modFillList.h"
#include "support/ModalHelper.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QTextEdit>

using namespace Qt::StringLiterals;

namespace {

quint32 colourOf(const QModelIndex& cell) {
  return Colours::fromQt(cell.data(Qt::ForegroundRole).value<QBrush>().color());
}

}  // namespace

class MainPanesTest : public ShellTest {
 protected:
  void SetUp() override {
    ShellTest::SetUp();
    startWith(smallProject());
  }

  void pressKey(const char* listName, Qt::Key key) {
    list(listName).setFocus();
    QTest::keyClick(&list(listName), key);
  }
  QString memo(const char* name) { return control<QPlainTextEdit>(name).toPlainText(); }
  qint32 selectedScene() { return window().panes().scenes().SelectedSceneID(); }
};

TEST_F(MainPanesTest, ChapterRowsCountWhatIsUsed) {
  EXPECT_EQ(row("ListChapters", 0), QStringList({u"Arrival"_s, u"5"_s, u"2"_s, u"5"_s}));
  EXPECT_EQ(row("ListChapters", 1), QStringList({u"Departure"_s, u"4"_s, u"2"_s, u"9"_s}));
  EXPECT_EQ(row("ListChapters", 2), QStringList({u"Cut scenes"_s, u"0"_s, u"1"_s, u"9"_s}));
  EXPECT_EQ(panel("Totalwords"), u"Total words: 9"_s);
  EXPECT_EQ(colourOf(item("ListChapters", 0)), 32768U);
  EXPECT_EQ(colourOf(item("ListChapters", 2)), 8421504U);
  EXPECT_EQ(colourOf(item("ListChapters", 2, 1)), 8421504U);
  EXPECT_EQ(list("ListChapters").tagAt(2), 3);
}

TEST_F(MainPanesTest, SceneRowsShowTheSevenColumns) {
  EXPECT_EQ(row("ListScenes", 0),
            QStringList({u"Zoë"_s, u"3"_s, u"Arrival 1"_s, u"Draft"_s, u"A"_s, u"RTF_00001.rtf"_s, u"13"_s}));
  g_Project->SceneByID(2)->ReactionScene = true;
  g_Project->SceneByID(2)->Status = 0;
  window().RefreshAll();
  EXPECT_EQ(row("ListScenes", 1).mid(0, 5), QStringList({u"N/A"_s, u"2"_s, u"Arrival 2"_s, QString(), u"R"_s}));
  click(list("ListChapters"), 1);
  EXPECT_EQ(colourOf(item("ListScenes", 1, 3)), 8421504U);
  EXPECT_FALSE(item("ListScenes", 0, 3).data(Qt::ForegroundRole).isValid());
}

TEST_F(MainPanesTest, AnotherChapterShowsItsFirstScene) {
  click(list("ListScenes"), 1);
  EXPECT_EQ(selectedScene(), 2);
  click(list("ListChapters"), 0);
  EXPECT_EQ(selectedScene(), 2) << "a chapter that is shown already keeps its selection";
  click(list("ListChapters"), 1);
  EXPECT_EQ(selectedScene(), 3);
  EXPECT_EQ(memo("txtChapterDesc"), u"Departure description: \nWhat happens in Departure"_s);
}

TEST_F(MainPanesTest, TheArrowKeysMoveThroughBothLists) {
  pressKey("ListScenes", Qt::Key_Down);
  EXPECT_EQ(selectedScene(), 2);
  EXPECT_EQ(control<QLineEdit>("txtSceneTitle").text(), u"Arrival 2"_s);
  pressKey("ListChapters", Qt::Key_Down);
  EXPECT_EQ(selectedScene(), 4) << "the row of the selection is kept";
  pressKey("ListChapters", Qt::Key_Down);
  EXPECT_EQ(selectedScene(), 5);
}

TEST_F(MainPanesTest, ArrowsThatNoControlWantsGoNoFurtherThanTheWindow) {
  // A bar of tabs wants the ones to the side alone.
  auto& tabs = required(control<QTabWidget>("TabStrip1").tabBar(), u"bar of tabs"_s);
  const auto isTaken = [&](Qt::Key key) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    QApplication::sendEvent(&tabs, &press);
    return press.isAccepted();
  };
  EXPECT_TRUE(isTaken(Qt::Key_Up));
  EXPECT_TRUE(isTaken(Qt::Key_Down));
  EXPECT_FALSE(isTaken(Qt::Key_F7));
}

TEST_F(MainPanesTest, ADisplayFollowsTheSelectedScene) {
  EXPECT_EQ(control<QLineEdit>("txtSceneTitle").text(), u"Arrival 1"_s);
  EXPECT_EQ(control<QTextEdit>("txtBody").toPlainText(), u"one two three"_s);
  EXPECT_EQ(memo("txtNotes"), u"Check the tide."_s);
  EXPECT_EQ(memo("txtGoal"), u"To leave, or to stay: \"100%\" & <more>?"_s);
  EXPECT_EQ(memo("txtOutcome"), u"No Outcome specified"_s);
  EXPECT_EQ(row("ListChar(1)", 0), QStringList({u"Anna"_s, u"Anna Marsh"_s}));
  EXPECT_EQ(row("ListLoc(0)", 0), QStringList({u"The pier"_s}));
  EXPECT_EQ(list("ListLoc(1)").rowCount(), 2);
  EXPECT_EQ(row("ListItems(0)", 0), QStringList({u"A lamp"_s}));
  EXPECT_EQ(modFillList::listSceneID(list("ListItems(0)")), 1);

  g_Project->SceneByID(2)->ReactionScene = true;
  g_Project->SceneByID(2)->Goal.clear();
  click(list("ListScenes"), 1);
  EXPECT_EQ(memo("txtGoal"), u"No Reaction specified"_s);
  EXPECT_EQ(memo("txtOutcome"), u"No Decision specified"_s);
  EXPECT_EQ(list("ListChar(0)").rowCount(), 0);
}

TEST_F(MainPanesTest, ARefreshKeepsTheSelectionByID) {
  click(list("ListChapters"), 1);
  click(list("ListScenes"), 1);
  const auto first = g_Project->ChapterByID(1);
  g_Project->RemoveChapterByID(1);
  g_Project->AddChapter(first);
  window().RefreshAll();
  EXPECT_EQ(window().panes().chapters().SelectedChapterID(), 2);
  EXPECT_EQ(selectedScene(), 4);
}

TEST_F(MainPanesTest, TitleAndAuthorWriteThrough) {
  auto& title = control<QLineEdit>("txtTitle");
  EXPECT_EQ(title.text(), u"A small book"_s);
  EXPECT_FALSE(window().ProjectChanged);
  title.setFocus();
  QTest::keyClicks(&title, u"Not "_s);
  EXPECT_EQ(g_Project->Title, u"Not A small book"_s);
  EXPECT_TRUE(window().ProjectChanged);
  control<QLineEdit>("txtAuthor").clear();
  EXPECT_EQ(g_Project->AuthorName, QString());
}

TEST_F(MainPanesTest, AllCharactersAreMajorsThenMinorsByTheirOrder) {
  for (const auto& [name, isMajor, order] :
       {std::tuple{u"M2"_s, true, 1}, {u"m"_s, false, 0}, {u"M1"_s, true, 0}, {u"M3"_s, true, 1}}) {
    const auto character = std::make_shared<clsCharacter>();
    character->setTitle(name);
    character->major = isMajor;
    character->SortOrder = static_cast<qint16>(order);
    g_Project->AddChar(character);
  }
  QStringList names;
  for (const auto& character : modFillList::orderedCharacters(false)) {
    names.append(character->Title());
  }
  EXPECT_EQ(names, QStringList({u"M1"_s, u"Anna"_s, u"M2"_s, u"M3"_s, u"m"_s, u"Zoë"_s, u"Пётр"_s}));
  EXPECT_EQ(modFillList::orderedCharacters(true).size(), 4U);
}

TEST_F(MainPanesTest, ADoubleClickOnATextOpensWhatItBelongsTo) {
  for (const auto& [tab, name] : {std::pair{0, "txtDesc"}, {1, "txtBody"}}) {
    control<QTabWidget>("TabStrip1").setCurrentIndex(tab);
    QTest::mouseDClick(control<QAbstractScrollArea>(name).viewport(), Qt::LeftButton);
    EXPECT_EQ(g_SceneChanges.lockedIDs(), std::vector<qint32>{1}) << name;
    openEditor().close();
  }
  const WhenModal whenUp([](QWidget& sheet) {
    EXPECT_EQ(sheet.objectName(), u"frmEditChapter"_s);
    sheet.close();
  });
  QTest::mouseDClick(control<QAbstractScrollArea>("txtChapterDesc").viewport(), Qt::LeftButton);
}
