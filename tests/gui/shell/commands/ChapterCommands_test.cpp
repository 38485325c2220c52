// The commands that make, edit, mark and remove chapters.

#include "core/infra/FolderLock.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/editor/frmEditor.h"
#include "gui/shell/MainWindow.h"
#include "gui/shell/main/ChapterPane.h"
#include "gui/shell/main/MainPanes.h"
#include "support/ModalHelper.h"
#include "support/SampleProject.h"

#include <QFile>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTest>

using namespace Qt::StringLiterals;

class ChapterCommandsTest : public ShellTest {
 protected:
  const QString kRemove =
      u"This will remove the selected chapter(s) and their scenes from your project. Are you sure?"_s;

  void SetUp() override {
    ShellTest::SetUp();
    path = smallProject();
    startWith(path);
  }
  qint32 selectedChapter() { return window().panes().chapters().SelectedChapterID(); }
  /// Types a title into the chapter sheet that the act brings up, and confirms or cancels it.
  void editing(const QString& title, Qt::Key last, const std::function<void()>& act) const {
    const WhenModal whenUp([&](QWidget& sheet) {
      auto& field = childOf<QLineEdit>(sheet, u"txtTitle"_s);
      field.setText(title);
      QTest::keyClick(&field, last);
      EXPECT_FALSE(sheet.isVisible());
    });
    act();
  }
  static QStringList titles() {
    QStringList found;
    for (const auto& chapter : g_Project->Chapters) {
      found.append(chapter->Title);
    }
    return found;
  }

  QString path;
};

TEST_F(ChapterCommandsTest, ANewChapterIsSavedAndSelected) {
  editing(u"Epilogue"_s, Qt::Key_Return, [this] { trigger("mnuFileNew"); });
  EXPECT_EQ(cell("ListChapters", 3, 0), u"Epilogue"_s);
  EXPECT_EQ(selectedChapter(), 4);
  EXPECT_EQ(list("ListScenes").rowCount(), 0);
  EXPECT_TRUE(fileBytes(path).contains("Epilogue"));
  EXPECT_TRUE(window().ProjectChanged);
  window().ProjectChanged = false;
  toolkit.expectBox(u"Do you want to save the changes?"_s, Answer::No);
  editing(u"Another"_s, Qt::Key_Escape, [this] { trigger("mnuFileNew"); });
  EXPECT_EQ(g_Project->ChapterCount(), 4);
  EXPECT_FALSE(window().ProjectChanged);
}

TEST_F(ChapterCommandsTest, ANewChapterOfAReadOnlyBookIsAskedAboutWhenThatIsLeft) {
  endProgram();
  const FolderLock elsewhere(folder.path(u"Small"_s));
  toolkit.expectChoice(u"This book is open already"_s, u"Open read-only"_s);
  startWith(path);
  editing(u"Epilogue"_s, Qt::Key_Return, [this] { trigger("mnuFileNew"); });
  EXPECT_TRUE(window().isWindowModified());
  toolkit.expectChoice(u"isn't saved"_s, u"Leave it unsaved"_s);
  trigger("mnuCloseProject");
}

TEST_F(ChapterCommandsTest, ManyNewChaptersGoOnBehindTheHighestNumberThatATitleEndsIn) {
  const QStringList before{u"99"_s, u" Chapter 7  "_s, u"Chapter 12.9"_s};
  for (qint32 i = 1; i <= 3; ++i) {
    chapterAt(i)->Title = before[i - 1];
  }
  for (const QString& answer : {u""_s, u"two"_s, u"-1"_s, u"101"_s, u"40000"_s}) {
    toolkit.expectFile(answer);
    if (answer.toInt() > 100) {
      toolkit.expectBox(u"Please specify 100 chapters or less"_s);
    }
    trigger("mnuCreateChapters");
    EXPECT_EQ(titles(), before) << answer.toStdString();
    EXPECT_EQ(panel("numberfiles").contains(u"\"two\" is no number"), answer == u"two");
  }
  toolkit.expectFile(u" 2.5 "_s);
  trigger("mnuCreateChapters");
  EXPECT_EQ(titles(), before + QStringList({u"Chapter 13"_s, u"Chapter 14"_s}));
  EXPECT_EQ(panel("numberfiles"), u"Chapters 13 to 14 were created at the end of the book"_s);
  EXPECT_TRUE(fileBytes(path).contains("Chapter%2014</Title>"));
  toolkit.expectFile(u"100"_s);
  trigger("mnuCreateChapters");
  EXPECT_EQ(cell("ListChapters", 104, 0), u"Chapter 114"_s);
  Logging().WriteActionsToLog();
  EXPECT_TRUE(logText().contains(u"Type mismatch"));
}

