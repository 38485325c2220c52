// Projects of the generations before, opened and imported by the commands of the window.

#include "core/infra/FolderLock.h"
#include "core/infra/Paths.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/text/Rtf.h"
#include "gui/editor/frmEditor.h"
#include "gui/shell/MainWindow.h"
#include "support/OlderProjects.h"
#include "support/SampleProject.h"

#include <QAction>
#include <QFile>
#include <QFileInfo>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace {

const QString kConvert = u"your Quillane3 project will be converted to Quillane4 format. Are you sure?"_s;

}  // namespace

class OlderProjectCommandsTest : public ShellTest {
 protected:
  void expectConversion() {
    toolkit.expectBox(kConvert, Answer::Yes);
    toolkit.expectBox(u"READ THIS CAREFULLY!"_s);
    toolkit.expectBox(u"none.txt"_s);
  }
  /// The menus, the lists and the list of recent projects go with this book.
  void expectShown(const QString& file, const QString& title, int chapters) {
    EXPECT_EQ(g_Project->FileWithPath, file);
    EXPECT_EQ(control<QLineEdit>("txtTitle").text(), title);
    EXPECT_EQ(list("ListChapters").rowCount(), chapters);
    EXPECT_TRUE(isEnabled("mnuSaveProj"));
    EXPECT_FALSE(window().ProjectChanged || g_Project->HoldsUnsaved() || g_Project->IsBusy());
    EXPECT_EQ(Settings().sGet(u"Recent0"_s).toString(), file);
    EXPECT_FALSE(settingsText().toLower().contains(u"old book.qn3"_s));
  }

  QString older = folder.path(u"older/Old book.qn3"_s);
  QString converted = folder.path(u"older/Old book.qn4"_s);
};

TEST_F(OlderProjectCommandsTest, AnOlderProjectIsConvertedOnlyAfterAYes) {
  writeGeneration3(folder.path(u"older"_s));
  const QString path = smallProject();
  writeSettings({u"Recent0,"_s + older});
  start(path);
  window().EditSelectedScene();
  for (const char* command : {"mnuLoadProj", "mnuImportQuillane3", "mnuRecent(2)"}) {
    if (qstrcmp(command, "mnuRecent(2)") != 0) {
      toolkit.expectFile(older);
    }
    toolkit.expectBox(kConvert, Answer::No);
    trigger(command);
    EXPECT_EQ(g_Project->FileWithPath, path) << command;
    EXPECT_EQ(list("ListChapters").rowCount(), 3) << command;
    EXPECT_NE(editor(), nullptr) << command;
    EXPECT_TRUE(QFile::exists(older) && !QFile::exists(converted)) << command;
  }
}

TEST_F(OlderProjectCommandsTest, AConversionThatIsGivenUpLeavesTheFormerBookOpen) {
  writeGeneration3(folder.path(u"older"_s));
  writeFile(converted, "another");
  const QString former = smallProject();
  startWith(former);
  toolkit.expectFile(older);
  toolkit.expectBox(kConvert, Answer::Yes);
  toolkit.expectChoice(u"Saved here it would replace"_s, {});
  toolkit.expectBox(u"so nothing has changed"_s);
  trigger("mnuImportQuillane3");
  EXPECT_EQ(g_Project->FileWithPath, former);
  EXPECT_EQ(list("ListChapters").rowCount(), 3);
}

TEST_F(OlderProjectCommandsTest, OpenConvertsAndShowsTheBook) {
  writeGeneration3(folder.path(u"older"_s));
  startWith(smallProject());
  toolkit.expectFile(older);
  expectConversion();
  trigger("mnuLoadProj");
  expectShown(converted, u"The old book"_s, 2);
  EXPECT_TRUE(QFile::exists(older + u".bak"_s));
  click(list("ListChapters"), 0);
  EXPECT_EQ(list("ListScenes").rowCount(), 2);
  EXPECT_FALSE(toolkit.askedWhileHeld);
}

TEST_F(OlderProjectCommandsTest, ImportingGeneration3RemembersTheFolder) {
  writeGeneration3(folder.path(u"older"_s));
  startWith({});
  toolkit.expectFile({});
  trigger("mnuImportQuillane3");
  EXPECT_EQ(toolkit.fileQuestions.last().folder, Paths::documentsFolder());
  toolkit.expectFile(older);
  expectConversion();
  trigger("mnuImportQuillane3");
  EXPECT_EQ(toolkit.fileQuestions.last().filter, u"*.qn3"_s);
  expectShown(converted, u"The old book"_s, 2);
  toolkit.expectFile({});
  trigger("mnuImportQuillane3");
  EXPECT_EQ(toolkit.fileQuestions.last().folder, folder.path(u"older/"_s));
}

// A book without a file, with an editor open: nothing of it stands anywhere else.
TEST_F(OlderProjectCommandsTest, WhatCannotBeImportedLeavesTheOpenBookAsItIs) {
  const QString path = writeGeneration2(folder.path(u"older"_s));
  startWith(smallProject());
  window().EditSelectedScene();
  g_Project->FileWithPath.clear();
  const clsProject* book = g_Project.get();
  for (const char* command : {"mnuImportQuillane3", "mnuImportQuillane2"}) {
    toolkit.expectFile({});
    toolkit.expectBox(u"No project file specified. Save cancelled."_s);
    toolkit.expectBox(u"What isn't saved is lost if you go on."_s, Answer::Yes);
    if (qstrcmp(command, "mnuImportQuillane3") == 0) {
      toolkit.expectFile(folder.path(u"Old book.qn3.bak"_s));
      toolkit.expectBox(u"is not a Quillane 3 project"_s);
    } else {
      toolkit.expectFile(path);
      toolkit.expectBox(u"EMPTY folder"_s);
      toolkit.expectFile({});
      toolkit.expectBox(u"No project file specified. Save cancelled."_s);
    }
    trigger(command);
    EXPECT_TRUE(g_Project.get() == book && !g_Project->IsBusy()) << command;
    EXPECT_EQ(list("ListChapters").rowCount(), 3) << command;
    EXPECT_NE(editor(), nullptr) << command;
    EXPECT_TRUE(isEnabled("mnuSaveProj")) << command;
  }
}

