// While the project is loaded or saved the window yields to the message loop: nothing may begin there.

#include "core/infra/ScanPause.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/shell/MainWindow.h"
#include "support/SampleProject.h"
#include "support/WaitFor.h"

#include <QDialog>
#include <QSignalSpy>
#include <QTimer>

using namespace Qt::StringLiterals;

class WhileBusyTest : public ShellTest {
 protected:
  /// Whether the scan takes up a change while the act yields to the message loop, each time for several rounds of
  /// timers.
  bool scansDuring(const std::function<void()>& act) {
    auto& scan = control<QTimer>("TimerScanScenes");
    scan.setInterval(0);
    EXPECT_TRUE(scan.isActive());
    int yields = 0;
    bool scanned = false;
    std::function<void()> yield = [&] {
      ++yields;
      g_SceneChanges.MarkUpdated(1);
      EXPECT_TRUE(waitForRounds(3));
      scanned = scanned || !g_SceneChanges.HasChanged(1, ChangeArea::MainWindow);
      toolkit.onYield = yield;
    };
    toolkit.onYield = yield;
    act();
    toolkit.onYield = nullptr;
    EXPECT_GT(yields, 0);
    return scanned;
  }

 private:
  static bool waitForRounds(int count) {
    QTimer round;
    const QSignalSpy rounds(&round, &QTimer::timeout);
    round.start(0);
    return waitFor([&] { return rounds.count() >= count; });
  }
};

TEST_F(WhileBusyTest, NoCommandOfTheMenuBeginsInTheMiddleOfASave) {
  const QString path = smallProject();
  startWith(path);
  for (const char* command : {"mnuLoadProj",
                              "mnuRecent(1)",
                              "mnuSaveProj",
                              "mnuCloseProject",
                              "mnuNewProj",
                              "mnuProjectGen",
                              "mnuImportQuillane2",
                              "mnuImportQuillane3",
                              "mnuImportProject",
                              "mnuImportSceneFile",
                              "mnuImportScene",
                              "mnuWordUsageCount",
                              "mnuLostAndFound",
                              "mnuBackupProject",
                              "mnuVerifyBackup",
                              "mnuAutobackups",
                              "mnuSettings",
                              "mnuFileNew",
                              "mnuEditChapter",
                              "mnuMarkChaptersUnused",
                              "mnuRemoveChapter",
                              "mnuAddScene",
                              "mnuStatus(0)",
                              "mnuRemoveScene",
                              "mnuCreateChapters",
                              "mnuRenumber",
                              "mnuAddMultiScenes",
                              "mnuSetAllSceneFont",
                              "mnuWordsPerCharacter",
                              "mnuScenesPerCharacter",
                              "mnuCreateDebug",
                              "mnuCombineFiles",
                              "mnuExportHTML",
                              "mnuExportToRTF",
                              "mnuExportOutline",
                              "mnuExportDesc",
                              "mnuExportNano",
                              "mnuListView",
                              "mnuStoryboard",
                              "mnuChart",
                              "mnuExportTimeline",
                              "mnuWordTarget",
                              "mnuPrintOnStatus(0)",
                              "mnuFind",
                              "cmdFindNext",
                              "mnuGlobalReplace",
                              "mnuUDW(0)",
                              "mnuEditChar",
                              "mnuAddLocation",
                              "mnuAddItem",
                              "mnuAddCharToScene",
                              "mnuAddLocToCurrentScene"}) {
    SCOPED_TRACE(command);
    const clsProject* const project = g_Project.get();
    bool yielded = false;
    toolkit.onYield = [&] {
      yielded = true;
      // A command that began all the same would ask what to do with this.
      sceneAt(1)->setTextRTF(simpleRtf(QByteArray("typed while ") + command));
      window().ProjectChanged = true;
      trigger(command);
      EXPECT_TRUE(window().ProjectChanged);
      EXPECT_TRUE(ScanPause::isActive());
      EXPECT_TRUE(control<QTimer>("Timer3").isActive());
      EXPECT_EQ(g_Project.get(), project);
    };
    trigger("mnuSaveProj");
    EXPECT_TRUE(yielded);
    EXPECT_EQ(g_Project->FileWithPath, path);
    EXPECT_EQ(list("ListChapters").rowCount(), 3);
    EXPECT_EQ(window().findChild<QDialog*>(), nullptr);
  }
}

TEST_F(WhileBusyTest, TheScanRestsDuringLoadsAndSaves) {
  const QString other = smallProject(u"Other"_s);
  startWith(smallProject(u"First"_s));
  EXPECT_TRUE(scansDuring([&] { toolkit.DoEvents(); })) << "it would be seen here";
  EXPECT_FALSE(scansDuring([&] { trigger("mnuSaveProj"); }));
  EXPECT_FALSE(scansDuring([&] { window().LoadProject(other, true); }));
  EXPECT_FALSE(scansDuring([&] { trigger("mnuWordUsageCount"); }));
  toolkit.expectFile(other);
  EXPECT_FALSE(scansDuring([&] { trigger("mnuLoadProj"); }));
  EXPECT_EQ(list("ListScenes").rowCount(), 2);
}
