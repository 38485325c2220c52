// The way out: what refuses it, and what it stores.

#include "core/infra/Clock.h"
#include "core/infra/FolderLock.h"
#include "core/infra/Paths.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/spell/WordListArchive.h"
#include "gui/editor/DictionaryInstaller.h"
#include "gui/editor/frmEditor.h"
#include "gui/shell/MainWindow.h"
#include "gui/shell/life/EndSignals.h"
#include "gui/shell/main/MainPanes.h"
#include "gui/shell/main/ScenePane.h"
#include "gui/toolkit/RichTextBox.h"
#include "support/FailingDisk.h"
#include "support/ModalHelper.h"
#include "support/SampleProject.h"
#include "support/TestHome.h"
#include "support/WaitFor.h"
#include "support/WebServer.h"

#include <QCryptographicHash>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QHeaderView>
#include <QLineEdit>
#include <QSplitter>
#include <QTest>
#include <QTimer>

#include <csignal>

using namespace Qt::StringLiterals;

class ShutDownTest : public ShellTest {
 protected:
  /// Drags the bar between scenes and tabs with the mouse to a part of their width.
  void dragSplitterTo(double part) {
    auto& bar = control<QWidget>("imgHorDivide");
    const int place = qRound(control<QSplitter>("SceneSplitter").width() * part);
    QTest::mousePress(&bar, Qt::LeftButton, {}, {0, 5});
    QTest::mouseMove(&bar, {place - bar.x(), 5});
    QTest::mouseRelease(&bar, Qt::LeftButton, {}, {0, 5});
  }
};

TEST_F(ShutDownTest, IsRefusedWhileASceneIsOpen) {
  startWith(smallProject());
  window().EditSelectedScene();
  openEditor().hide();
  for (int way = 0; way < 2; ++way) {
    toolkit.expectBox(u"Please close all editor windows first"_s);
    way == 0 ? static_cast<void>(window().close()) : window().mnuConfirmExit_Click();
    EXPECT_EQ(ended, 0);
    EXPECT_TRUE(window().isVisible());
    ASSERT_NE(editor(), nullptr) << "the editor comes forward";
  }
}

TEST_F(ShutDownTest, SavesTheProjectAlwaysAndAsksNothing) {
  const QString path = smallProject();
  startWith(path);
  EXPECT_FALSE(window().ProjectChanged);
  g_Project->DescText = u"Behind the window's back"_s;
  window().close();
  EXPECT_EQ(ended, 1);
  EXPECT_FALSE(window().isVisible());
  EXPECT_TRUE(fileBytes(path).contains("Behind%20the%20window%27s%20back"));
  EXPECT_TRUE(g_Project->FileWithPath.isEmpty());
  EXPECT_TRUE(settingsText().contains(u"LASTPROJECTFILE,"_s + path));
  EXPECT_TRUE(settingsText().contains(u"RECENT0,"_s + path));
}

TEST_F(ShutDownTest, AsksOnceMoreForAFileWhenASaveWasGivenUp) {
  startWith(smallProject());
  g_Project->FileWithPath.clear();
  const ScratchFolder elsewhere;
  toolkit.expectFile(elsewhere.path(u"Kept.qn4"_s));
  window().close();
  EXPECT_EQ(ended, 1);
  EXPECT_EQ(filesBelow(elsewhere.path()).size(), 6);
}

TEST_F(ShutDownTest, TellsOfScenesWhoseFilesCannotBeWritten) {
  startWith(smallProject());
  const auto scene = sceneAt(1);
  const QByteArray text = simpleRtf(QByteArray("not lost ").repeated(20000));
  scene->setTextRTF(text);
  const FailingDisk disk(100000);
  toolkit.expectBox(u"The text of 1 scene(s) could not be written to"_s, Answer::No);
  window().close();
  EXPECT_EQ(ended, 0) << "the user stays with the text";
  EXPECT_TRUE(window().isVisible());
  EXPECT_EQ(scene->TextRTF(), text);
  EXPECT_EQ(toolkit.lastButtons, Buttons::NoUnlessYes) << "Enter and Escape must not drop it";
  EXPECT_TRUE(window().isWindowModified());
  toolkit.expectBox(u"The text of these scenes could not be written to"_s);
  trigger("mnuSaveProj");
  EXPECT_TRUE(toolkit.boxes.constLast().endsWith(scene->Title));
  EXPECT_EQ(panel("numberfiles"), u"Not saved: the text of 1 scene(s) could not be written"_s);
  toolkit.expectBox(u"The text of 1 scene(s) could not be written to"_s, Answer::Yes);
  window().close();
  EXPECT_EQ(ended, 1);
}

