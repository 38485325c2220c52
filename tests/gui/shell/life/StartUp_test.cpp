// From the start of the process to the main window.

#include "core/infra/Clock.h"
#include "core/infra/Paths.h"
#include "core/infra/RuntimeError.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/infra/cSharedGetDate.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/Globals.h"
#include "core/model/SceneEditor.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/spell/cSharedSpell.h"
#include "gui/shell/MainWindow.h"
#include "gui/shell/life/FileAssociation.h"
#include "gui/shell/life/InstanceCheck.h"
#include "support/Required.h"
#include "support/SampleProject.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFontDatabase>
#include <QLineEdit>
#include <QTabWidget>
#include <QTimer>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

const QString kGreeting = u"You seem to be running Quillane for the first time."_s;

}  // namespace

using StartUpTest = ShellTest;

TEST_F(StartUpTest, AFirstRunGreetsAndStartsWithAllDefaults) {
  toolkit.expectBox(kGreeting);
  start();
  EXPECT_TRUE(g_Project->FileWithPath.isEmpty());
  EXPECT_EQ(g_FontSize, 10);
  EXPECT_EQ(g_FontName, u"Times New Roman"_s);
  EXPECT_FALSE(isEnabled("mnuSaveProj"));
  EXPECT_TRUE(isEnabled("mnuLoadProj"));
  EXPECT_FALSE(control<QTabWidget>("TabStrip1").isEnabled());
  EXPECT_FALSE(control<QLineEdit>("txtTitle").isEnabled());
}

TEST_F(StartUpTest, TakesOverWhatTheSettingsSay) {
  writeSettings({u"DebugMode,-1"_s, u"DblSpaced,-1"_s, u"FontSize, 14 "_s, u"FontName,Georgia"_s,
                 u"FormFont, Verdana "_s, u"MainChap1_W, 3000 "_s});
  start();
  EXPECT_TRUE(g_DebugMode);
  EXPECT_TRUE(g_DblSpaced);
  EXPECT_EQ(g_FontSize, 14);
  EXPECT_EQ(g_FontName, u"Georgia"_s);
  const bool installed = QFontDatabase::hasFamily(u"Verdana"_s);
  EXPECT_TRUE(control<QAction>(installed ? "mnuFont(5)" : "mnuFont(2)").isChecked());
  EXPECT_EQ(list("ListChapters").columnWidth(0), 200);
}

TEST_F(StartUpTest, AMissingLibraryLeavesAnInertWindow) {
  const QString last = smallProject();
  for (const QString& library : {u"qnHtml2.dll"_s, u"qnHtml.dll"_s, u"Hash.dll"_s}) {
    writeSettings({u"LastProjectFile,"_s + last, u"Keep,me"_s});
    const QString before = settingsText();
    const QString path = Paths::executableFolder() + library;
    ASSERT_TRUE(QFile::rename(path, path + u".away"_s));
    toolkit.expectBox(u"Essential file "_s + library +
                      u" missing.  Please download and install the complete Quillane4 package from http"_s);
    start();
    EXPECT_TRUE(QFile::rename(path + u".away"_s, path));
    EXPECT_TRUE(window().isVisible());
    EXPECT_TRUE(g_Project->FileWithPath.isEmpty());
    EXPECT_FALSE(control<QTimer>("TimerScanScenes").isActive());
    EXPECT_FALSE(isEnabled("mnuLoadProj"));
    EXPECT_FALSE(control<QLineEdit>("txtTitle").isEnabled());
    EXPECT_EQ(Settings().SettingsCount(), 0);
    window().close();
    EXPECT_EQ(settingsText(), before) << "settings that were never read were written";
  }
  EXPECT_EQ(ended, 3);
}

// The path is stored for starts that stand in another folder.
TEST_F(StartUpTest, ARelativePathOnTheCommandLineIsStoredInFull) {
  const QString project = smallProject();
  writeSettings({u"Keep,me"_s});
  const QString before = QDir::currentPath();
  ASSERT_TRUE(QDir::setCurrent(QFileInfo(project).path()));
  start(QFileInfo(project).fileName());
  EXPECT_TRUE(QDir::setCurrent(before));
  EXPECT_EQ(g_Project->FileWithPath, project);
  EXPECT_TRUE(settingsText().contains(u"RECENT0,"_s + project));
}

