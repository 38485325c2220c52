// What the lists of the main window show of themselves: widths, tool tips of cells that are cut, the keyboard.

#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/shell/MainWindow.h"
#include "gui/shell/main/MainPanes.h"
#include "gui/shell/main/ScenePane.h"
#include "gui/toolkit/ProportionalSplitter.h"
#include "gui/views/ListView.h"
#include "gui/views/RowColours.h"
#include "support/ModalHelper.h"
#include "support/SampleProject.h"

#include <QApplication>
#include <QHeaderView>
#include <QHelpEvent>
#include <QTest>
#include <QTextDocumentFragment>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace {

/// The palette of the application as long as this lives.
class PaletteOfTest {
 public:
  explicit PaletteOfTest(const QPalette& palette) : former_(QApplication::palette()) {
    QApplication::setPalette(palette);
    QCoreApplication::processEvents();
  }
  ~PaletteOfTest() { QApplication::setPalette(former_); }
  PaletteOfTest(const PaletteOfTest&) = delete;
  PaletteOfTest& operator=(const PaletteOfTest&) = delete;

 private:
  QPalette former_;
};

}  // namespace

class MainListsTest : public ShellTest {
 protected:
  enum SceneColumn { kViewpoint, kWords, kScene, kStatus, kActionReaction, kFilename, kLetters };

  /// What hovering over a cell shows; empty for nothing.
  QString toolTip(ListView& view, int row, int column) {
    // The last one fades.
    QToolTip::hideText();
    EXPECT_TRUE(soon([] { return !QToolTip::isVisible(); }));
    const QRect cell = view.visualRect(view.model()->index(row, column)) & view.viewport()->rect();
    QHelpEvent hover(QEvent::ToolTip, cell.center(), view.viewport()->mapToGlobal(cell.center()));
    QApplication::sendEvent(view.viewport(), &hover);
    return QTextDocumentFragment::fromHtml(QToolTip::text()).toPlainText();
  }

  /// A window that is wide enough for the columns that are of use.
  void startWide() {
    startWith(smallProject());
    window().resize(1200, 700);
    window().panes().scenes().splitter().setFraction(0.5);
  }

  static QRgb pixel(ListView& view, QPoint at) {
    const QPixmap picture = view.grab();
    return picture.toImage().pixel(at * picture.devicePixelRatio());
  }
};

TEST_F(MainListsTest, OnlyACellThatIsNotSeenWholeHasAToolTip) {
  startWide();
  ListView& scenes = list("ListScenes");
  g_Project->SceneByID(1)->Title = u"The <b>pier</b> & what was left of it"_s;
  g_Project->SceneByID(2)->Title = u"Rain"_s;
  window().RefreshAll();
  scenes.setColumnWidth(kScene, scenes.widthFor(kScene, g_Project->SceneByID(1)->Title));
  EXPECT_EQ(toolTip(scenes, 0, kScene), QString());
  scenes.setColumnWidth(kScene, scenes.columnWidth(kScene) - 1);
  EXPECT_EQ(toolTip(scenes, 0, kScene), g_Project->SceneByID(1)->Title);
  EXPECT_EQ(toolTip(scenes, 1, kScene), QString());

  // The column is wide enough, but the edge of the list cuts it.
  const int seen = scenes.viewport()->width() - scenes.header()->sectionPosition(kScene);
  scenes.setColumnWidth(kScene, seen - 20);
  EXPECT_EQ(toolTip(scenes, 0, kStatus), u"Draft"_s);
}

TEST_F(MainListsTest, StoredWidthsComeBeforeTheFirst) {
  writeSettings({u"AskedAboutAutoUpdates,-1"_s, u"MainChap1_W,900"_s, u"MainScn1_W,900"_s, u"MainScn3_W,9000"_s});
  start(smallProject());
  EXPECT_EQ(list("ListScenes").columnWidth(kScene), 600);
  EXPECT_EQ(list("ListChapters").columnWidth(0), 60);
}

TEST_F(MainListsTest, TheListWithTheKeyboardIsSeen) {
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

TEST_F(MainListsTest, EnterDoesWhatADoubleClickDoes) {
  startWith(smallProject());
  {
    const WhenModal whenUp([](QWidget& sheet) {
      EXPECT_EQ(sheet.objectName(), u"frmEditChapter"_s);
      sheet.close();
    });
    list("ListChapters").setFocus();
    QTest::keyClick(&list("ListChapters"), Qt::Key_Return);
  }
  EXPECT_FALSE(window().Editing());
  list("ListScenes").setFocus();
  QTest::keyClick(&list("ListScenes"), Qt::Key_Enter);
  EXPECT_TRUE(window().Editing());
}

TEST_F(MainListsTest, NumbersHaveTheSeparatorsOfTheWritersLanguage) {
  startWith(smallProject());
  g_Project->SceneByID(1)->setTextRTF(simpleRtf(QByteArray("tide ").repeated(12345)));
  window().RefreshAll();
  EXPECT_EQ(row("ListScenes", 0).value(kWords), u"12,345"_s);
  EXPECT_EQ(row("ListScenes", 0).value(kLetters), u"61,725"_s);
  EXPECT_EQ(row("ListChapters", 0).mid(1), QStringList({u"12,347"_s, u"2"_s, u"12,347"_s}));
  EXPECT_EQ(panel("Totalwords"), u"Total words: 12,351"_s);
}

TEST_F(MainListsTest, RowsTakeTheColoursOfANewPalette) {
  startWith(smallProject());
  click(list("ListChapters"), 1);
  const auto colours = [this] {
    const auto colour = [](const QModelIndex& cell) {
      return cell.data(Qt::ForegroundRole).value<QBrush>().color().name();
    };
    return QStringList{colour(item("ListScenes", 1, kStatus)), colour(item("ListChapters", 0)),
                       colour(item("ListChapters", 0, 3))};
  };
  const auto readable = [](const QPalette& palette) {
    const QString green = RowColours::readable(RowColours::kGreen, palette).name();
    return QStringList{RowColours::readable(RowColours::kGrey, palette).name(), green, green};
  };
  EXPECT_EQ(colours(), readable(window().palette()));
  QPalette dark(QColor(40, 40, 40));
  dark.setColor(QPalette::Base, QColor(25, 25, 25));
  const PaletteOfTest changed(dark);
  EXPECT_NE(readable(dark), readable(QPalette(Qt::white)));
  EXPECT_EQ(colours(), readable(dark));
}