TEST_F(ShutDownTest, ABookThatCouldNotBeSavedIsTriedAgainAndNotDroppedWithoutAWord) {
  const QString path = smallProject();
  startWith(path);
  ASSERT_TRUE(QFile::remove(path) && QDir().mkpath(path));
  control<QLineEdit>("txtTitle").setText(u"Anew"_s);
  for (int tries = 0; tries < 2; ++tries) {
    toolkit.expectBox(u"Unable to save project."_s);
    toolkit.expectFile({});
    toolkit.expectBox(u"No project file specified. Save cancelled."_s);
    if (tries == 0) {
      trigger("mnuSaveProj");
      EXPECT_EQ(g_Project->FileWithPath, path) << "the next save tries the same place";
      EXPECT_TRUE(window().isWindowModified());
    }
  }
  toolkit.expectBox(u"The book isn't saved."_s, Answer::No);
  window().close();
  EXPECT_EQ(ended, 0);
  ASSERT_TRUE(QDir().rmdir(path));
  window().close();
  EXPECT_EQ(ended, 1);
  EXPECT_TRUE(fileBytes(path).contains("<Title>Anew</Title>"));
}

TEST_F(ShutDownTest, EndedByTheSystemItSavesWhatIsTypedWithoutAQuestion) {
  const QString path = smallProject();
  startWith(path);
  control<QLineEdit>("txtTitle").setText(u"Saved in time"_s);
  window().EditSelectedScene();
  auto& text = childOf<RichTextBox>(openEditor(), u"txtMain"_s);
  text.moveCursor(QTextCursor::End);
  QTest::keyClicks(&text, u" typed last"_s);
  const EndSignals signals([this] { window().EndAtOnce(); });
  ASSERT_EQ(std::raise(SIGTERM), 0);
  ASSERT_TRUE(soon([this] { return ended == 1; }));
  EXPECT_TRUE(fileBytes(path).contains("<Title>Saved%20in%20time</Title>"));
  const auto files = filesBelow(QFileInfo(path).path());
  EXPECT_TRUE(files.value(u"RTF/RTF_00001.rtf"_s).contains("typed last"));
  const QString backup = u"Autobackups/"_s + Clock::today().toString(Qt::ISODate) + u"/RTF_00001_Scene_1.rtf"_s;
  EXPECT_TRUE(files.value(backup).contains("typed last"));
  EXPECT_TRUE(logText().contains(u"Ended by the system"_s));
  EXPECT_TRUE(logText().endsWith(u", Program ended\r\n"_s));
}

TEST_F(ShutDownTest, EndedByTheSystemItSavesWhatIsTypedOnASheet) {
  const QString path = smallProject();
  startWith(path);
  const WhenModal whenUp([this](QWidget& sheet) {
    childOf<QLineEdit>(sheet, u"txtTitle"_s).setText(u"Typed last"_s);
    window().EndAtOnce();
    dynamic_cast<QDialog&>(sheet).done(QDialog::Rejected);
  });
  g_Project->ChapterByID(1)->Edit();
  EXPECT_EQ(ended, 1);
  EXPECT_TRUE(fileBytes(path).contains("Typed%20last"));
}

TEST_F(ShutDownTest, EndedByTheSystemItSavesANewSceneThatIsBeingWritten) {
  const QString path = smallProject();
  startWith(path);
  sceneAt(1)->Edit();
  QAction& insert = childOf<QAction>(openEditor(), u"mnuInsertScene"_s);
  const WhenModal whenUp([this](QWidget& editor) {
    QTest::keyClicks(&childOf<RichTextBox>(editor, u"txtMain"_s), u"words of a new scene"_s);
    window().EndAtOnce();
    QCoreApplication::exit();
  });
  insert.trigger();
  // Behind this the program's loops run again.
  QTimer::singleShot(0, qApp, &QCoreApplication::quit);
  QCoreApplication::exec();
  ASSERT_EQ(ended, 1);
  const auto files = filesBelow(QFileInfo(path).path());
  const auto written = std::find_if(files.begin(), files.end(), [](const QByteArray& text) {
    return text.startsWith("{\\rtf") && text.contains("words of a new scene");
  });
  ASSERT_NE(written, files.end());
  EXPECT_TRUE(fileBytes(path).contains("RTF_00006.rtf")) << "the book names it";
}