TEST_F(StartUpTest, OpensTheLastProject) {
  const QString last = smallProject();
  writeSettings({u"LastProjectFile,"_s + last});
  start();
  EXPECT_EQ(g_Project->FileWithPath, last);
  EXPECT_TRUE(isEnabled("mnuSaveProj"));
  EXPECT_TRUE(control<QTabWidget>("TabStrip1").isEnabled());
  EXPECT_FALSE(window().ProjectChanged);
}

TEST_F(StartUpTest, TheCommandLineGoesBeforeTheLastProject) {
  const QString last = smallProject(u"Last"_s);
  const QString named = smallProject(u"Named one"_s);
  writeSettings({u"LastProjectFile,"_s + last});
  start(u'"' + named + u'"');
  EXPECT_EQ(g_Project->FileWithPath, named);
}

// On a system where both are letters of a file's name.
TEST_F(StartUpTest, AFileIsFoundByItsNameWithQuotesAndBackslashes) {
  if (Paths::separator() != u'/') {
    GTEST_SKIP();
  }
  const QString project = smallProject(u"Say \"when\" \\ now"_s);
  writeSettings({u"Keep,me"_s});
  start(project);
  EXPECT_EQ(g_Project->FileWithPath, project);
  EXPECT_EQ(g_Project->SceneCount(), 5);
  g_Project->SceneByID(1)->setTextRTF(simpleRtf("kept beside its book"));
  endProgram();
  EXPECT_TRUE(filesBelow(QFileInfo(project).path()).value(u"RTF/RTF_00001.rtf"_s).contains("kept beside its book"));
}

TEST_F(StartUpTest, TellsWhenTheLastRunDidNotComeToItsEnd) {
  const QString told =
      u"Quillane didn't end properly last time. Books open as they were last saved. (log_last.txt tells more.)"_s;
  const QString log = Paths::programFolder() + u"log.txt"_s;
  const QString lastLog = Paths::programFolder() + u"log_last.txt"_s;
  const QString project = smallProject();
  startWith(project);
  EXPECT_NE(panel("numberfiles"), told) << "there was no run before";
  endProgram();
  startWith(project);
  EXPECT_NE(panel("numberfiles"), told) << "that one ended";
  EXPECT_TRUE(fileBytes(lastLog).endsWith(", Program ended\r\n"));
  EXPECT_FALSE(logText().contains(u"Program ended"_s));
  const QByteArray cutShort = fileBytes(log) + "1 14:03:22, Saving Program ended\r\n";
  writeFile(log, cutShort);
  start(folder.path(u"gone.qn4"_s));
  EXPECT_EQ(panel("numberfiles"), folder.path(u"gone.qn4"_s) + u" wasn't found. "_s + told);
  EXPECT_EQ(fileBytes(lastLog), cutShort);
  EXPECT_TRUE(logText().contains(u", The last run did not end properly\r\n"_s));
}

TEST_F(StartUpTest, TellsOnceOfTextsThatWereKeptElsewhere) {
  writeSettings({u"RescuedTexts,"_s + folder.path(u"Rescue"_s)});
  toolkit.expectBox(u"It was kept in the folder\n"_s + folder.path(u"Rescue"_s));
  start();
  window().EndAtOnce();
  start();
}

TEST_F(StartUpTest, ASecondCopyLeavesTheLogOfTheFirstAlone) {
  const QString log = Paths::programFolder() + u"log.txt"_s;
  const QString own = Paths::programFolder() + u"log_copy.txt"_s;
  writeFile(log, "1 14:03:22, still running\r\n");
  prepare = [](frmMain& main) { main.AnotherCopyRuns = true; };
  startWith(smallProject());
  EXPECT_FALSE(panel("numberfiles").contains(u"did not end"_s));
  EXPECT_EQ(fileBytes(log), "1 14:03:22, still running\r\n");
  EXPECT_TRUE(fileBytes(own).contains(", Starting Application\r\n"));
  Logging().OverrideLogFilename(log);
  EXPECT_TRUE(QFile::remove(own));
}

