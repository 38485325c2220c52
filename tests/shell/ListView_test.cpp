// What the lists of the main window show of themselves: widths, tool tips of cells that are cut, the keyboard.

#include "shell/ListView.h"

#include "shell/MainWindow.h"

#include <QApplication>
#include <QTest>

using namespace Qt::StringLiterals;

class ListViewTest : public ShellTest {
 protected:
  static QRgb pixel(ListView& view, QPoint at) {
    const QPixmap picture = view.grab();
    return picture.toImage().pixel(at * picture.devicePixelRatio());
  }
};

TEST_F(ListViewTest, TheListWithTheKeyboardIsSeen) {
  startWith(smallProject());
  ListView& chapters = list("ListChapters");
  ListView& scenes = list("ListScenes");
  const QRgb highlight = window().palette().color(QPalette::Active, QPalette::Highlight).rgb();
  const auto frame = [](ListView& view) { return pixel(view, {0, view.height() / 2}); };
  const auto selection = [](ListView& view) {
    const QRect row = view.visualRect(view.model()->index(0, 0));
    return pixel(view, view.viewport()->pos() + row.topLeft() + QPoint(1, row.height() / 2));
  };
  const QRect before = scenes.viewport()->geometry();
  for (auto [with, without] : {std::pair{&chapters, &scenes}, {&scenes, &chapters}}) {
    with->setFocus();
    EXPECT_EQ(frame(*with), highlight);
    EXPECT_NE(frame(*without), highlight);
    EXPECT_NE(selection(*with), selection(*without));
  }
  EXPECT_EQ(scenes.viewport()->geometry(), before) << "the frame moves nothing";
}

TEST_F(ListViewTest, TabWalksFromLeftToRight) {
  startWith(smallProject());
  control<QWidget>("txtTitle").setFocus();
  QStringList walked;
  for (int step = 0; step < 9; ++step) {
    // The bars of tabs have no names of their own.
    QWidget* focused = QApplication::focusWidget();
    const QWidget* named = focused->objectName() == u"qt_tabwidget_tabbar" ? focused->parentWidget() : focused;
    walked.append(named->objectName());
    QTest::keyClick(focused, Qt::Key_Tab);
  }
  EXPECT_EQ(walked, QStringList({u"txtTitle"_s, u"txtAuthor"_s, u"ListChapters"_s, u"txtChapterDesc"_s, u"TabStrip2"_s,
                                 u"ListScenes"_s, u"TabStrip1"_s, u"txtSceneTitle"_s, u"txtDesc"_s}));
}

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