TEST_F(ShutDownTest, EndedByTheSystemItKeepsABookThatHasNoPlaceAndSaysSoAtTheNextStart) {
  const QString path = smallProject();
  startWith(path);
  sceneAt(1)->setTextRTF(simpleRtf("in memory alone"));
  ASSERT_TRUE(QDir().rename(QFileInfo(path).path(), folder.path(u"away"_s)));
  window().EndAtOnce();
  const QString rescued = elementOf(Settings().sGet(u"RescuedBook"_s).toString().split(u'\n'), 0);
  EXPECT_TRUE(fileBytes(rescued).contains(simpleRtf("in memory alone").toBase64()));
  ASSERT_FALSE(QFile::exists(path)) << "made anew";
  toolkit.expectChoice(rescued, u"Later"_s);
  start();
  window().EndAtOnce();
  toolkit.expectChoice(rescued, u"Open it now"_s);
  toolkit.expectBox(u"You've loaded an all-in-one"_s);
  start();
  EXPECT_EQ(Settings().sGet(u"RescuedBook"_s).toString(), QString());
  EXPECT_EQ(sceneAt(1)->TextRTF(), simpleRtf("in memory alone"));
  // It has no place of its own yet.
  toolkit.expectFile(folder.path(u"found/Found.qn4"_s));
  trigger("mnuSaveProj");
  EXPECT_EQ(filesBelow(folder.path(u"found"_s)).size(), 6);
}

// The question is cancelled, and what it was about is saved without one.
TEST_F(ShutDownTest, EndedByTheSystemInTheMiddleOfAQuestionItLosesNothing) {
  const QString path = smallProject();
  startWith(path);
  control<QLineEdit>("txtTitle").setText(u"Mine"_s);
  writeFile(path, fileBytes(path).replace("<Title>Arrival<", "<Title>Theirs<"));
  toolkit.expectChoice(u"The plan of the book"_s, QString());
  bool leftOpen = false;
  toolkit.onChoice = [&] {
    window().EndAtOnce();
    QDialog question;
    QTimer::singleShot(kPatience, &question, [&] {
      leftOpen = true;
      question.reject();
    });
    question.exec();
  };
  trigger("mnuSaveProj");
  EXPECT_FALSE(leftOpen);
  ASSERT_TRUE(soon([this] { return ended == 1; }));
  EXPECT_TRUE(fileBytes(path).contains("<Title>Mine</Title>"));
  const QStringList beside = QDir(QFileInfo(path).path()).entryList({u"Small (conflict *).qn4"_s});
  ASSERT_EQ(beside.size(), 1);
}

TEST_F(ShutDownTest, ACutOffBookThatWasOnlyLookedAtIsLeftAsItIs) {
  const QString path = smallProject();
  const QByteArray cut = fileBytes(path).chopped(20);
  writeFile(path, cut);
  for (const auto end : {&frmMain::EndProgram, &frmMain::EndAtOnce}) {
    toolkit.expectChoice(u"incomplete"_s, u"Open the file as it is"_s);
    startWith(path);
    (window().*end)();
    EXPECT_EQ(std::exchange(ended, 0), 1);
    EXPECT_EQ(fileBytes(path), cut);
    EXPECT_EQ(Settings().sGet(u"RescuedBook"_s).toString(), QString());
  }
}

