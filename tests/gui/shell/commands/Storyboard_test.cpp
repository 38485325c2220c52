// The storyboard beside the main window: what it shows, cards moved with the mouse and by keys, and how it keeps in
// step.

#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/editor/frmEditor.h"
#include "gui/planning/frmStoryboard.h"
#include "gui/shell/MainWindow.h"
#include "support/ModalHelper.h"
#include "support/PrintedPages.h"
#include "support/SampleProject.h"
#include "support/WaitFor.h"

#include <QAccessible>
#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kCell(120, 87);

class StoryboardTest : public ShellTest {
 protected:
  /// Scene 1 in the row of Zoë, the others in that of nobody; chapters of 2, 2 and 1 scenes.
  void SetUp() override {
    ShellTest::SetUp();
    startWith(smallProject());
    openBoard();
  }

  frmStoryboard* found() { return window().findChild<frmStoryboard*>(); }
  frmStoryboard& form() { return required(found(), u"storyboard"_s); }
  template <class Part>
  Part& part(const char* name) {
    return childOf<Part>(form(), QString::fromLatin1(name));
  }
  StoryCard& card(int place) { return childOf<StoryCard>(form(), u"picScene(%1)"_s.arg(place)); }
  /// The scenes whose cards are seen, by place.
  QList<qint32> shown() {
    QMap<int, qint32> ids;
    for (const StoryCard* const one : form().findChildren<StoryCard*>()) {
      if (one->isVisible()) {
        ids.insert(one->x(), one->tag());
      }
    }
    return ids.values();
  }
  void openBoard() {
    trigger("mnuStoryboard");
    EXPECT_TRUE(waitUntilActive(form()));
    EXPECT_EQ(part<QTimer>("Timer1").interval(), 1000);
    part<QTimer>("Timer1").setInterval(0);
  }
  QString marks() {
    QMap<int, QString> numbers;
    for (const QLabel* const label : form().findChildren<QLabel*>(QRegularExpression(u"^picHeading"_s))) {
      if (label->isVisible()) {
        numbers.insert(label->x(), u"%1:%2"_s.arg(label->text()).arg(label->x() / kCell.width()));
      }
    }
    return numbers.values().join(u' ');
  }
  static void send(StoryCard& to, QEvent::Type type, const QPoint& screen, Qt::KeyboardModifiers keys = {}) {
    const bool moves = type == QEvent::MouseMove;
    QMouseEvent event(type, to.mapFromGlobal(screen), screen, moves ? Qt::NoButton : Qt::LeftButton,
                      type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, keys);
    QCoreApplication::sendEvent(&to, &event);
  }
  /// From the place by so many cells.
  void drag(int place, QPoint cells, Qt::KeyboardModifiers keys = Qt::ShiftModifier) {
    StoryCard& dragged = card(place);
    const QPoint from = dragged.mapToGlobal(QPoint(11, 13));
    const QPoint to = from + QPoint(cells.x() * kCell.width(), cells.y() * kCell.height());
    send(dragged, QEvent::MouseButtonPress, from, keys);
    send(dragged, QEvent::MouseMove, to);
    send(dragged, QEvent::MouseButtonRelease, to);
  }
  void press(int key, Qt::KeyboardModifiers keys = {}) { QTest::keyClick(form().focusWidget(), Qt::Key(key), keys); }
  StoryCard* focused() { return dynamic_cast<StoryCard*>(form().focusWidget()); }
  QList<qint32> chapter(qint32 index) {
    const auto& ids = chapterAt(index)->SceneIDs();
    return {ids.begin(), ids.end()};
  }
};

}  // namespace

TEST_F(StoryboardTest, ShowsACardForEachSceneInItsColumnAndRow) {
  EXPECT_EQ(shown(), (QList<qint32>{1, 2, 3, 4, 5}));
  EXPECT_EQ(card(0).pos(), QPoint(126, 25));
  EXPECT_EQ(card(4).pos(), QPoint(606, 112));
  EXPECT_EQ(marks(), u"1:1 2:3 3:5"_s);
  EXPECT_EQ(part<QLabel>("picHeading(1)").toolTip(), u"<p>Departure</p>"_s);
  EXPECT_EQ(card(0).toolTip(), u"3 words"_s);
  EXPECT_EQ(card(0).accessibleName(), u"Arrival 1, chapter Arrival, viewpoint Zoë, 3 words, scene 1 of 5"_s);
  EXPECT_EQ(card(3).accessibleName(), u"Departure 2, chapter Departure, no viewpoint, 1 words, unused, scene 4 of 5"_s);
  QAccessibleInterface* const spoken = QAccessible::queryAccessibleInterface(&card(0));
  EXPECT_EQ(spoken->role(), QAccessible::ListItem);
  EXPECT_EQ(spoken->parent()->role(), QAccessible::List);
}

