// The commands that make, mark and remove scenes.

#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/editor/frmEditor.h"
#include "gui/shell/MainWindow.h"
#include "gui/shell/main/MainPanes.h"
#include "support/ModalHelper.h"
#include "support/SampleProject.h"

#include <QFile>
#include <QPushButton>

using namespace Qt::StringLiterals;

class SceneCommandsTest : public ShellTest {
 protected:
  const QString kRemove = u"Remove selected scene(s) from your project?"_s;

  void SetUp() override {
    ShellTest::SetUp();
    startWith(smallProject());
  }
  void selectBoth() {
    click(list("ListScenes"), 0);
    click(list("ListScenes"), 1, Qt::ControlModifier);
  }
};

TEST_F(SceneCommandsTest, AnAddedSceneIsInTheListWhenItsEditorHasSavedIt) {
  {
    const WhenModal whenUp([](QWidget& editor) { editor.close(); });
    trigger("mnuAddScene");
  }
  EXPECT_EQ(list("ListScenes").rowCount(), 2);
  EXPECT_FALSE(window().ProjectChanged);
  const WhenModal whenUp([](QWidget& editor) { childOf<QPushButton>(editor, u"cmdSaveAndExit"_s).click(); });
  trigger("mnuAddScene");
  EXPECT_EQ(list("ListScenes").rowCount(), 3);
  EXPECT_EQ(g_Project->SceneCount(), 6);
  EXPECT_TRUE(window().ProjectChanged);
}

TEST_F(SceneCommandsTest, BlankScenesAreAddedToTheChapterWithTheirFiles) {
  const QString ask = u"Please specify 20 scenes or less"_s;
  for (const QString& answer : {u""_s, u"some"_s, u"0"_s, u"21"_s, u"65537"_s}) {
    toolkit.expectFile(answer);
    if (answer.toInt() > 20) {
      toolkit.expectBox(ask);
    }
    trigger("mnuAddMultiScenes");
    EXPECT_EQ(g_Project->SceneCount(), 5) << answer.toStdString();
    EXPECT_FALSE(window().ProjectChanged);
    EXPECT_EQ(panel("numberfiles").contains(u"\"some\" is no number"_s), answer == u"some") << answer.toStdString();
    window().showMessage({});
  }
  click(list("ListChapters"), 1);
  for (const char* answer : {"2", "20"}) {
    toolkit.expectFile(QString::fromLatin1(answer));
    trigger("mnuAddMultiScenes");
  }
  EXPECT_EQ(list("ListScenes").rowCount(), 24);
  EXPECT_EQ(cell("ListScenes", 3, 2), u"New Scene 2"_s);
  EXPECT_EQ(cell("ListScenes", 4, 2), u"New Scene 1"_s);
  EXPECT_TRUE(window().ProjectChanged);
  for (const auto& scene : g_Project->Scenes) {
    EXPECT_TRUE(QFile::exists(scene->RTFFileWithPath()));
  }
  EXPECT_TRUE(fileBytes(g_Project->FileWithPath).contains("New%20Scene%2020"));
  window().panes().ClearLists();
  toolkit.expectBox(u"Select a chapter first"_s);
  trigger("mnuAddMultiScenes");
}

TEST_F(SceneCommandsTest, MarksGoToTheSelectedScenesButThoseInAnEditor) {
  const char* const refused = "One or more scenes could not be updated, since they're being edited";
  selectBoth();
  trigger("mnuMarkScenesUnused");
  EXPECT_TRUE(sceneAt(1)->Unused && sceneAt(2)->Unused);
  EXPECT_FALSE(chapterAt(1)->Unused);
  EXPECT_EQ(cell("ListChapters", 0, 1), u"0"_s);
  selectBoth();
  trigger("mnuStatus(3)");
  EXPECT_EQ(sceneAt(1)->Status * 10 + sceneAt(2)->Status, 44);
  EXPECT_EQ(cell("ListScenes", 1, 3), u"2nd Edit"_s);
  EXPECT_TRUE(window().ProjectChanged);
  EXPECT_FALSE(window().isWindowModified()) << "they are saved at once";
  sceneAt(1)->Edit();
  selectBoth();
  toolkit.expectBox(QString::fromLatin1(refused));
  trigger("mnuStatus(0)");
  EXPECT_EQ(sceneAt(1)->Status * 10 + sceneAt(2)->Status, 41);
  selectBoth();
  toolkit.expectBox(QString::fromLatin1(refused));
  trigger("mnuMarkScenesUnused");
  EXPECT_TRUE(sceneAt(1)->Unused && !sceneAt(2)->Unused);
}

TEST_F(SceneCommandsTest, ARemovedSceneLeavesItsFileWhereItIs) {
  const auto scene = sceneAt(1);
  const QString file = scene->RTFFileWithPath();
  click(list("ListScenes"), 0);
  // A text that stands in memory alone isn't gone with its scene, and isn't written for a question.
  scene->setTextRTF(simpleRtf("not written yet"));
  toolkit.expectBox(kRemove, Answer::No);
  trigger("mnuRemoveScene");
  EXPECT_EQ(g_Project->SceneCount(), 5);
  EXPECT_TRUE(scene->RTFChanged());
  toolkit.expectBox(kRemove, Answer::Yes);
  trigger("mnuRemoveScene");
  EXPECT_FALSE(scene->InScenes());
  EXPECT_EQ(row("ListChapters", 0), QStringList({u"Arrival"_s, u"2"_s, u"1"_s, u"2"_s}));
  EXPECT_EQ(cell("ListScenes", 0, 2), u"Arrival 2"_s);
  EXPECT_EQ(fileBytes(file), simpleRtf("not written yet"));
  EXPECT_TRUE(logText().contains(u"Removed scene "_s + file));
  EXPECT_TRUE(window().ProjectChanged);
}

TEST_F(SceneCommandsTest, NothingIsRemovedWithoutASceneOrFromAnEditor) {
  list("ListScenes").clearSelection();
  toolkit.expectBox(u"Select a scene first"_s);
  trigger("mnuRemoveScene");
  sceneAt(2)->Edit();
  selectBoth();
  toolkit.expectBox(u"Please close all editor windows first"_s);
  trigger("mnuRemoveScene");
  EXPECT_EQ(g_Project->SceneCount(), 5);
}
