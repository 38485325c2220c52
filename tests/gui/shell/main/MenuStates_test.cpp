// What each state of the window offers, asked of its own actions.

#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/editor/frmEditor.h"
#include "gui/shell/MainWindow.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

using Names = std::initializer_list<const char*>;

constexpr Names kAlways{"mnuFile",   "mnuConfirmExit", "mnuProject",     "mnuLoadProj", "mnuOpenRecent", "mnuNewProj",
                        "mnuWindow", "mnuChooseLang",  "mnuLanguage(0)", "mnuHelp",     "mnuAbout"};
constexpr Names kWithAProject{"mnuSaveProj",    "mnuCloseProject",     "mnuScene",     "mnuEditScene",
                              "mnuBackupMenu",  "mnuSaveToSingleFile", "mnuDebugMenu", "mnuViewLog",
                              "mnuFontmnu",     "mnuFont(0)",          "mnuFont(5)",   "mnuWordUsageCount",
                              "mnuLostAndFound"};

}  // namespace

class MenuStatesTest : public ShellTest {
 protected:
  void expectAll(Names names, bool enabled) {
    for (const char* name : names) {
      EXPECT_EQ(isEnabled(name), enabled) << name;
    }
  }
  void expectNoProject() {
    expectAll(kAlways, true);
    expectAll(kWithAProject, false);
    expectAll({"mnuChapters", "mnuChar", "mnuLocations", "mnuItems", "mnuSearch"}, false);
  }
  void expectProject() {
    expectAll(kAlways, true);
    expectAll(kWithAProject, true);
    expectAll({"UseF3ToFindNext"}, false);
  }
  /// What opening the menu does to its entries.
  void openMenu(const char* name) { Q_EMIT control<QMenu>(name).aboutToShow(); }
};

TEST_F(MenuStatesTest, BeforeTheStartOneCanOnlyLeave) {
  const frmMain unstarted;
  const auto enabled = [&](const char* name) {
    return childOf<QAction>(unstarted, QString::fromLatin1(name)).isEnabled();
  };
  for (const Names& names : {kAlways, kWithAProject}) {
    for (const char* name : names) {
      EXPECT_EQ(enabled(name), qstrcmp(name, "mnuFile") == 0 || qstrcmp(name, "mnuConfirmExit") == 0) << name;
    }
  }
}

TEST_F(MenuStatesTest, WithoutAProjectOnlyTheWaysToOneAreOpen) {
  const QString project = smallProject();
  startWith({});
  expectNoProject();
  EXPECT_TRUE(isEnabled("mnuRecent(0)"));
  toolkit.expectFile(project);
  trigger("mnuLoadProj");
  expectProject();
  EXPECT_TRUE(isEnabled("mnuRecent(1)"));
  trigger("mnuCloseProject");
  expectNoProject();
  EXPECT_TRUE(isEnabled("mnuRecent(1)"));
}

TEST_F(MenuStatesTest, AnOpenSceneClosesTheRoadsThatReplaceTheProject) {
  startWith(smallProject());
  expectProject();
  trigger("mnuEditScene");
  openMenu("mnuChapters");
  expectAll({"mnuFile", "mnuProject"}, false);
  expectAll({"mnuWindow", "mnuScene", "mnuEditScene", "mnuWordUsageCount", "mnuViewLog", "mnuHelp"}, true);
  openEditor().close();
  openMenu("mnuChapters");
  expectProject();
}

TEST_F(MenuStatesTest, ASceneCanBeEditedWhereThereIsOne) {
  startWith(smallProject());
  g_Project->ChapterByID(3)->RemoveSceneByID(5);
  for (const auto& [chapter, hasScenes] : {std::pair{2, false}, {0, true}}) {
    click(list("ListChapters"), chapter);
    openMenu("mnuScene");
    EXPECT_EQ(isEnabled("mnuEditScene"), hasScenes) << chapter;
  }
}

TEST_F(MenuStatesTest, UnfinishedCommandsAndPopUpsAreNotShown) {
  startWith(smallProject());
  for (const char* name : {"mnuSaveAs", "mnuAppendProject", "mnuOutliner", "mnuScenesToWrite", "mnuImportYSDat",
                           "mnuExportScene", "mnuAddNoteToScene", "mnuExternalEditRTF", "mnuConvQN2Scn",
                           "mnuDeleteScene", "mnuRemoveLocation", "mnuRemoveItem", "mnuTimeline", "mnuShowDebug",
                           "mnuDisableVersionCheck", "mnuCharRC", "mnuAllCharRC", "mnuRecent(0)"}) {
    EXPECT_FALSE(isShown(name)) << name;
  }
  for (const Names& names : {kAlways, kWithAProject}) {
    for (const char* name : names) {
      EXPECT_TRUE(isShown(name)) << name;
    }
  }
  QStringList bar;
  for (const QAction* menu : window().menuBar()->actions()) {
    bar += menu->objectName();
  }
  EXPECT_EQ(bar,
            QStringList({u"mnuFile"_s, u"mnuSearch"_s, u"mnuProject"_s, u"mnuChapters"_s, u"mnuScene"_s, u"mnuChar"_s,
                         u"mnuLocations"_s, u"mnuItems"_s, u"mnuWindow"_s, u"mnuChooseLang"_s, u"mnuHelp"_s}));
}