TEST_F(StartUpTest, ACommandLineThatLeadsNowhereOpensNothing) {
  writeSettings({u"LastProjectFile,"_s + smallProject()});
  start(folder.path(u"gone.qn4"_s));
  EXPECT_TRUE(g_Project->FileWithPath.isEmpty());
  EXPECT_FALSE(isEnabled("mnuSaveProj"));
  EXPECT_EQ(panel("numberfiles"), folder.path(u"gone.qn4"_s) + u" wasn't found."_s);
}

TEST_F(StartUpTest, RemindsOfAFullBackupAfterAWeek) {
  Clock::set(QDateTime(QDate(2026, 3, 15), QTime(12, 0)));
  const qint32 today = Clock::dayNumber(QDate(2026, 3, 15));
  const QString reminder = u"  Use Tools - Backups and make a full backup!  "_s;
  for (const auto& [lastBackup, expected] :
       {std::pair{today - 7, QString()}, {today - 8, reminder}, {0, reminder}, {today, QString()}}) {
    writeSettings({u"LastFullBackup, "_s + QString::number(lastBackup) + u' '});
    start();
    EXPECT_EQ(panel("backup"), expected) << today - lastBackup << " days ago";
  }
}

TEST_F(StartUpTest, ASecondCopyStartsOnlyWhenTheUserInsists) {
  const QString question = u"Quillane4 is already running. Are you sure you want to run another copy?"_s;
  auto first = std::make_unique<InstanceCheck>();
  ASSERT_TRUE(Form_Initialize(*first));
  {
    InstanceCheck refused;
    toolkit.expectBox(question, Answer::No);
    EXPECT_FALSE(Form_Initialize(refused));
    EXPECT_EQ(toolkit.lastButtons, Buttons::NoUnlessYes) << "Enter must not start a second copy";
  }
  auto second = std::make_unique<InstanceCheck>();
  toolkit.expectBox(question, Answer::Yes);
  toolkit.expectBox(u"Warning: If you open the same project twice, the last one you close will be the one saved."_s);
  EXPECT_TRUE(Form_Initialize(*second));
  first.reset();
  {
    InstanceCheck third;
    toolkit.expectBox(question, Answer::No);
    EXPECT_FALSE(Form_Initialize(third)) << "the second copy still runs";
  }
  second.reset();
  InstanceCheck alone;
  EXPECT_TRUE(Form_Initialize(alone));
}

TEST_F(StartUpTest, AnErrorEndsTheProgramAndSavesNoSettingsThatWereNeverRead) {
  writeSettings({u"Keep,me"_s});
  class Failing : public ScriptedToolkit {
   public:
    void DoEvents() override {
      if (++yields == 1) {
        throw RuntimeError(RuntimeError::DiskFull);
      }
    }
  };
  Failing failing;
  failing.expectBox(u"Error 61 in Form_Load - Disk full"_s);
  start();
  EXPECT_EQ(ended, 1);
  EXPECT_FALSE(window().isVisible());
  EXPECT_EQ(settingsText(), u"Keep,me\r\n"_s);
}

TEST_F(StartUpTest, TheManualIsOfferedOnlyWhereThereIsOne) {
  startWith({});
  EXPECT_FALSE(isShown("mnuManual"));
  const QString manual = Paths::programFolder() + u"Help/index.html"_s;
  ASSERT_TRUE(QDir().mkpath(QFileInfo(manual).path()));
  writeFile(manual, "<p>Help</p>");
  startWith({});
  EXPECT_TRUE(isShown("mnuManual"));
  EXPECT_TRUE(QFile::remove(manual));
}

TEST(FileAssociation, PointsTheExtensionToTheQuotedProgram) {
  const QList<RegistryValue> values = associationValues(u".QN4"_s, u"C:\\Q 4\\Quillane4.exe"_s, u"Quillane4"_s);
  ASSERT_EQ(values.size(), 2);
  EXPECT_EQ(values[0].key + u'=' + values[0].value, u".QN4=Quillane4"_s);
  EXPECT_EQ(values[1].key + u'=' + values[1].value,
            u"Quillane4/shell/open/command=\"C:\\Q 4\\Quillane4.exe\" \"%1\""_s);
}