TEST_F(ChapterCommandsTest, RenumberingLeavesOtherTitlesAloneAndTheLogKeepsTheOldOnes) {
  chapterAt(1)->Title = u"Prologue"_s;
  chapterAt(2)->Title = u"Chapter 5"_s;
  chapterAt(3)->Title = u"The chapter of lies"_s;
  window().ProjectChanged = true;
  trigger("mnuRenumber");
  EXPECT_EQ(titles(), QStringList({u"Prologue"_s, u"Chapter 1"_s, u"Chapter 2"_s}));
  EXPECT_EQ(cell("ListChapters", 2, 0), u"Chapter 2"_s);
  EXPECT_TRUE(fileBytes(path).contains("<Title>Chapter%202</Title>"));
  EXPECT_FALSE(window().ProjectChanged);
  EXPECT_TRUE(logText().contains(u"Renamed chapter The chapter of lies to Chapter 2"));
  trigger("mnuRenumber");
  EXPECT_EQ(panel("numberfiles"), u"No chapter has another title."_s);
  // What has no place is a change still.
  chapterAt(2)->Title = u"Chapter 5"_s;
  g_Project->FileWithPath.clear();
  trigger("mnuRenumber");
  EXPECT_TRUE(window().ProjectChanged);
}

TEST_F(ChapterCommandsTest, AnEditedChapterIsShownAnewWhicheverWayItWasOpened) {
  click(list("ListChapters"), 1);
  editing(u"Gone"_s, Qt::Key_Return, [this] { trigger("mnuEditChapter"); });
  EXPECT_EQ(cell("ListChapters", 1, 0), u"Gone"_s);
  EXPECT_EQ(selectedChapter(), 2);
  EXPECT_TRUE(window().ProjectChanged);
  EXPECT_TRUE(control<QPlainTextEdit>("txtChapterDesc").toPlainText().startsWith(u"Gone description: "));
  // The menu is looked at when there is nothing to edit.
  g_Project->Chapters.Clear();
  window().RefreshAll();
  Q_EMIT control<QMenu>("mnuChapters").aboutToShow();
  editing(u"One"_s, Qt::Key_Return, [this] { trigger("mnuFileNew"); });
  editing(u"The first"_s, Qt::Key_Return, [this] { window().EditSelectedChapter(); });
  EXPECT_EQ(cell("ListChapters", 0, 0), u"The first"_s);
}

TEST_F(ChapterCommandsTest, TheSelectedChapterEndsASection) {
  click(list("ListChapters"), 1);
  trigger("mnuMarkEndMiddle");
  click(list("ListChapters"), 0);
  trigger("mnuMarkEndBeginning");
  EXPECT_EQ(g_Project->EndBeginningChID, 1);
  EXPECT_EQ(g_Project->EndMiddleChID, 2);
  EXPECT_TRUE(window().ProjectChanged);
}

