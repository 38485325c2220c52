// What is counted over the whole story.

#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/shell/MainWindow.h"
#include "gui/views/frmWordCount.h"
#include "support/SampleProject.h"

#include <QLabel>
#include <QTest>
#include <QTreeView>

using namespace Qt::StringLiterals;

TEST_F(ShellTest, WordsAndScenesAreSharedOutByViewpoint) {
  const QString note = u"\n(Does not include unused scenes or scenes within unused chapters)"_s;
  const auto shown = [this](const char* command) {
    toolkit.expectBox({});
    trigger(command);
    return toolkit.boxes.last();
  };
  startWith(smallProject());
  // Chapters of 3 + 2 and 4 + 1 words; the last scene of the second is unused, as is the whole third.
  sceneAt(2)->AddCharByID(1);
  sceneAt(3)->AddCharByID(2);
  g_Project->CharByID(2)->setTitle(u"%L2"_s);
  EXPECT_EQ(shown("mnuWordsPerCharacter"), u"%L2: 7 (77.78%)\nAnna: 2 (22.22%)\n"_s + note);
  EXPECT_EQ(shown("mnuScenesPerCharacter"), u"%L2: 2 (40.00%)\nAnna: 1 (20.00%)\n"_s + note);
  // One that stands in no chapter, and one without a character.
  chapterAt(1)->RemoveSceneByID(2);
  sceneAt(1)->RemoveCharByID(1);
  sceneAt(1)->RemoveCharByID(2);
  // In the order of the scenes, wherever they stand in the chapters.
  chapterAt(1)->RemoveSceneByID(1);
  chapterAt(2)->Addscene(sceneAt(1));
  EXPECT_EQ(shown("mnuWordsPerCharacter"), u"N/A: 3 (42.86%)\n%L2: 4 (57.14%)\n"_s + note);
  sceneAt(1)->setTextRTF({});
  sceneAt(3)->Unused = true;
  EXPECT_EQ(shown("mnuWordsPerCharacter"), u"N/A: 0 (0.00%)\n"_s + note);
  chapterAt(2)->Unused = true;
  EXPECT_EQ(shown("mnuWordsPerCharacter"), u"No characters"_s);
  EXPECT_EQ(shown("mnuScenesPerCharacter"), u"No characters"_s);
}

TEST_F(ShellTest, TheWordUsageOfTheProjectTakesUnusedScenesTooAndSaysSo) {
  startWith(smallProject());
  g_Project->SceneByID(1)->Unused = true;
  g_Project->SceneByID(2)->setTextRTF(simpleRtf(QByteArray("tide ").repeated(1234)));
  trigger("mnuWordUsageCount");
  auto* const form = window().findChild<frmWordCount*>();
  ASSERT_NE(form, nullptr);
  EXPECT_EQ(childOf<QLabel>(*form, u"lblInfo"_s).text(), u"Total words: 1,244 Unique: 11"_s);
  EXPECT_EQ(childOf<QLabel>(*form, u"lblScope"_s).text(), u"Scenes: 5, unused ones among them: 3"_s);
  EXPECT_TRUE(childOf<QLabel>(*form, u"lblScope"_s).isVisible());
  const QAbstractItemModel& rows = *childOf<QTreeView>(*form, u"ListView1"_s).model();
  EXPECT_EQ(rows.index(0, 0).data(), u"Tide"_s);
  EXPECT_EQ(rows.index(0, 1).data(), u"1,234"_s);
  EXPECT_EQ(panel("numberfiles"), u"Filling word list"_s);
  EXPECT_EQ(toolkit.pointer, Pointer::Normal);
  QTest::keyClick(form, Qt::Key_Escape);
  EXPECT_EQ(panel("numberfiles"), QString());
}