TEST_F(StoryboardTest, ACardThatIsDraggedWithShiftMovesItsScene) {
  window().ProjectChanged = false;
  drag(0, {0, 1});
  EXPECT_EQ(sceneAt(1)->ViewPointID(), 0);
  EXPECT_TRUE(window().ProjectChanged);
  EXPECT_TRUE(soon([&] { return cell("ListScenes", 0, 0) == u"N/A"_s; }));
  drag(1, {0, -1});
  EXPECT_EQ(sceneAt(2)->ViewPointID(), 2) << "its row is there still";
  drag(0, {3, 0});
  EXPECT_EQ(chapter(1), QList<qint32>{2});
  EXPECT_EQ(chapter(2), (QList<qint32>{3, 1, 4}));
  EXPECT_EQ(shown(), (QList<qint32>{2, 3, 1, 4, 5}));
  EXPECT_EQ(list("ListScenes").rowCount(), 1);
  ASSERT_NE(focused(), nullptr);
  EXPECT_EQ(focused()->tag(), 1);
  EXPECT_TRUE(soon([] { return g_SceneChanges.changedIDs(ChangeArea::Storyboard).empty(); }));

  const QPoint before = card(1).pos();
  drag(1, {9, 9});
  drag(1, {1, 1}, Qt::NoModifier);
  EXPECT_EQ(chapter(2), (QList<qint32>{3, 1, 4})) << "nothing lies there, and nothing moves without Shift";
  EXPECT_EQ(card(1).pos(), before);
}

TEST_F(StoryboardTest, ADragThatIsGivenUpOrOvertakenMovesNothing) {
  const auto begin = [this] {
    StoryCard& dragged = card(0);
    const QPoint from = dragged.mapToGlobal(QPoint(11, 13));
    send(dragged, QEvent::MouseButtonPress, from, Qt::ShiftModifier);
    send(dragged, QEvent::MouseMove, from + QPoint(250, 90));
    EXPECT_EQ(dragged.cursor().shape(), Qt::SizeAllCursor);
    EXPECT_EQ(dragged.x(), 376);
    return &dragged;
  };
  const auto drop = [](StoryCard* dragged) {
    send(*dragged, QEvent::MouseButtonRelease, dragged->mapToGlobal(QPoint(11, 13)));
  };
  const QList<std::function<void()>> cases{
      [this] { press(Qt::Key_Escape); }, [this] { QTest::mousePress(&card(1), Qt::LeftButton); },
      [this] { window().RefreshAll(); }, [this] { window().LoadProject(QString(g_Project->FileWithPath), true); }};
  for (const auto& happens : cases) {
    StoryCard* const dragged = begin();
    // Scrolled under the card that is held.
    part<QScrollBar>("HScroll1").setValue(1);
    EXPECT_EQ(dragged->x(), 376);
    happens();
    drop(dragged);
    EXPECT_TRUE(form().isVisible());
    EXPECT_EQ(chapter(1) + chapter(2), (QList<qint32>{1, 2, 3, 4}));
    EXPECT_EQ(sceneAt(1)->ViewPointID(), 2);
    EXPECT_FALSE(dragged->isVisible());
    part<QScrollBar>("HScroll1").setValue(0);
  }
  // Scrolled by one, the third cell is the fourth column.
  StoryCard* const dragged = begin();
  part<QScrollBar>("HScroll1").setValue(1);
  drop(dragged);
  EXPECT_EQ(chapter(2), (QList<qint32>{3, 1, 4}));
}

TEST_F(StoryboardTest, WhatHappensWhileItIsMinimizedIsShownBehind) {
  form().showMinimized();
  chapterAt(1)->RemoveSceneByID(2);
  chapterAt(2)->InsertScene(sceneAt(2), 2);
  window().RefreshAll();
  form().showNormal();
  EXPECT_EQ(shown(), (QList<qint32>{1, 3, 2, 4, 5}));
  form().showMinimized();
  trigger("mnuCloseProject");
  form().showNormal();
  EXPECT_EQ(shown(), QList<qint32>());
}

