// The menu tree as data: what it holds. What each state makes of it is asked of the window, see MenuStates_test.

#include "gui/shell/main/MainMenu.h"

#include <QSet>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const MenuEntry* find(const char* name) {
  for (const MenuEntry& line : mainMenuTable()) {
    if (qstrcmp(line.name, name) == 0) {
      return &line;
    }
  }
  return nullptr;
}

bool says(const MenuState& state, const char* name, bool enabled) {
  const auto told = state.constFind(QString::fromLatin1(name));
  return told != state.constEnd() && *told == enabled;
}

}  // namespace

TEST(MainMenuTable, EveryNameStandsOnceAndBehindItsMenu) {
  QSet<QByteArray> seen;
  for (const MenuEntry& line : mainMenuTable()) {
    const QByteArray name(line.name);
    EXPECT_TRUE(name.isEmpty() || !seen.contains(name)) << line.name;
    EXPECT_TRUE(*line.parent == '\0' || seen.contains(line.parent)) << line.name << " in " << line.parent;
    seen.insert(name);
  }
}

TEST(MainMenuTable, HoldsWhatIsNeverShown) {
  for (const char* name :
       {"mnuSaveAs", "mnuAppendProject", "mnuOutliner", "mnuScenesToWrite", "mnuImportYSDat", "mnuExportScene",
        "mnuAddNoteToScene", "mnuExternalEditRTF", "mnuConvQN2Scn", "mnuDeleteScene", "mnuRemoveLocation",
        "mnuRemoveItem", "mnuTimeline", "mnuShowDebug", "mnuDisableVersionCheck"}) {
    ASSERT_NE(find(name), nullptr) << name;
    EXPECT_NE(find(name)->flags & kHidden, 0U) << name;
  }
}

TEST(MainMenuTable, NamesACommandInASentence) {
  EXPECT_EQ(commandName(*find("mnuFind")), u"Find"_s);
  EXPECT_EQ(commandName(*find("mnuExportHTML")), u"Export to HTML"_s);
  EXPECT_EQ(commandName(*find("mnuAddChar")), u"Add character"_s);
  EXPECT_EQ(commandName(*find("mnuStoryboard")), u"Storyboard"_s);
}

TEST(MenuStates, OpenEditorsCloseTheRoadsThatReplaceTheProject) {
  const MenuState editing = menusForEditing(true);
  const MenuState calm = menusForEditing(false);
  for (const char* name : {"mnuFile", "mnuProject", "mnuGlobalReplace", "mnuRemoveChapter"}) {
    EXPECT_TRUE(says(editing, name, false)) << name;
    EXPECT_TRUE(says(calm, name, true)) << name;
  }
  EXPECT_FALSE(editing.contains(u"mnuWindow"_s));
  EXPECT_TRUE(says(calm, "mnuWindow", true));
  EXPECT_EQ(calm.size(), 5);
}
