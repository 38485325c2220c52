// The window of characters, locations and items: what it lists, in which order, and what may be done there.

#include "gui/sheets/frmList.h"

#include "core/model/Globals.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsItem.h"
#include "core/model/clsLocation.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/sheets/SheetTest.h"
#include "gui/views/ListView.h"
#include "support/PrintedPages.h"
#include "support/SquareLetters.h"

#include <QAction>
#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

using IDs = QList<qint32>;

std::vector<qint16> places(const IDs& characters) {
  std::vector<qint16> found;
  for (const qint32 id : characters) {
    found.push_back(g_Project->CharByID(id)->SortOrder);
  }
  return found;
}

}  // namespace

/// Anna (1) is a major character, Zoë (2) and Пётр (3) are minor ones; Zoë narrates the first scene.
class frmListTest : public SheetTest {
 protected:
  void show(int type, bool chooser = true) {
    form_ = std::make_unique<frmList>();
    form_->SetupFor(type, chooser);
    form_->show();
    ASSERT_TRUE(waitUntilActive(*form_));
  }
  void TearDown() override {
    form_.reset();
    SheetTest::TearDown();
  }

  frmList& form() { return required(form_, u"list window"_s); }
  ListView& list() { return childOf<ListView>(form(), u"ListItems"_s); }
  QPushButton& button(const char* name) { return childOf<QPushButton>(form(), QString::fromLatin1(name)); }
  QAction& move(const char* name) { return childOf<QAction>(form(), QString::fromLatin1(name)); }
  IDs rows() { return list().rows().tags(); }
  void select(qint32 id) { list().SelectRow(list().rowOfTag(id)); }
  void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(&list(), key, modifiers); }
  void onlyMajor(bool on) { childOf<QCheckBox>(form(), u"chkOnlyMajor"_s).setChecked(on); }
  /// A new entity of this name, through its sheet.
  void addNew(const QString& name) {
    during(
        [this] {
          QTest::keyClick(list().isEnabled() ? &list() : form().focusWidget(), Qt::Key_Insert);
          return true;
        },
        [&](QDialog& sheet) {
          QTest::keyClicks(sheet.focusWidget(), name);
          QTest::keyClick(sheet.focusWidget(), Qt::Key_Return);
        });
  }

  std::unique_ptr<frmList> form_;
};

TEST_F(frmListTest, TheChooserTurnsToTheOtherKinds) {
  show(kListCharacters);
  EXPECT_EQ(list().text(0, 1), u"Anna Marsh"_s);
  for (const auto& [chooser, caption, listed] : {std::tuple{"cmdLoc", u"Locations"_s, IDs{1, 2}},
                                                 {"cmdItems", u"Items"_s, IDs{1}},
                                                 {"cmdChar", u"Characters"_s, IDs{1, 2, 3}}}) {
    button(chooser).click();
    EXPECT_EQ(form().windowTitle(), caption);
    EXPECT_EQ(rows(), listed);
    EXPECT_EQ(list().SelectedRow(), 0);
  }
}

TEST_F(frmListTest, CharactersMoveAmongTheirOwnKindAlone) {
  g_Project->CharByID(3)->SortOrder = 100;
  show(kListCharacters);
  EXPECT_EQ(places({1, 2, 3}), (std::vector<qint16>{1, 2, 3})) << "dense after each fill";
  select(3);
  press(Qt::Key_Up, Qt::AltModifier);
  EXPECT_EQ(rows(), IDs({1, 3, 2}));
  EXPECT_EQ(form().selectedIDs(), IDs{3});
  toolkit.expectBox(u"You can't move Minor characters above Major ones."_s);
  press(Qt::Key_Up, Qt::AltModifier);
  select(1);
  toolkit.expectBox(u"You can't move Major characters below Minor ones."_s);
  press(Qt::Key_Down, Qt::AltModifier);
  press(Qt::Key_Up, Qt::AltModifier);
  EXPECT_EQ(rows(), IDs({1, 3, 2}));
  EXPECT_EQ(places({1, 3, 2}), (std::vector<qint16>{1, 2, 3}));
  g_Project->CharByID(2)->major = true;
  onlyMajor(true);
  EXPECT_EQ(rows(), IDs({1, 2}));
  EXPECT_EQ(places({1, 2, 3}), (std::vector<qint16>{1, 2, 2})) << "a minor one keeps its place";
  move("mnuMoveDown").trigger();
  EXPECT_EQ(rows(), IDs({2, 1}));
  onlyMajor(false);
  EXPECT_EQ(rows(), IDs({2, 1, 3}));
}