TEST_F(ChapterCommandsTest, TogglingAChapterMarksAllOfItsScenesAlikeButThoseInAnEditor) {
  EXPECT_TRUE(sceneAt(4)->Unused) << "the second scene of the second chapter, marked by hand";
  click(list("ListChapters"), 1);
  trigger("mnuMarkChaptersUnused");
  EXPECT_TRUE(chapterAt(2)->Unused && sceneAt(3)->Unused && sceneAt(4)->Unused);
  EXPECT_EQ(cell("ListChapters", 1, 1), u"0"_s);
  trigger("mnuMarkChaptersUnused");
  EXPECT_FALSE(chapterAt(2)->Unused || sceneAt(3)->Unused || sceneAt(4)->Unused);
  EXPECT_TRUE(window().ProjectChanged);
  sceneAt(3)->Edit();
  toolkit.expectBox(u"One or more scenes could not be updated, since they're being edited"_s);
  trigger("mnuMarkChaptersUnused");
  EXPECT_TRUE(chapterAt(2)->Unused && sceneAt(4)->Unused);
  EXPECT_FALSE(sceneAt(3)->Unused);
}

TEST_F(ChapterCommandsTest, RemovedChaptersLeaveEverySecondSceneInNoChapter) {
  const QStringList files = filesBelow(folder.path()).keys();
  chapterAt(2)->Addscene(sceneAt(5));
  chapterAt(3)->RemoveSceneByID(5);
  click(list("ListChapters"), 0);
  click(list("ListChapters"), 1, Qt::ControlModifier);
  toolkit.expectBox(kRemove, Answer::No);
  trigger("mnuRemoveChapter");
  EXPECT_EQ(g_Project->ChapterCount(), 3);
  toolkit.expectBox(kRemove, Answer::Yes);
  trigger("mnuRemoveChapter");
  EXPECT_EQ(toolkit.lastButtons, Buttons::NoUnlessYes);
  EXPECT_EQ(titles(), QStringList(u"Cut scenes"_s));
  // The first of two, the first and third of three.
  QList<qint32> left;
  for (const auto& scene : g_Project->Scenes) {
    left.append(scene->ID());
  }
  EXPECT_EQ(left, (QList<qint32>{2, 4}));
  EXPECT_EQ(list("ListChapters").rowCount(), 1);
  EXPECT_TRUE(window().ProjectChanged);
  EXPECT_FALSE(fileBytes(path).contains("Arrival</Title>"));
  EXPECT_EQ(filesBelow(folder.path()).keys(), files) << "texts stay on the disk";
  const QString log = logText();
  EXPECT_EQ(log.count(u"Removed scene "_s), 3);
  EXPECT_TRUE(log.contains(u"Removed scene "_s + g_Project->RTFFolder() + u"RTF_00001.rtf"_s));
  EXPECT_EQ(log.count(u"Removed chapter "_s), 2);
}

TEST_F(ChapterCommandsTest, NoChapterIsRemovedWhileASceneIsInAnEditor) {
  window().EditSelectedScene();
  EXPECT_FALSE(isEnabled("mnuRemoveChapter"));
  const auto pressDelete = [this] {
    click(list("ListChapters"), 1);
    QTest::keyClick(&list("ListChapters"), Qt::Key_Delete);
  };
  pressDelete();
  EXPECT_EQ(panel("numberfiles"), u"Remove selected chapter: please close all editor windows first"_s);
  EXPECT_EQ(g_Project->ChapterCount(), 3);
  openEditor().close();
  toolkit.expectBox(kRemove, Answer::Yes);
  pressDelete();
  EXPECT_EQ(titles(), QStringList({u"Arrival"_s, u"Cut scenes"_s}));
  EXPECT_EQ(list("ListChapters").SelectedRow(), 1) << "the next one takes its place";
}

TEST_F(ChapterCommandsTest, WithoutAChapterNothingHappens) {
  window().panes().ClearLists();
  for (const char* command : {"mnuEditChapter", "mnuMarkEndBeginning", "mnuMarkEndMiddle", "mnuMarkChaptersUnused",
                              "mnuRemoveChapter", "mnuAddScene", "mnuRemoveScene", "mnuMarkScenesUnused"}) {
    trigger(command);
    EXPECT_FALSE(window().ProjectChanged) << command;
  }
}
