// The menu tree as data: what it holds. What each state makes of it is asked of the window, see MenuStates_test.

#include "gui/shell/main/MainMenu.h"

#include "core/infra/RuntimeError.h"
#include "gui/shell/main/MenuBindings.h"
#include "support/ErrorOf.h"

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

TEST(MainMenuTable, OffersNothingThatIsNotForWriters) {
  for (const char* name : {"mnuSaveAs", "mnuOutliner", "mnuScenesToWrite", "mnuImportYSDat", "mnuExportScene",
                           "mnuAddNoteToScene", "mnuDeleteScene", "mnuRemoveLocation", "mnuRemoveItem",
                           "mnuDisableVersionCheck", "mnuCharRC", "mnuAllCharRC"}) {
    ASSERT_NE(find(name), nullptr) << name;
    EXPECT_FALSE(isOffered(*find(name), true)) << name;
  }
  for (const char* name : {"mnuTimeline", "mnuExternalEditRTF", "mnuConvQN2Scn", "mnuShowDebug", "mnuAppendProject"}) {
    ASSERT_NE(find(name), nullptr) << name;
    EXPECT_FALSE(isOffered(*find(name), false)) << name;
    EXPECT_TRUE(isOffered(*find(name), true)) << name;
  }
  for (const char* name : {"mnuSaveProj", "mnuProject", "mnuStatus(0)", "mnuFont(5)"}) {
    ASSERT_NE(find(name), nullptr) << name;
    EXPECT_TRUE(isOffered(*find(name), false)) << name;
  }
}

TEST(MainMenuTable, NamesACommandInASentence) {
  EXPECT_EQ(commandName(u"Find (Ctrl-F)"_s), u"Find"_s);
  EXPECT_EQ(commandName(u"Save As..."_s), u"Save As"_s);
  EXPECT_EQ(commandName(u"Storyboard"_s), u"Storyboard"_s);
}

TEST(MenuBindings, TakeOneHandlerForANameOfTheMenu) {
  MenuBindings bindings;
  QStringList heard;
  bindings.bind("mnuSaveProj", [&] { heard.append(u"save"_s); });
  bindings.bind("mnuFont", [&](const MenuChoice& chosen) { heard.append(chosen.tag.toString()); });
  EXPECT_EQ(errorOf([&] { bindings.bind("mnuSaveProj", [] {}); }), RuntimeError::DuplicateKey);
  EXPECT_EQ(errorOf([&] { bindings.bind("mnuSafeProj", [] {}); }), RuntimeError::InvalidCall);
  EXPECT_EQ(bindings.find(u"mnuLoadProj"_s), nullptr);
  ASSERT_NE(bindings.find(u"mnuSaveProj"_s), nullptr);
  EXPECT_EQ(bindings.find(u"mnuSaveProj"_s)->logName, "mnuSaveProj_Click");
  bindings.find(u"mnuSaveProj"_s)->run({});
  bindings.find(u"mnuFont"_s)->run({3, u"Tahoma"_s});
  EXPECT_EQ(heard, QStringList({u"save"_s, u"Tahoma"_s}));
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
