// What is counted over the whole story.

#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/shell/MainWindow.h"
#include "gui/views/frmWordCount.h"
#include "support/SampleProject.h"

#include <QLabel>
#include <QTest>
#include <QTreeView>

using namespace Qt::StringLiterals;

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
