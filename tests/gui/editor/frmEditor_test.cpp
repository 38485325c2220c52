// The window's life: opening, saving, closing, what marks it changed, what the model holds afterwards.

#include "gui/editor/frmEditor.h"

#include "core/infra/cSHAREDSettings.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/persist/ProjectSaver.h"
#include "core/text/Rtf.h"
#include "gui/editor/EditorPlacement.h"
#include "gui/editor/EditorWindow.h"
#include "gui/toolkit/MemoEdit.h"
#include "gui/toolkit/RichTextBox.h"
#include "support/ModalHelper.h"
#include "support/SampleProject.h"
#include "support/WaitFor.h"

#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString kQuestion = u"File has been changed.  Save it?"_s;

TEST_F(EditorTest, ShowsTheSceneAndLocksIt) {
  scene()->Title = u"The [*] star"_s;
  scene()->DescText = u"Two\r\nlines"_s;
  frmEditor* const editor = open();
  EXPECT_TRUE(editor->isVisible());
  EXPECT_TRUE(scene()->Locked());
  EXPECT_EQ(control<QLineEdit>(*editor, "txtTitle").text(), u"The [*] star"_s);
  EXPECT_EQ(control<MemoEdit>(*editor, "txtDesc").Text(), u"Two\r\nlines"_s);
  EXPECT_EQ(control<RichTextBox>(*editor, "txtMain").Text(), u"one two three"_s);
  EXPECT_EQ(panel(*editor, 2), u"Chapter: 5 words"_s);
  EXPECT_EQ(panel(*editor, 3), u"Scene: 3 words"_s);
}