TEST_F(OlderProjectCommandsTest, GivenOnTheCommandLineItIsAskedAboutToo) {
  writeGeneration3(folder.path(u"older"_s));
  expectConversion();
  startWith(older);
  expectShown(converted, u"The old book"_s, 2);
}

TEST_F(OlderProjectCommandsTest, Generation2IsImportedIntoANewBook) {
  const QString path = writeGeneration2(folder.path(u"older"_s));
  const QMap<QString, QByteArray> before = filesBelow(folder.path(u"older"_s));
  const QString former = smallProject();
  startWith(former);
  const auto suggestion = u"I STRONGLY SUGGEST you create the Quillane 4 project in an EMPTY folder"_s;
  for (const char* step : {"no file", "no project", "no place"}) {
    if (qstrcmp(step, "no file") == 0) {
      toolkit.expectFile({});
    } else if (qstrcmp(step, "no project") == 0) {
      writeFile(folder.path(u"Other.qnp"_s), "Title\nOne,x,gone.txt\n");
      toolkit.expectFile(folder.path(u"Other.qnp"_s));
      toolkit.expectBox(u"No chapter of the Quillane 2 project"_s);
    } else {
      toolkit.expectFile(path);
      toolkit.expectBox(suggestion);
      toolkit.expectFile({});
      toolkit.expectBox(u"No project file specified. Save cancelled."_s);
    }
    trigger("mnuImportQuillane2");
    EXPECT_EQ(g_Project->FileWithPath, former) << step;
    EXPECT_EQ(list("ListChapters").rowCount(), 3) << step;
    EXPECT_TRUE(isEnabled("mnuSaveProj")) << step;
  }
  const QString place = folder.path(u"new/Book.qn4"_s);
  toolkit.expectFile(path);
  toolkit.expectBox(suggestion);
  toolkit.expectFile(place);
  toolkit.expectBox(u"Three (gone.txt)"_s);
  trigger("mnuImportQuillane2");
  EXPECT_EQ(toolkit.fileQuestions[toolkit.fileQuestions.size() - 2].filter, u"*.QNP"_s);
  expectShown(place, u"\"My\" first, book"_s, 3);
  EXPECT_TRUE(toolkit.progressCaptions.contains(u"Importing Chapter 3"_s) && !toolkit.askedWhileHeld);
  EXPECT_TRUE(filesBelow(folder.path(u"older"_s)) == before);
  ASSERT_TRUE(g_Project->Load(place, false));
  EXPECT_EQ(sceneAt(1)->ConvertedToBodyText(), u"Café {at} the \\gate.\r\nSecond line."_s);
  EXPECT_EQ(sceneAt(1)->ViewPointChar()->Title(), u"ANN/LEE"_s);
}

TEST_F(OlderProjectCommandsTest, ASceneWithMarkedScenesInItsTextBecomesThose) {
  startWith(smallProject());
  click(list("ListScenes"), 0);
  toolkit.expectBox(u"I can't see any [SCENE] marks"_s);
  trigger("mnuConvQN2Scn");
  const auto source = sceneAt(1);
  const QByteArray text =
      writeRtf(RichText::fromPlain(u"[SCENE][ACTOR:New][DESC:A]Über\n[SCENE][DESC:B][GOAL:g]two words"_s));
  source->setTextRTF(text);
  const qint32 characters = g_Project->CharCount();
  trigger("mnuConvQN2Scn");
  const auto& ids = chapterAt(1)->SceneIDs();
  const auto first = g_Project->SceneByID(ids.at(2));
  const auto second = g_Project->SceneByID(ids.at(3));
  EXPECT_EQ(source->TextRTF(), text);
  EXPECT_EQ(first->Title + u'|' + first->ConvertedToBodyText(), u"A|Über"_s);
  EXPECT_EQ(first->ViewPointChar()->Title(), u"NEW"_s);
  EXPECT_EQ(g_Project->CharCount(), characters + 1);
  EXPECT_EQ(second->Title + u'|' + second->Goal + u'|' + second->ConvertedToBodyText(), u"B|g|two words"_s);
  EXPECT_EQ(second->ViewPointID(), source->ViewPointID());
  EXPECT_TRUE(QFile::exists(second->RTFFileWithPath()));
  EXPECT_FALSE(g_Project->HoldsUnsaved());
  const QString other = smallProject(u"Other"_s);
  const FolderLock elsewhere(QFileInfo(other).path());
  toolkit.expectChoice(u"This book is open already"_s, u"Open read-only"_s);
  window().LoadProject(other, false);
  click(list("ListScenes"), 0);
  sceneAt(1)->setTextRTF(text);
  toolkit.expectBox(u"no scene can be converted"_s);
  trigger("mnuConvQN2Scn");
}
