// What is counted over the whole story.

#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/shell/MainWindow.h"
#include "gui/views/frmWordCount.h"

#include <QLabel>
#include <QTest>
#include <QTreeView>

using namespace Qt::StringLiterals;

TEST_F(ShellTest, TheWordUsageOfTheProjectTakesUnusedScenesToo) {
  startWith(smallProject());
  g_Project->SceneByID(1)->Unused = true;
  trigger("mnuWordUsageCount");
  auto* const form = window().findChild<frmWordCount*>();
  ASSERT_NE(form, nullptr);
  EXPECT_EQ(childOf<QLabel>(*form, u"lblInfo"_s).text(), u"Total words: 12 Unique: 12"_s);
  const QAbstractItemModel& rows = *childOf<QTreeView>(*form, u"ListView1"_s).model();
  EXPECT_EQ(rows.index(0, 0).data(), u"One"_s);
  EXPECT_EQ(rows.index(11, 0).data(), u"Twelve"_s);
  EXPECT_EQ(panel("numberfiles"), u"Filling word list"_s);
  EXPECT_EQ(toolkit.pointer, Pointer::Normal);
  QTest::keyClick(form, Qt::Key_Escape);
  EXPECT_EQ(panel("numberfiles"), QString());
}