TEST_F(frmListTest, AMovedLocationStandsThereInTheBookAndInTheNextOne) {
  show(kListLocations);
  select(2);
  move("mnuMoveUp").trigger();
  EXPECT_EQ(rows(), IDs({2, 1}));
  form().reject();
  EXPECT_TRUE(form().Cancelled) << "and it is moved all the same";
  g_Project->FileWithPath = folder.path(u"Small.qn4"_s);
  ASSERT_TRUE(g_Project->SaveQN4(false));
  ASSERT_TRUE(g_Project->Load(folder.path(u"Small.qn4"_s), false));
  EXPECT_EQ(g_Project->LocationByID(2)->SortOrder, 0);
  show(kListLocations);
  EXPECT_EQ(rows(), IDs({2, 1}));
}

TEST_F(frmListTest, WhoNarratesStaysAndWhoIsDeletedLeavesTheScenes) {
  show(kListCharacters);
  select(2);
  toolkit.expectBox(
      u"You can't delete viewpoint characters. First change the viewpoint character for the scenes in "
      "question, then delete the character."_s);
  button("cmdDel").click();
  sceneAt(1)->ChangeViewpointByID(1);
  toolkit.expectBox(u"Are you sure you want to delete Zoë"_s, Answer::No);
  button("cmdDel").click();
  EXPECT_EQ(rows(), IDs({1, 2, 3}));
  toolkit.expectBox(u"Are you sure you want to delete Zoë"_s, Answer::Yes);
  press(Qt::Key_Delete);
  EXPECT_EQ(rows(), IDs({1, 3}));
  EXPECT_EQ(form().selectedIDs(), IDs{3}) << "the one that stands there now";
  EXPECT_FALSE(sceneAt(1)->CharIDs().contains(2));
  EXPECT_TRUE(g_CharChanges.HasChanged(2, ChangeArea::MainWindow));
}

TEST_F(frmListTest, TheLastOneThatGoesLeavesNothingToEditOrDelete) {
  g_Project->FileWithPath = folder.path(u"Small.qn4"_s);
  show(kListItems);
  toolkit.expectBox(u"Are you sure you want to delete A lamp"_s, Answer::Yes);
  button("cmdDel").click();
  EXPECT_EQ(g_Project->ItemCount() + sceneAt(1)->ItemCount(), 0);
  for (const char* const name : {"cmdDel", "cmdEdit"}) {
    EXPECT_FALSE(button(name).isEnabled());
  }
  EXPECT_FALSE(list().isEnabled());
  EXPECT_TRUE(button("cmdAdd").hasFocus());
  addNew(u"A rope"_s);
  EXPECT_TRUE(list().isEnabled() && button("cmdDel").isEnabled());
  addNew(u"An oar"_s);
  EXPECT_EQ(list().text(0, 0), u"A rope"_s);
  EXPECT_EQ(list().text(1, 0), u"An oar"_s) << "a new one stands last";
  EXPECT_EQ(form().selectedIDs(), IDs{list().tagAt(1)}) << "and is what an OK means";
  list().selectAll();
  EXPECT_FALSE(button("cmdDel").isEnabled()) << "several at once";
  button("cmdChar").click();
  onlyMajor(true);
  addNew(u"Ida"_s);
  EXPECT_TRUE(rows().contains(4)) << "also a minor one, where majors alone are listed";
}

TEST_F(frmListTest, EnterChoosesWhereOneIsToBeChosenAndEscapeDoesNot) {
  for (const bool chosen : {true, false}) {
    show(kListCharacters, false);
    select(3);
    press(chosen ? Qt::Key_Return : Qt::Key_Escape);
    EXPECT_FALSE(form().isVisible());
    EXPECT_EQ(form().Cancelled, !chosen);
    EXPECT_EQ(form().selectedIDs(), IDs{3});
  }
}

TEST_F(frmListTest, PrintsTheKindThatIsShownWhole) {
  const PrintedPages pages;
  show(kListLocations);
  during(
      [this] {
        button("cmdPrintList").click();
        return true;
      },
      [](QDialog& printer) { childOf<QPushButton>(printer, u"cmdOk"_s).click(); });
  ASSERT_EQ(pages.documents.size(), 1);
  EXPECT_EQ(textsOf(pages.documents[0].pages.at(0)), (QStringList{u"1"_s, u"The pier"_s, u"Café Röhm"_s}));
}
