// The page with the timeline, from the menu to the program that shows it, and the chart of ratings.

#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/planning/frmChart.h"
#include "gui/shell/MainWindow.h"
#include "support/ModalHelper.h"
#include "support/SampleProject.h"
#include "support/WaitFor.h"

#include <QDir>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

class TimelineTest : public ShellTest {
 protected:
  void SetUp() override {
    ShellTest::SetUp();
    startWith(smallProject());
  }

  /// With these rows of the list of characters selected.
  void exportFor(const QList<int>& rows, const char* button = "cmdOK") {
    const WhenModal picker([&](QWidget& form) {
      auto& list = childOf<ListView>(form, u"ListItems"_s);
      list.clearSelection();
      for (const int row : rows) {
        click(list, row, Qt::ControlModifier);
      }
      childOf<QPushButton>(form, QString::fromLatin1(button)).click();
    });
    trigger("mnuExportTimeline");
  }
  static QString path() { return g_Project->Path() + u"Timeline.html"_s; }
};

class ChartTest : public ShellTest {
 protected:
  void SetUp() override {
    ShellTest::SetUp();
    startWith(smallProject());
    trigger("mnuChart");
    EXPECT_TRUE(waitUntilActive(form()));
    part<QTimer>("Timer1").setInterval(0);
  }

  frmChart& form() { return required(window().findChild<frmChart*>(), u"chart"_s); }
  template <class Part>
  Part& part(const char* name) {
    return childOf<Part>(form(), QString::fromLatin1(name));
  }
  QImage chart() { return part<QWidget>("PicChart").grab().toImage(); }
  /// Where the chart of five scenes has one of them, on a screen of 15 twips to the dot.
  static int sceneX(const QImage& picture, int scene) {
    return qRound((scene * (picture.width() * 15.0 - 400) / 5 + 200) / 15);
  }
  static bool isBlueAt(const QImage& picture, int scene, int rating) {
    const QPoint at(sceneX(picture, scene), qRound((picture.height() - 40) * (10 - rating) / 10.0));
    for (int dy = -3; dy <= 3; ++dy) {
      const QColor dot = picture.pixelColor(at + QPoint(0, dy));
      if (dot.blue() > dot.red() + 60) {
        return true;
      }
    }
    return false;
  }
  QString message() { return part<QLabel>("lblEmpty").isVisible() ? part<QLabel>("lblEmpty").text() : QString(); }
};

}  // namespace

TEST_F(TimelineTest, IsWrittenForTheMarkedCharactersAndShown) {
  exportFor({}, "cmdCancel");
  toolkit.expectBox(u"No characters selected."_s);
  exportFor({});
  EXPECT_FALSE(QFile::exists(path()));
  exportFor({0, 1});
  EXPECT_EQ(toolkit.openedDocuments, QStringList(path()));
  EXPECT_EQ(toolkit.pointer, Pointer::Normal);
  const QByteArray page = fileBytes(path());
  EXPECT_TRUE(page.contains("<TD align=center><B>Anna</b></TD>\r\n<TD align=center><B>Zo\xEB</b></TD>\r\n</TR>"));
  EXPECT_TRUE(page.contains("<TR>\r\n<td>&nbsp;</td><td>Arrival 1</td></TR>\r\n"));
  QFile::remove(path());
  QDir().mkpath(path());
  toolkit.expectBox(u"Could not create output file. Already open in another program?"_s);
  exportFor({0});
}

TEST_F(ChartTest, SaysWhyItIsEmptyAndFollowsTheBook) {
  EXPECT_TRUE(message().startsWith(u"No scene of this book is rated yet."_s)) << message();
  const QImage before = chart();
  g_Project->setFieldTitle(1, u"Suspense"_s);
  sceneAt(2)->setField(1, 9);
  EXPECT_TRUE(soon([this] { return part<QLabel>("lblLegend(0)").text() == u"Suspense"_s; }));
  EXPECT_EQ(message(), QString());
  EXPECT_NE(chart(), before);
  EXPECT_FALSE(isBlueAt(before, 2, 9));
  EXPECT_TRUE(isBlueAt(chart(), 2, 9));
  auto& picture = part<QWidget>("PicChart");
  EXPECT_TRUE(picture.accessibleDescription().contains(u"Suspense from 1 to 9"_s)) << picture.accessibleDescription();
  trigger("mnuCloseProject");
  EXPECT_EQ(chart().pixelColor(5, 5), part<QWidget>("PicChart").palette().color(QPalette::Base));
  EXPECT_TRUE(soon([this] { return message() == u"No project is open."_s; })) << message();
  const QPointer<frmChart> closed = &form();
  QTest::keyClick(form().focusWidget(), Qt::Key_Escape);
  EXPECT_TRUE(soon([&] { return closed.isNull(); }));
}
