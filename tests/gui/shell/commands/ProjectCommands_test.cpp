// The commands that open, save, close and make projects, and the list of recent ones.

#include "core/infra/Paths.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/editor/frmEditor.h"
#include "gui/shell/MainWindow.h"
#include "gui/shell/main/RecentProjects.h"
#include "gui/toolkit/RichTextBox.h"
#include "support/FailingDisk.h"
#include "support/SampleProject.h"
#include "support/WaitFor.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QFile>
#include <QFontDatabase>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

class ProjectCommandsTest : public ShellTest {
 protected:
  /// The captions of the recent projects that the menu shows.
  QStringList recentShown() {
    QStringList captions;
    for (const QAction* action : control<QMenu>("mnuOpenRecent").actions()) {
      if (action->isVisible()) {
        captions.append(action->text());
      }
    }
    return captions;
  }
  void typeInEditor(const QString& text) {
    auto& pane = childOf<RichTextBox>(openEditor(), u"txtMain"_s);
    pane.moveCursor(QTextCursor::End);
    QTest::keyClicks(&pane, text);
  }
  QString recent(int index) { return Settings().sGet(u"Recent%1"_s.arg(index)).toString(); }
  /// Files that are there, in folders named after them.
  QStringList projectFiles(int count) {
    QStringList paths;
    for (int i = 0; i < count; ++i) {
      const QString name = QString::number(i);
      QDir().mkpath(folder.path(u"f"_s + name));
      paths.append(folder.path(u"f%1/p%1.qn4"_s.arg(name)));
      writeFile(paths.last(), {});
    }
    return paths;
  }
};

TEST_F(ProjectCommandsTest, TheRecentListIsWrittenAtOnceAndPushesTheOldestOut) {
  startWith({});
  const QStringList paths = projectFiles(16);
  for (const QString& path : paths) {
    RecentProjects::AddToRecent(path);
  }
  EXPECT_TRUE(settingsText().contains(u"RECENT0,"_s + paths[15]));
  EXPECT_EQ(recent(13), paths[2]);
  window().session().UpdateRecent();
  ASSERT_EQ(recentShown().size(), 14);
  EXPECT_EQ(recentShown().constFirst(), u"p15 \\f15"_s);
  RecentProjects::AddToRecent(paths[11]);
  EXPECT_EQ(recent(0), paths[11]);
  EXPECT_EQ(recent(1), paths[15]);
  EXPECT_EQ(recent(5), paths[10]);
  QString spelled = paths[15];
  spelled.replace(u"/f15/"_s, u"/f14/../f15/"_s);
  RecentProjects::AddToRecent(spelled);
  EXPECT_EQ(recent(0), spelled);
  EXPECT_EQ(recent(1), paths[11]) << "the file was in the list";
}

TEST_F(ProjectCommandsTest, AProjectThatHasGoneLeavesTheRecentList) {
  const QStringList paths = projectFiles(3);
  writeSettings({u"Recent0,"_s + paths[0], u"Recent1,"_s + paths[1], u"Recent3,"_s + paths[2]});
  QFile::remove(paths[1]);
  start();
  EXPECT_EQ(recentShown(), QStringList({u"p0 \\f0"_s, u"p2 \\f2"_s}));
  EXPECT_FALSE(Settings().IsSettingPresent(u"Recent1"_s));
  EXPECT_EQ(control<QAction>("mnuRecent(2)").data().toString(), paths[2]);
}

TEST_F(ProjectCommandsTest, AProjectWhoseFolderIsAwayWaitsGreyForItsReturn) {
  const QStringList paths = projectFiles(2);
  const QString drive = folder.path(u"f1"_s);
  ASSERT_TRUE(QDir().rename(drive, drive + u".away"_s));
  writeSettings({u"Recent0,"_s + paths[0], u"Recent1,"_s + paths[1]});
  start();
  window().DisableMenus();
  EXPECT_EQ(recentShown(), QStringList({u"p0 \\f0"_s, u"p1 \\f1"_s}));
  EXPECT_TRUE(isEnabled("mnuRecent(1)"));
  EXPECT_FALSE(isEnabled("mnuRecent(2)"));
  EXPECT_EQ(control<QAction>("mnuRecent(2)").statusTip(), u"The folder isn't there now"_s);
  endProgram();
  EXPECT_TRUE(settingsText().contains(u"RECENT1,"_s + paths[1]));
  start();
  ASSERT_TRUE(QDir().rename(drive + u".away"_s, drive));
  auto& menu = control<QMenu>("mnuOpenRecent");
  menu.popup(window().mapToGlobal(QPoint(50, 50)));
  menu.close();
  EXPECT_TRUE(isEnabled("mnuRecent(2)"));
  EXPECT_EQ(control<QAction>("mnuRecent(2)").statusTip(), QString());
}