TEST_F(StoryboardTest, ArrowsMoveTheKeyboardAndWithShiftTheScene) {
  ASSERT_NE(focused(), nullptr) << "a card has the keyboard at once";
  press(Qt::Key_Right);
  press(Qt::Key_Right);
  EXPECT_EQ(focused()->tag(), 3);
  press(Qt::Key_Up);
  EXPECT_EQ(focused()->tag(), 1);
  press(Qt::Key_Right, Qt::ShiftModifier);
  EXPECT_EQ(chapter(1), (QList<qint32>{2, 1}));
  press(Qt::Key_Right, Qt::ShiftModifier);
  EXPECT_EQ(chapter(2), (QList<qint32>{1, 3, 4}));
  EXPECT_EQ(focused()->tag(), 1);
  press(Qt::Key_Down, Qt::ShiftModifier);
  press(Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(sceneAt(1)->ViewPointID(), 0);
  press(Qt::Key_End);
  EXPECT_EQ(focused()->tag(), 5);
  press(Qt::Key_Right, Qt::ShiftModifier);
  EXPECT_EQ(chapter(3), QList<qint32>{5});
  press(Qt::Key_Home);
  press(Qt::Key_Return);
  EXPECT_TRUE(sceneAt(2)->EditingScene());
  EXPECT_FALSE(isEnabled("mnuProject")) << "the main window knows of it at once";
}

TEST_F(StoryboardTest, TheKeyboardGoesOnFromACardThatIsNotSeen) {
  form().resize(form().minimumSize());
  press(Qt::Key_End);
  EXPECT_EQ(focused()->tag(), 5);
  EXPECT_TRUE(part<QWidget>("picFrame")
                  .rect()
                  .contains(QRect(focused()->mapTo(&part<QWidget>("picFrame"), QPoint(0, 0)), focused()->size())));
  part<QScrollBar>("HScroll1").setValue(0);
  EXPECT_EQ(focused(), nullptr);
  press(Qt::Key_Left);
  ASSERT_NE(focused(), nullptr);
  EXPECT_EQ(focused()->tag(), 4);
}

TEST_F(StoryboardTest, ASceneThatIsOpenInAnEditorMovesAndTheEditorFollows) {
  QTest::mouseDClick(&card(0), Qt::LeftButton);
  ASSERT_TRUE(sceneAt(1)->EditingScene());
  drag(0, {2, 1});
  EXPECT_EQ(chapter(2), (QList<qint32>{1, 3, 4}));
  EXPECT_EQ(childOf<QComboBox>(openEditor(), u"cmbViewpoint"_s).currentIndex(), -1);
  openEditor().SaveQuietly();
  EXPECT_EQ(sceneAt(1)->ViewPointID(), 0);
  EXPECT_EQ(sceneAt(1)->BelongsToChID, 2);
}

TEST_F(StoryboardTest, ItsMenuEditsTheSceneUnderTheMouse) {
  auto& menu = part<QMenu>("mnuMain");
  QTest::mousePress(&card(2), Qt::RightButton);
  EXPECT_TRUE(menu.isVisible());
  part<QAction>("mnuSceneDetails").trigger();
  EXPECT_EQ(editor(), nullptr);
  menu.close();
  press(Qt::Key_F10, Qt::ShiftModifier);
  EXPECT_TRUE(menu.isVisible());
  part<QAction>("mnuEditScene").trigger();
  EXPECT_TRUE(sceneAt(3)->EditingScene());
  menu.close();
}

TEST_F(StoryboardTest, IsPrintedAsScreenshotsAndShownAsBefore) {
  PrintedPages pages;
  chapterAt(1)->Title = u"Arrival"_s;
  for (int i = 0; i < 30; ++i) {
    chapterAt(2)->Addscene(std::make_shared<clsScene>());
  }
  window().RefreshAll();
  form().resize(700, 400);
  form().setPalette(QPalette(QColor(30, 30, 30), QColor(30, 30, 30)));
  press(Qt::Key_End);
  const qint32 current = focused()->tag();
  const QSize size = form().size();
  const QList<qint32> before = shown();
  const QString ready = u"so that all active characters are visible,\r\nand set the width to maximum."_s;
  const auto print = [&] {
    // Six cells wide: the name of a viewpoint, and five cards.
    toolkit.expectBox(ready, Answer::Yes);
    toolkit.onBox = [this] { EXPECT_TRUE(form().isMaximized()); };
    toolkit.expectBox(u"This routine will print 7 screenshot(s). Are you sure?"_s, Answer::Yes);
    const WhenModal choice([](QWidget& printer) { childOf<QPushButton>(printer, u"cmdOk"_s).click(); });
    part<QAction>("mnuPrintSB").trigger();
  };
  const auto isAsBefore = [&] {
    EXPECT_EQ(form().size(), size);
    EXPECT_FALSE(form().isMaximized());
    EXPECT_EQ(shown(), before);
    EXPECT_EQ(form().palette().color(QPalette::Window), QColor(30, 30, 30));
    ASSERT_NE(focused(), nullptr);
    EXPECT_EQ(focused()->tag(), current);
  };
  toolkit.expectBox(ready, Answer::No);
  part<QAction>("mnuPrintSB").trigger();
  isAsBefore();

  toolkit.onYield = [this] { toolkit.pressStop(); };
  print();
  isAsBefore();
  EXPECT_TRUE(pages.documents.empty()) << "it was stopped";

  print();
  isAsBefore();
  ASSERT_EQ(pages.documents.size(), 1);
  const PrintDocument& printed = pages.documents[0];
  EXPECT_TRUE(printed.paper.isLandscape());
  ASSERT_EQ(printed.pages.size(), 7);
  QSet<QByteArray> pictures;
  for (const PrintedPage& page : printed.pages) {
    const PlacedPicture& picture = page.pictures.at(0);
    EXPECT_EQ(QRectF(picture.x, picture.y, picture.width, picture.height), QRectF(500, 500, 15838, 10906));
    EXPECT_EQ(QImage::fromData(picture.png).pixelColor(3, 3), Qt::white);
    pictures.insert(picture.png);
  }
  EXPECT_EQ(pictures.size(), 7);
}

TEST_F(StoryboardTest, KeepsInStepWithTheBookAndGoesOnWithoutOne) {
  sceneAt(2)->Title = u"Landfall"_s;
  sceneAt(2)->Save();
  EXPECT_TRUE(soon([&] { return card(1).accessibleName().startsWith(u"Landfall"_s); }));
  g_Project->CharByID(2)->setTitle(u"Nora"_s);
  EXPECT_TRUE(soon([&] { return card(0).accessibleName().contains(u"viewpoint Nora"_s); }));
  g_Project->RemoveSceneByID(4);
  EXPECT_TRUE(soon([&] { return shown() == QList<qint32>({1, 2, 3, 5}); }));
  // Drawn anew in the middle of a command that takes a chapter away.
  part<QTimer>("Timer1").stop();
  g_Project->RemoveChapterByID(3);
  form().resize(form().width() + 200, form().height());
  EXPECT_EQ(marks().section(u' ', 0, 0), u"1:1"_s);
  // Nothing is drawn, moved or opened of a book that is being read or written.
  const QString other = smallProject(u"Other"_s);
  startWith(smallProject(u"First"_s));
  openBoard();
  toolkit.onYield = [this] {
    EXPECT_EQ(shown(), QList<qint32>()) << "while the other book is read";
    press(Qt::Key_Return);
    EXPECT_EQ(editor(), nullptr);
  };
  window().LoadProject(other, true);
  EXPECT_FALSE(toolkit.onYield);
  EXPECT_EQ(shown().size(), 5);
  toolkit.onYield = [this] {
    drag(0, {2, 0});
    press(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(chapter(1), (QList<qint32>{1, 2})) << "while it is saved";
  };
  trigger("mnuSaveProj");
  EXPECT_FALSE(toolkit.onYield);
  trigger("mnuCloseProject");
  EXPECT_EQ(shown(), QList<qint32>());
  EXPECT_EQ(part<QLabel>("lblEmpty").text(), u"No project is open."_s);
  EXPECT_FALSE(isEnabled("mnuStoryboard"));
  const QPointer<frmStoryboard> closed = &form();
  QTest::keyClick(&form(), Qt::Key_Escape);
  EXPECT_TRUE(soon([&] { return closed.isNull(); }));
}
