// Cards that are moved with the mouse.
#include "core/infra/Guard.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/planning/BoardDrop.h"
#include "gui/planning/BoardGround.h"
#include "gui/planning/frmStoryboard.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/Twips.h"

#include <QApplication>
#include <QMouseEvent>
#include <QScrollBar>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Within so much of the frame's edge a card that is held there scrolls the board.
constexpr int kEdge = 16;

int beyond(int at, int size) {
  return at < kEdge ? -1 : static_cast<int>(at >= size - kEdge);
}

}  // namespace

void frmStoryboard::picScene_MouseDown(StoryCard* card, QMouseEvent* event) {
  if (isDragging() && event->button() != Qt::LeftButton) {
    return;
  }
  // One that was let go while input was held back.
  giveUpDrag();
  select(card->tag());
  pointer_ = event->globalPosition().toPoint();
  if (event->button() == Qt::RightButton) {
    popUpMenu(pointer_);
  } else if (event->button() == Qt::LeftButton && event->modifiers().testFlag(Qt::ShiftModifier) &&
             !g_Project->IsBusy()) {
    beginDrag(*card, event->position().toPoint());
  }
}

// The changes of others wait: what is under way began with the book as the board shows it.
void frmStoryboard::beginDrag(StoryCard& card, const QPoint& grab) {
  const auto place = std::find(cards_.begin(), cards_.end(), &card);
  if (place == cards_.end()) {
    return;
  }
  poller_.stop();
  from_ = cellOf(card);
  grab_ = grab;
  lifted_ = &card;
  spare_ = spare_ == nullptr ? makeCard() : spare_;
  giveName(*spare_, card.objectName(), u"Card"_s);
  *place = std::exchange(spare_, nullptr);
  card.setObjectName(u"picScene(lifted)"_s);
  card.setCursor(Qt::SizeAllCursor);
  card.raise();
}

/// Whoever is called next draws the cards anew.
void frmStoryboard::endDrag() {
  if (!isDragging()) {
    return;
  }
  edgeTimer_.stop();
  spare_ = std::exchange(lifted_, nullptr);
  spare_->unsetCursor();
  spare_->hide();
  startPolling();
}

void frmStoryboard::giveUpDrag() {
  if (isDragging()) {
    endDrag();
    RedisplayCards();
  }
}

void frmStoryboard::liftedToPointer() {
  if (isDragging()) {
    lifted_->move(picSB->mapFromGlobal(pointer_) - grab_);
  }
}

void frmStoryboard::picScene_MouseMove(QMouseEvent* event) {
  if (isDragging() && event->buttons().testFlag(Qt::LeftButton)) {
    // A press alone moves nothing, be it at an edge.
    if ((event->globalPosition().toPoint() - pointer_).manhattanLength() >= QApplication::startDragDistance() &&
        !edgeTimer_.isActive()) {
      edgeTimer_.start();
    }
    pointer_ = event->globalPosition().toPoint();
    liftedToPointer();
  }
}

void frmStoryboard::scrollAtEdges() {
  const QPoint at = picFrame->mapFromGlobal(pointer_);
  HScroll1->setValue(HScroll1->value() + beyond(at.x(), picFrame->width()));
  if (VScroll1->isEnabled()) {
    VScroll1->setValue(VScroll1->value() + beyond(at.y(), picFrame->height()));
  }
}

void frmStoryboard::picScene_MouseUp(QMouseEvent* event) {
  if (!isDragging() || event->button() != Qt::LeftButton) {
    return;
  }
  pointer_ = event->globalPosition().toPoint();
  liftedToPointer();
  const Cell from = from_;
  const Cell to = cellOf(*lifted_);
  endDrag();
  PlaceScene(from, to);
}

frmStoryboard::Cell frmStoryboard::cellOf(const StoryCard& card) const {
  return BoardGrid::cellOf({Twips::fromPixels(card.x()), Twips::fromPixels(card.y())}, firstColumn_);
}

void frmStoryboard::PlaceScene(Cell from, Cell to) {
  if (g_Project->IsBusy()) {
    RedisplayCards();
    return;
  }
  poller_.stop();
  Guard guard("PlaceScene", "frmStoryboard");
  guard([&] { BoardDrop::drop(tables_, from, to); });
  guard([&] {
    poller_.poll();
    RedisplayCards();
    Q_EMIT MadeChange();
    showColumn(tables_.columnOf(currentScene_));
    focusCurrent();
  });
  startPolling();
}