TEST_F(ProjectCommandsTest, OpeningSavesAChangedProjectFirstWithoutAQuestion) {
  const QString other = smallProject(u"Other"_s);
  const QString first = smallProject(u"First"_s);
  startWith(first);
  control<QLineEdit>("txtTitle").setText(u"Changed"_s);
  toolkit.expectFile(other);
  trigger("mnuLoadProj");
  EXPECT_EQ(g_Project->FileWithPath, other);
  EXPECT_EQ(control<QLineEdit>("txtTitle").text(), u"A small book"_s);
  EXPECT_TRUE(fileBytes(first).contains("<Title>Changed</Title>"));
  ASSERT_EQ(toolkit.fileQuestions.size(), 1);
  EXPECT_EQ(toolkit.fileQuestions.last().filter, u"*.qn3;*.qn4;*.qnc4"_s);
  EXPECT_EQ(toolkit.fileQuestions.last().folder, Paths::documentsFolder());
  EXPECT_FALSE(window().ProjectChanged);
  EXPECT_FALSE(control<QTimer>("Timer3").isActive());
  EXPECT_TRUE(control<QTimer>("TimerScanScenes").isActive());
  trigger("mnuRecent(2)");
  EXPECT_EQ(g_Project->FileWithPath, first);
}

TEST_F(ProjectCommandsTest, NothingTheUserDoesReachesAProjectThatIsBeingLoaded) {
  const QString other = smallProject(u"Other"_s);
  startWith(smallProject(u"First"_s));
  ASSERT_TRUE(waitUntilActive(window()));
  toolkit.expectFile(other);
  int rows = -1;
  toolkit.onYield = [&] {
    rows = list("ListScenes").rowCount() + list("ListChapters").rowCount();
    QCloseEvent close;
    QKeyEvent key(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
    QMouseEvent press(QEvent::MouseButtonPress, {50, 50}, {50, 50}, Qt::LeftButton, Qt::LeftButton, {});
    for (QEvent* event : {static_cast<QEvent*>(&close), static_cast<QEvent*>(&key), static_cast<QEvent*>(&press)}) {
      QSpontaneKeyEvent::setSpontaneous(event);
      EXPECT_TRUE(qApp->notify(&list("ListChapters"), event)) << event->type();
      EXPECT_FALSE(event->isAccepted()) << event->type();
    }
    // Real keys, with the shortcuts behind them: a question or the manual's box that comes up fails the test.
    for (const Qt::Key letter : {Qt::Key_O, Qt::Key_S, Qt::Key_Q}) {
      QTest::keyClick(&window(), letter, Qt::ControlModifier);
    }
    QTest::keyClick(&window(), Qt::Key_F1);
    trigger("mnuSaveProj");
    window().mnuConfirmExit_Click();
    QCloseEvent leave;
    QSpontaneKeyEvent::setSpontaneous(&leave);
    qApp->notify(&window(), &leave);
  };
  trigger("mnuLoadProj");
  EXPECT_EQ(rows, 0);
  EXPECT_EQ(ended, 0);
  EXPECT_EQ(g_Project->FileWithPath, other);
  EXPECT_EQ(list("ListChapters").rowCount(), 3);
}

TEST_F(ProjectCommandsTest, AFailedLoadLeavesAnEmptyProjectAndClosedMenus) {
  startWith(smallProject());
  const QString broken = folder.path(u"broken.qn4"_s);
  writeFile(broken, "nothing of ours");
  toolkit.expectFile(broken);
  toolkit.expectErrorReport(u"There was an error loading this project."_s);
  trigger("mnuLoadProj");
  EXPECT_TRUE(g_Project->FileWithPath.isEmpty());
  EXPECT_EQ(list("ListChapters").rowCount(), 0);
  EXPECT_EQ(list("ListScenes").rowCount(), 0);
  EXPECT_TRUE(control<QLineEdit>("txtTitle").text().isEmpty());
  EXPECT_FALSE(isEnabled("mnuSaveProj"));
  EXPECT_EQ(panel("Totalwords"), u"Total words: 0"_s);
}

TEST_F(ProjectCommandsTest, ClosingIsRefusedWhileWhatAnOpenSceneBelongsToHasChanges) {
  const QString path = smallProject();
  startWith(path);
  window().EditSelectedScene();
  ASSERT_NE(editor(), nullptr);
  typeInEditor(u"typed"_s);
  for (const bool changedBook : {false, true}) {
    if (changedBook) {
      childOf<QAction>(openEditor(), u"mnuSave"_s).trigger();
      control<QLineEdit>("txtAuthor").setText(u"Somebody"_s);
    }
    toolkit.expectBox(u"Please close all editor windows first"_s);
    EXPECT_TRUE(window().session().CloseProject());
    EXPECT_EQ(g_Project->FileWithPath, path);
    EXPECT_TRUE(window().Editing());
  }
}

TEST_F(ProjectCommandsTest, WhatAnEditorSavedIsInTheProjectFileWhenAnotherBookComes) {
  const QString path = smallProject();
  startWith(path);
  QString single = path;
  single.replace(u".qn4"_s, u".qnc4"_s);
  const auto editScene = [&](const QString& title) {
    window().EditSelectedScene();
    auto& titleBox = childOf<QLineEdit>(openEditor(), u"txtTitle"_s);
    titleBox.clear();
    QTest::keyClicks(&titleBox, title);
    childOf<QAction>(openEditor(), u"mnuSaveAndExit"_s).trigger();
    ASSERT_FALSE(window().Editing());
  };
  editScene(u"Planned anew"_s);
  // A copy beside the project file doesn't stand for it.
  toolkit.expectBox(u"File saved to "_s);
  trigger("mnuSaveToSingleFile");
  trigger("mnuCloseProject");
  EXPECT_TRUE(fileBytes(path).contains("Planned%20anew"));
  toolkit.expectFile(single);
  toolkit.expectBox(u"You've loaded an all-in-one"_s);
  trigger("mnuLoadProj");
  toolkit.expectChoice(u"You opened Small.qnc4"_s, u"Replace"_s);
  editScene(u"From a single file"_s);
  trigger("mnuCloseProject");
  EXPECT_TRUE(fileBytes(path).contains("From%20a%20single%20file"));
}

TEST_F(ProjectCommandsTest, ABookThatCouldNotBeSavedIsReplacedOnlyWhenTheUserSaysSo) {
  const QString path = smallProject();
  startWith(path);
  const QString question = u"The project could not be saved whole."_s;
  // As it is after a save that failed and was given up.
  g_Project->FileWithPath.clear();
  toolkit.expectFile({});
  toolkit.expectBox(u"No project file specified. Save cancelled."_s);
  toolkit.expectBox(question, Answer::No);
  EXPECT_FALSE(window().session().CloseProject());
  EXPECT_EQ(g_Project->SceneCount(), 5);
  g_Project->FileWithPath = path;
  // The file of a scene can't be written.
  const QString file = g_Project->SceneByID(1)->RTFFileWithPath();
  const QByteArray text = simpleRtf(QByteArray("not lost ").repeated(20000));
  g_Project->SceneByID(1)->setTextRTF(text);
  FailingDisk disk(100000);
  window().SaveProject(false);
  ASSERT_FALSE(window().ProjectChanged);
  for (const char* command : {"mnuLoadProj", "mnuNewProj", "mnuRecent(1)"}) {
    toolkit.expectBox(question, Answer::No);
    trigger(command);
    EXPECT_EQ(g_Project->SceneByID(1)->TextRTF(), text) << command;
  }
  disk.clear();
  trigger("mnuCloseProject");
  EXPECT_EQ(g_Project->SceneCount(), 0);
  EXPECT_EQ(fileBytes(file), text);
}

TEST_F(ProjectCommandsTest, AnEmptyProjectIsMadeWhereTheUserSays) {
  startWith(smallProject());
  const QString path = folder.path(u"New/Fresh.qn4"_s);
  toolkit.expectFile(path);
  trigger("mnuNewProj");
  EXPECT_EQ(g_Project->FileWithPath, path);
  EXPECT_TRUE(QFile::exists(path));
  EXPECT_TRUE(isEnabled("mnuSaveProj"));
  EXPECT_EQ(list("ListChapters").rowCount(), 0);
  EXPECT_EQ(Settings().sGet(u"LastProjectFile"_s).toString(), path);

  toolkit.expectFile({});
  toolkit.expectBox(u"No project file specified. Save cancelled."_s);
  trigger("mnuNewProj");
  EXPECT_TRUE(g_Project->FileWithPath.isEmpty());
  EXPECT_FALSE(isEnabled("mnuSaveProj"));
}

TEST_F(ProjectCommandsTest, TheTickStaysWithTheFontThatIsInUse) {
  startWith(smallProject());
  const char* inUse = "mnuFont(2)";
  for (const char* entry : {"mnuFont(3)", "mnuFont(5)", "mnuFont(2)", "mnuFont(2)", "mnuFont(0)"}) {
    trigger(entry);
    const QString family = control<QAction>(entry).data().toString();
    const bool installed = qstrcmp(entry, "mnuFont(2)") == 0 || QFontDatabase::hasFamily(family);
    inUse = installed ? entry : inUse;
    EXPECT_EQ(Settings().sGet(u"FormFont"_s).toString(), family);
    EXPECT_EQ(panel("numberfiles"),
              installed ? QString() : u"The font "_s + family + u" isn't installed on this computer."_s);
    for (const QAction* font : control<QMenu>("mnuFontmnu").actions()) {
      EXPECT_EQ(font->isChecked(), font->objectName() == QLatin1String(inUse)) << font->objectName() << entry;
    }
  }
}
