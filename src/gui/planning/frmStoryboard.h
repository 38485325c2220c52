#pragma once

#include "core/infra/ChangePoller.h"
#include "core/planning/BoardTables.h"
#include "core/reports/PrintReport.h"
#include "gui/planning/StoryCard.h"

#include <QDialog>
#include <QTimer>

#include <vector>

class BoardGround;
class QMenu;
class QScrollBar;

/// The whole book as a grid of cards: a column for each scene, in the order of the story, a row for each viewpoint.
/// Only the cards that are seen exist; they show one scene after another when the board is scrolled sideways. The
/// window works on the open project and keeps itself in step with it: once a second it asks the change tables.
class frmStoryboard : public QDialog {
  Q_OBJECT

 public:
  explicit frmStoryboard(QWidget* parent = nullptr);

  /// All cards anew, as the book stands.
  void refresh();
  /// No cards, whatever the project holds: it is going.
  void clear();
  /// Up and to the front.
  void bringForward();

 Q_SIGNALS:
  /// A card was put down, wherever.
  void MadeChange();
  /// A scene was opened in its editor, or brought forward there.
  void sceneOpened();

 protected:
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  using Cell = BoardGrid::Cell;

  // frmStoryboard.cpp
  void createControls();
  void createMenu();
  void buildLayout();
  void connectSignals();
  void followChanges();
  void startPolling();
  void fillTables();
  void checkChanges(bool anyChange);
  void SetupScreen();
  void ResizeScreen();
  void RedisplayCards();
  void drawSeen();
  void DrawCard(int place, qint32 column);
  StoryCard& picScene(int place);
  StoryCard* makeCard();
  void PrintActors();
  void DrawScrollbars();
  void FitToFrame(double wanted);
  void hScrollMoved();
  void turnCards(int columns);
  void vScrollMoved();
  void sayWhyEmpty();
  double frameWidth() const;
  double frameHeight() const;
  int rows() const;

  // frmStoryboardDrag.cpp
  void picScene_MouseDown(StoryCard* card, QMouseEvent* event);
  void picScene_MouseMove(QMouseEvent* event);
  void picScene_MouseUp(QMouseEvent* event);
  void beginDrag(StoryCard& card, const QPoint& grab);
  void endDrag();
  void giveUpDrag();
  void liftedToPointer();
  void scrollAtEdges();
  Cell cellOf(const StoryCard& card) const;
  void PlaceScene(Cell from, Cell to);
  bool isDragging() const { return lifted_ != nullptr; }

  // frmStoryboardKeys.cpp
  bool doKey(int key, bool shift);
  bool doKeyInDrag(int key);
  qint32 currentColumn() const;
  void setTabStop();
  void stepTo(qint32 column);
  void moveBy(Cell step);
  void select(qint32 scene);
  void showColumn(qint32 column);
  void focusCurrent();
  void mnuEditScene_Click();
  void popUpMenu(const QPoint& place);

  // frmStoryboardPrint.cpp
  class AsBefore;
  void PrintSB();
  PrintDocument screenshots(const ReportJob& job);
  QByteArray screenshot();

  QWidget* picFrame = nullptr;
  BoardGround* picSB = nullptr;
  QScrollBar* HScroll1 = nullptr;
  QScrollBar* VScroll1 = nullptr;
  QMenu* mnuMain = nullptr;
  BoardTables tables_;
  std::vector<StoryCard*> cards_;
  int firstColumn_ = 0;
  /// The scene of the card that was pressed last, or that the keyboard is on; 0 at first.
  qint32 currentScene_ = 0;
  /// Scroll bars are being set or cards drawn: what the bars tell meanwhile counts for nothing.
  bool redrawing_ = false;
  /// The card that is dragged; the others make up the board meanwhile.
  StoryCard* lifted_ = nullptr;
  StoryCard* spare_ = nullptr;
  QPoint grab_;
  /// Where on the screen the mouse was seen last.
  QPoint pointer_;
  Cell from_;
  /// While a card is held at an edge of the frame.
  QTimer edgeTimer_;
  ChangePoller poller_;
};
