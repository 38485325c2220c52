// What a screen reader says of the lists of the main window: their names and columns, whole rows with what their
// colours and icons tell, and why there are none.

#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/editor/frmEditor.h"
#include "gui/shell/MainWindow.h"

#include <QAccessible>
#include <QTest>

using namespace Qt::StringLiterals;

class SpokenListsTest : public ShellTest {
 protected:
  void SetUp() override {
    ShellTest::SetUp();
    startWith(smallProject());
  }

  static QString spoken(ListView& list, QAccessible::Text what) {
    return required(QAccessible::queryAccessibleInterface(&list), u"voice of a list"_s).text(what);
  }
  /// The titles of the columns come before the cells.
  static QStringList spokenTitles(ListView& list) {
    const auto& voice = required(QAccessible::queryAccessibleInterface(&list), u"voice of a list"_s);
    QStringList titles;
    for (int column = 0; column < list.model()->columnCount(); ++column) {
      titles += voice.child(column)->text(QAccessible::Name);
    }
    return titles;
  }
  /// What is said of the row with the keyboard by whoever asks for it.
  static QString spokenRow(ListView& list) {
    return required(QAccessible::queryAccessibleInterface(&list)->focusChild(), u"row with the keyboard"_s)
        .text(QAccessible::Name);
  }
};

TEST_F(SpokenListsTest, ListsHaveNamesAndColumnsInWords) {
  struct Case {
    const char* list;
    QString name;
    QStringList titles;
  };
  for (const Case& known :
       {Case{"ListChapters", u"Chapters"_s, {u"Title"_s, u"Words"_s, u"Scenes"_s, u"Words so far"_s}},
        Case{"ListScenes",
             u"Scenes of the selected chapter"_s,
             {u"Viewpoint"_s, u"Words"_s, u"Scene"_s, u"Status"_s, u"Action or reaction"_s, u"Filename"_s,
              u"Letters"_s}},
        Case{"ListChar(0)", u"Characters in this scene"_s, {u"Name"_s}},
        Case{"ListChar(1)", u"All characters"_s, {u"Name"_s, u"Full name"_s}},
        Case{"ListLoc(0)", u"Locations in this scene"_s, {u"Name"_s}},
        Case{"ListLoc(1)", u"All locations"_s, {u"Name"_s}},
        Case{"ListItems(0)", u"Items in this scene"_s, {u"Name"_s}}, Case{"ListItems(1)", u"All items"_s, {u"Name"_s}},
        Case{"ListNotes", u"Project notes"_s, {u"Note"_s}}}) {
    EXPECT_EQ(spoken(list(known.list), QAccessible::Name), known.name);
    EXPECT_EQ(spokenTitles(list(known.list)), known.titles);
  }
}

TEST_F(SpokenListsTest, ARowIsReadWholeAndInWords) {
  const auto scene = g_Project->SceneByID(2);
  scene->ReactionScene = true;
  scene->Unused = true;
  g_Project->EndBeginningChID = 1;
  window().RefreshAll();
  EXPECT_EQ(spokenRow(list("ListScenes")),
            u"Viewpoint Zoë, Words 3, Scene Arrival 1, Status Draft, action, Filename RTF_00001.rtf, Letters 13, has a "
            "note"_s);
  click(list("ListScenes"), 1);
  EXPECT_EQ(spokenRow(list("ListScenes")),
            u"No viewpoint, Words 2, Scene Arrival 2, Status Draft, reaction, Filename RTF_00002.rtf, Letters 9, "
            "unused"_s);
  EXPECT_EQ(spokenRow(list("ListChapters")), u"Title Arrival, Words 3, Scenes 2, Words so far 3, beginning section"_s);
  click(list("ListChapters"), 2);
  EXPECT_EQ(spokenRow(list("ListChapters")),
            u"Title Cut scenes, Words 0, Scenes 1, Words so far 7, unused, middle section"_s);
  QTest::keyClick(&list("ListScenes"), Qt::Key_Return);
  EXPECT_TRUE(spokenRow(list("ListScenes")).endsWith(u", open in an editor"_s));
  openEditor().close();
}

// A reader asks for what has the keyboard: that is a cell, which speaks for its row.
TEST_F(SpokenListsTest, TheRowIsReadWhicheverOfItsCellsWasClicked) {
  ListView& scenes = list("ListScenes");
  const auto clickCell = [&](int row, int column) {
    QTest::mouseClick(scenes.viewport(), Qt::LeftButton, {},
                      scenes.visualRect(scenes.model()->index(row, column)).center());
  };
  const auto expectRow = [&](const QString& title) {
    EXPECT_TRUE(spokenRow(scenes).contains(u", Scene "_s + title + u", Status Draft, "_s)) << spokenRow(scenes);
  };
  clickCell(1, 1);
  expectRow(u"Arrival 2"_s);
  QTest::keyClick(&scenes, Qt::Key_Up);
  expectRow(u"Arrival 1"_s);
  clickCell(1, 2);
  QTest::keyClick(&scenes, Qt::Key_Up, Qt::AltModifier);
  EXPECT_EQ(scenes.SelectedRow(), 0);
  expectRow(u"Arrival 2"_s);
}

TEST_F(SpokenListsTest, AListWithoutRowsSaysWhatToDoAndOneWithRowsDoesNot) {
  const auto hint = [this](const char* name) { return spoken(list(name), QAccessible::Description); };
  EXPECT_EQ(hint("ListChapters"), QString());
  EXPECT_EQ(hint("ListScenes"), QString());
  g_Project->ChapterByID(3)->RemoveSceneByID(5);
  click(list("ListChapters"), 2);
  EXPECT_TRUE(hint("ListScenes").contains(u"Add scene"_s)) << hint("ListScenes");
  g_Project->Chapters.Clear();
  window().RefreshAll();
  EXPECT_TRUE(hint("ListChapters").contains(u"Create new chapter"_s)) << hint("ListChapters");
  trigger("mnuCloseProject");
  EXPECT_TRUE(hint("ListChapters").contains(u"No project is open"_s)) << hint("ListChapters");
}
