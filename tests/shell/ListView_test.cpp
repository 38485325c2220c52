// What the lists of the main window show of themselves: widths, tool tips of cells that are cut, the keyboard.

#include "shell/ListView.h"

#include "shell/MainWindow.h"

#include <QApplication>
#include <QTest>

using namespace Qt::StringLiterals;

class ListViewTest : public ShellTest {
 protected:
};

TEST_F(ListViewTest, EnterOpensASceneButNoChapter) {
  startWith(smallProject());
  ListView& chapters = list("ListChapters");
  chapters.setFocus();
  const QString before = panel("numberfiles");
  QTest::keyClick(&chapters, Qt::Key_Return);
  EXPECT_EQ(panel("numberfiles"), before);
  EXPECT_FALSE(window().Editing());
  list("ListScenes").setFocus();
  QTest::keyClick(&list("ListScenes"), Qt::Key_Enter);
  EXPECT_TRUE(window().Editing());
}