TEST_F(EditorTest, TypedTextReachesSceneAndFileOnCtrlS) {
  frmEditor* const editor = open();
  type(*editor, u" and four"_s);
  control<QLineEdit>(*editor, "txtTitle").setFocus();
  QTest::keyClicks(&control<QLineEdit>(*editor, "txtTitle"), u"1: "_s);
  EXPECT_EQ(textInFile(), u"one two three"_s);
  QTest::keyClick(&control<RichTextBox>(*editor, "txtMain"), Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(scene()->ConvertedToBodyText(), u"one two three and four"_s);
  EXPECT_EQ(textInFile(), u"one two three and four"_s);
  EXPECT_FALSE(scene()->RTFChanged());
  EXPECT_EQ(scene()->Title, u"1: Arrival 1"_s);
  EXPECT_EQ(scene()->Wordcount(), 5);
  EXPECT_EQ(panel(*editor, 2), u"Chapter: 7 words"_s);
  EXPECT_TRUE(g_SceneChanges.HasChanged(1, ChangeArea::MainWindow));
  EXPECT_TRUE(scene()->Locked());
  editor->close();
  EXPECT_TRUE(scene()->SavedByEditor);
}

TEST_F(EditorTest, ClosingAnUneditedSceneAsksNothingAndLeavesItAlone) {
  const QByteArray before = scene()->TextRTF();
  frmEditor* const editor = open();
  trigger(*editor, "mnuExit");
  EXPECT_FALSE(editor->isVisible());
  EXPECT_EQ(scene()->TextRTF(), before);
  EXPECT_FALSE(scene()->SavedByEditor);
  EXPECT_FALSE(scene()->Locked());
  EXPECT_FALSE(scene()->EditingScene());
  EXPECT_TRUE(g_SceneChanges.HasChanged(1, ChangeArea::MainWindow));
  deleteUnloaded();
  EXPECT_TRUE(editorWindows().isEmpty());
}

TEST_F(EditorTest, ClosingAnEditedSceneSavesOnYes) {
  frmEditor* const editor = open();
  type(*editor, u"!"_s);
  toolkit.expectBox(kQuestion, Answer::Cancel);
  editor->close();
  EXPECT_TRUE(editor->isVisible() && scene()->Locked()) << "closed without an answer the question keeps the window";
  toolkit.expectBox(kQuestion, Answer::Yes);
  editor->close();
  EXPECT_EQ(textInFile(), u"one two three!"_s);
  EXPECT_TRUE(scene()->SavedByEditor);
  EXPECT_FALSE(scene()->Locked());
}

TEST_F(EditorTest, ClosingAnEditedSceneKeepsTheOldOneOnNo) {
  frmEditor* const editor = open();
  trigger(*editor, "mnuSave");
  type(*editor, u"!"_s);
  toolkit.expectBox(kQuestion, Answer::No);
  trigger(*editor, "mnuExit");
  EXPECT_EQ(scene()->ConvertedToBodyText(), u"one two three"_s);
  EXPECT_EQ(textInFile(), u"one two three"_s);
  EXPECT_FALSE(scene()->SavedByEditor) << "the answer No counts, not the save before";
  EXPECT_FALSE(scene()->Locked());
}

TEST_F(EditorTest, OpeningTwiceBringsTheSameWindowForward) {
  frmEditor* const editor = open();
  type(*editor, u" typed"_s);
  editor->showMinimized();
  scene()->Edit();
  EXPECT_EQ(editorWindows(), QList<frmEditor*>{editor});
  EXPECT_TRUE(editor->isVisible());
  EXPECT_FALSE(editor->isMinimized());
  EXPECT_EQ(control<RichTextBox>(*editor, "txtMain").Text(), u"one two three typed"_s);
}

TEST_F(EditorTest, WhatTheUserDoesToTheFieldsMarksTheWindowChanged) {
  using Act = std::function<void(frmEditor&)>;
  const std::tuple<const char*, Act, bool> cases[] = {
      {"paste into the title",
       [this](frmEditor& editor) {
         control<QLineEdit>(editor, "txtTitle").selectAll();
         control<QLineEdit>(editor, "txtTitle").insert(u"pasted"_s);
         control<QLineEdit>(editor, "txtTitle").cut();
       },
       true},
      {"caret in the text",
       [this](frmEditor& editor) { QTest::keyClick(&control<RichTextBox>(editor, "txtMain"), Qt::Key_Right); }, false},
      {"bold",
       [this](frmEditor& editor) {
         control<RichTextBox>(editor, "txtMain").selectAll();
         QTest::keyClick(&control<RichTextBox>(editor, "txtMain"), Qt::Key_B, Qt::ControlModifier);
       },
       true},
  };
  for (const auto& one : cases) {
    SCOPED_TRACE(std::get<0>(one));
    frmEditor* const editor = open();
    std::get<1>(one)(*editor);
    if (std::get<2>(one)) {
      toolkit.expectBox(kQuestion, Answer::No);
    }
    editor->close();
    deleteUnloaded();
  }
}

TEST_F(EditorTest, SaveAndExitSavesWithoutAskingAndKeepsTheWindowsSettings) {
  frmEditor* editor = open();
  editor->resize(800, 600);
  editor->move(120, 90);
  type(*editor, u"!"_s);
  click(*editor, "cmdSaveAndExit");
  EXPECT_EQ(textInFile(), u"one two three!"_s);
  EXPECT_TRUE(scene()->SavedByEditor);
  EXPECT_FALSE(scene()->Locked());
  EXPECT_TRUE(Settings().IsSettingPresent(u"EditorFG"_s)) << "the colours, too";
  deleteUnloaded();
  editor = open(2);
  EXPECT_EQ(editor->size(), QSize(800, 600));
  EXPECT_EQ(editor->pos(), QPoint(120, 90));
}

TEST_F(EditorTest, TheWordsAreCountedAWhileAfterTypingStops) {
  frmEditor* const editor = open();
  type(*editor, u" four"_s);
  EXPECT_EQ(panel(*editor, 3), u"Scene: 3 words"_s);
  EXPECT_TRUE(waitFor([&] { return panel(*editor, 3) == u"Scene: 4 words"_s; }));
  EXPECT_EQ(panel(*editor, 2), u"Chapter: 6 words"_s);
}

TEST_F(EditorTest, AnEmptySceneIsCountedAndSaved) {
  scene()->setTextRTF({});
  frmEditor* const editor = open();
  EXPECT_EQ(panel(*editor, 3), u"Scene: 0 words"_s);
  EXPECT_EQ(panel(*editor, 2), u"Chapter: 2 words"_s);
  trigger(*editor, "mnuSave");
  EXPECT_EQ(scene()->ConvertedToBodyText(), QString());
  EXPECT_EQ(textInFile(), QString()) << "the file held three words";
}

TEST_F(EditorTest, ANewSceneIsWrittenInAModalWindow) {
  {
    const WhenModal write([&](QWidget& window) {
      auto& editor = dynamic_cast<frmEditor&>(window);
      type(editor, u"new words"_s);
      trigger(editor, "mnuSaveAndExit");
    });
    EXPECT_TRUE(g_Project->CreateNewScene(1, 0));
  }
  const qint32 id = g_Project->ChapterByID(1)->SceneID(3);
  EXPECT_EQ(textInFile(id), u"new words"_s);
  EXPECT_FALSE(scene(id)->Locked());
  const WhenModal cancel([&](QWidget& window) { window.close(); });
  EXPECT_FALSE(g_Project->CreateNewScene(1, 0));
  EXPECT_EQ(g_Project->ChapterByID(1)->SceneCount(), 3);
}

TEST_F(EditorTest, ATextThatWasNotReadStaysUnreadWhenThePlanIsSaved) {
  ASSERT_TRUE(QDir(folder.path()).mkdir(u"alone"_s));
  const QString single = folder.path(u"alone/Single.qnc4"_s);
  ASSERT_TRUE(ProjectSaver(*g_Project).saveCopy(single));
  writeFile(single, fileBytes(single).replace(simpleRtf("one two three").toBase64(), "*not base64*"));
  toolkit.expectBox(u"You've loaded an all-in-one"_s);
  toolkit.expectBox(u"could not be read"_s);
  ASSERT_TRUE(g_Project->Load(single, false));
  ASSERT_TRUE(scene()->TextUnread());
  frmEditor* const editor = open();
  QTest::keyClicks(&control<QLineEdit>(*editor, "txtTitle"), u"New: "_s);
  toolkit.expectChoice(u"How do you want to save it?"_s, u"Replace"_s);
  trigger(*editor, "mnuSaveAndExit");
  EXPECT_TRUE(scene()->TextUnread());
}

TEST_F(EditorTest, ANewSceneThatWasSavedOnceIsKeptAsItWasThen) {
  toolkit.expectBox(kQuestion, Answer::No);
  {
    const WhenModal write([&](QWidget& window) {
      auto& editor = dynamic_cast<frmEditor&>(window);
      // A key reaches the menu of an active window alone.
      EXPECT_TRUE(waitUntilActive(editor));
      type(editor, u"saved"_s);
      QTest::keyClick(&editor, Qt::Key_S, Qt::ControlModifier);
      type(editor, u" and not saved"_s);
      editor.close();
    });
    EXPECT_TRUE(g_Project->CreateNewScene(1, 0));
  }
  EXPECT_EQ(textInFile(g_Project->ChapterByID(1)->SceneID(3)), u"saved"_s);
}

TEST_F(EditorTest, AnotherProgramsTextIsShownWhereTheWriterTakesIt) {
  frmEditor* const editor = open();
  type(*editor, u" mine"_s);
  writeFile(scene()->RTFFileWithPath(), simpleRtf("theirs"));
  toolkit.expectChoice(u"The text of 'Arrival 1'"_s, u"Take theirs"_s);
  QTest::keyClick(editor, Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(control<RichTextBox>(*editor, "txtMain").Text().trimmed(), u"theirs"_s);
  EXPECT_EQ(textInFile(), u"theirs"_s);
  editor->close();
  EXPECT_FALSE(scene()->EditingScene()) << "there is nothing to ask about";
}

TEST_F(EditorTest, WhoSavesASceneWithoutShowingItCannotTakeAnotherText) {
  frmEditor* const editor = open();
  type(*editor, u"x"_s);
  editor->FormToData(*scene());
  writeFile(scene()->RTFFileWithPath(), simpleRtf("theirs"));
  toolkit.expectChoice(u"To take the other, please close all editor windows first."_s, u"Keep both"_s);
  scene()->Save();
  EXPECT_EQ(textInFile(), u"one two threex"_s);
  trigger(*editor, "mnuSaveAndExit");
}

TEST_F(EditorTest, TheWindowStaysAsLongAsItsTextStandsNowhereElse) {
  frmEditor* const editor = open();
  type(*editor, u" unsaved"_s);
  const QString file = scene()->RTFFileWithPath();
  ASSERT_TRUE(QFile::remove(file) && QDir().mkpath(file));
  const auto told = [&] { toolkit.expectBox(u"The text of this scene could not be written to "_s + file); };
  told();
  trigger(*editor, "mnuSaveAndExit");
  EXPECT_TRUE(editor->isVisible());
  told();
  click(*editor, "cmdSaveAndExit");
  EXPECT_TRUE(editor->isVisible());
  toolkit.expectBox(u"File has been changed.  Save it?"_s, Answer::Yes);
  told();
  editor->close();
  EXPECT_TRUE(editor->isVisible());
  ASSERT_TRUE(QDir().rmdir(file));
  click(*editor, "cmdSaveAndExit");
  EXPECT_TRUE(textInFile().endsWith(u" unsaved"_s));
  EXPECT_FALSE(scene()->EditingScene());
}

TEST_F(EditorTest, WhatAFailedSaveLeftCanStillBeDroppedOrSaved) {
  const QByteArray before = scene()->TextRTF();
  const QString file = scene()->RTFFileWithPath();
  for (const bool dropped : {true, false}) {
    SCOPED_TRACE(dropped);
    frmEditor* const editor = open();
    type(*editor, u" typed"_s);
    ASSERT_TRUE(QFile::remove(file) && QDir().mkpath(file));
    toolkit.expectBox(u"The text of this scene could not be written to "_s + file);
    dropped ? trigger(*editor, "mnuSave") : click(*editor, "cmdSave");
    EXPECT_TRUE(editor->isWindowModified());
    ASSERT_TRUE(QDir().rmdir(file));
    writeFile(file, before);
    toolkit.expectBox(kQuestion, dropped ? Answer::No : Answer::Yes);
    editor->close();
    EXPECT_EQ(scene()->TextRTF() == before, dropped);
    EXPECT_EQ(textInFile(), dropped ? u"one two three"_s : u"one two three typed"_s);
    deleteUnloaded();
  }
}

TEST_F(EditorTest, TheTextsOfABookWithoutAFileAreKeptByTheBook) {
  const QString place = QDir::currentPath();
  ASSERT_TRUE(QDir(folder.path()).mkpath(u"here/RTF"_s) && QDir::setCurrent(folder.path(u"here"_s)));
  g_Project->FileWithPath.clear();
  frmEditor* const editor = open();
  type(*editor, u" kept"_s);
  click(*editor, "cmdSave");
  EXPECT_EQ(panel(*editor, 1), u"No file yet: kept in the rescue folder"_s);
  click(*editor, "cmdSaveAndExit");
  EXPECT_TRUE(QDir::setCurrent(place));
  EXPECT_FALSE(scene()->EditingScene());
  EXPECT_TRUE(scene()->ConvertedToBodyText().endsWith(u" kept"_s));
  EXPECT_TRUE(scene()->RTFChanged()) << "it is due at the first save";
  EXPECT_EQ(filesBelow(folder.path(u"here"_s)).size(), 0) << "written where the program happened to stand";
}

TEST_F(EditorTest, ASceneThatWasTakenOutOfTheBookIsNotSavedAsAnother) {
  frmEditor* const editor = open();
  type(*editor, u"!"_s);
  // Somebody still holds it, so the window still has its listener.
  const auto taken = scene();
  g_Project->RemoveSceneByID(1);
  const QMap<QString, QByteArray> before = filesBelow(folder.path());
  toolkit.expectBox(u"Please copy its text to keep it."_s);
  trigger(*editor, "mnuSave");
  EXPECT_EQ(filesBelow(folder.path()), before);
  EXPECT_EQ(g_Project->SceneCount(), 4);
  toolkit.expectBox(kQuestion, Answer::No);
  editor->close();
  EXPECT_FALSE(editor->isVisible());
}

TEST_F(EditorTest, AWindowWhoseSceneHasGoneTakesNoWordsAndStillCloses) {
  frmEditor* const editor = open();
  type(*editor, u"!"_s);
  newProject();
  type(*editor, u" lost"_s);
  QTest::keyClicks(&control<QWidget>(*editor, "txtDesc"), u"lost"_s);
  EXPECT_TRUE(control<RichTextBox>(*editor, "txtMain").Text().endsWith(u'!'));
  EXPECT_FALSE(control<QPlainTextEdit>(*editor, "txtDesc").toPlainText().contains(u"lost"_s));
  const QMap<QString, QByteArray> before = filesBelow(folder.path());
  toolkit.expectBox(kQuestion, Answer::Yes);
  toolkit.expectBox(u"Please copy its text to keep it."_s);
  editor->close();
  EXPECT_TRUE(editor->isVisible()) << "the words are still there to be copied";
  toolkit.expectBox(kQuestion, Answer::No);
  editor->close();
  EXPECT_FALSE(editor->isVisible());
  deleteUnloaded();
  EXPECT_TRUE(editorWindows().isEmpty());
  EXPECT_EQ(filesBelow(folder.path()), before);
}

}  // namespace