TEST_F(ShutDownTest, WhatWasChangedInAReadOnlyBookIsAskedAbout) {
  const QString path = smallProject();
  const FolderLock elsewhere(QFileInfo(path).path());
  const QByteArray before = fileBytes(path);
  toolkit.expectChoice(u"This book is open already"_s, u"Open read-only"_s);
  startWith(path);
  EXPECT_TRUE(window().windowTitle().contains(u"(read-only)"_s));
  toolkit.expectBox(u"opened read-only, so nothing is saved"_s, Answer::No);
  trigger("mnuSaveProj");
  control<QLineEdit>("txtTitle").setText(u"Mine"_s);
  QTest::keyClick(&control<QLineEdit>("txtTitle"), Qt::Key_Return);
  toolkit.expectChoice(u"isn't saved"_s, u"Save under a new name"_s);
  toolkit.expectFile({});
  toolkit.expectChoice(u"isn't saved"_s, QString());
  window().EndProgram();
  EXPECT_EQ(ended, 0);
  const QString own = folder.path(u"own/Own.qn4"_s);
  toolkit.expectChoice(u"isn't saved"_s, u"Save under a new name"_s);
  toolkit.expectFile(own);
  window().EndProgram();
  EXPECT_EQ(ended, 1);
  EXPECT_EQ(fileBytes(path), before);
  EXPECT_TRUE(fileBytes(own).contains("<Title>Mine</Title>"));
}

TEST_F(ShutDownTest, KeepsTheLayoutForTheNextStart) {
  const QString path = smallProject();
  startWith(path);
  window().resize(760, 600);
  dragSplitterTo(1.0 / 3);
  list("ListScenes").setColumnWidth(2, 321);
  endProgram();
  const double stored = Settings().sGet(u"SplitPercent"_s).toDouble();
  EXPECT_NEAR(stored, 1.0 / 3, 0.02);
  start(path);
  EXPECT_EQ(window().size(), QSize(760, 600));
  EXPECT_EQ(list("ListScenes").columnWidth(2), 321);
  const ScenePane& pane = window().panes().scenes();
  EXPECT_NEAR(pane.splitterLeft() / pane.frameWidth(), stored, 0.01);
}

TEST_F(ShutDownTest, AMinimisedWindowLeavesTheSplitterAsItWasStored) {
  writeSettings({u"SplitPercent,.4"_s});
  start(smallProject());
  window().setWindowState(Qt::WindowMinimized);
  endProgram();
  EXPECT_TRUE(settingsText().contains(u"SPLITPERCENT,.4"_s));
}

TEST_F(ShutDownTest, AnInstallerThatIsNotStartedIsToldOf) {
  const QString installer = Paths::programFolder() + u"Quillane4Upd.exe"_s;
  const auto endWith = [&](const QByteArray& content, const QString& told) {
    startWith(smallProject());
    toolkit.expectBox(u"The installer will begin when you exit Quillane. If it doesn't, run "_s + installer +
                      u" manually."_s);
    writeFile(installer, content);
    window().Updater_InstallFile(QCryptographicHash::hash("as it came", QCryptographicHash::Sha256));
    toolkit.expectBox(told);
    window().close();
    EXPECT_TRUE(logText().contains(told));
    EXPECT_EQ(std::exchange(ended, 0), 1);
  };
  endWith("changed since", u"The installer isn't what was downloaded any more"_s);
  EXPECT_TRUE(toolkit.programsRun.isEmpty()) << "nothing else is started in its place";
  EXPECT_FALSE(QFile::exists(installer));
  toolkit.startsPrograms = false;
  endWith("as it came", u"The installer could not be started. Please run "_s + installer);
  QFile::remove(installer);
}

TEST_F(ShutDownTest, EndedByTheSystemItDoesNotWaitForADictionary) {
  const WebServer server({});
  startWith(smallProject());
  window().EditSelectedScene();
  WordListArchive::overrideAddress(server.address(u"/silent.zip"_s));
  toolkit.expectBox(u"This will download"_s, Answer::Yes);
  toolkit.onYield = [this] { window().EndAtOnce(); };
  childOf<QAction>(openEditor(), u"mnuInstallDictionary"_s).trigger();
  EXPECT_TRUE(soon([this] { return ended == 1 && !DictionaryInstaller::isRunning(); }));
  EXPECT_TRUE(logText().contains(u"Download cancelled"_s));
  WordListArchive::overrideAddress({});
}

TEST_F(ShutDownTest, AFatalErrorIsShownAndStillSaves) {
  const QString path = smallProject();
  startWith(path);
  g_Project->Title = u"Kept"_s;
  toolkit.expectBox(u"Something broke"_s);
  window().ShowFatalAndExit(u"Something broke"_s);
  EXPECT_EQ(ended, 1);
  EXPECT_TRUE(fileBytes(path).contains("<Title>Kept</Title>"));
}
