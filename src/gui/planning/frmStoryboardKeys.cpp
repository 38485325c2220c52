// The card that the keyboard is on, and what its keys and its menu do.
#include "core/infra/Guard.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/planning/BoardGround.h"
#include "gui/planning/frmStoryboard.h"

#include <QKeyEvent>
#include <QMenu>
#include <QScrollBar>

#include <algorithm>

namespace {

constexpr auto kModule = "frmStoryboard";

}  // namespace

void frmStoryboard::keyPressEvent(QKeyEvent* event) {
  const auto modifiers = event->modifiers() & ~Qt::KeypadModifier;
  const bool shift = modifiers == Qt::ShiftModifier;
  bool done = false;
  if (shift || modifiers == Qt::NoModifier) {
    Guard("Form_KeyDown",
          kModule)([&] { done = isDragging() ? doKeyInDrag(event->key()) : doKey(event->key(), shift); });
  }
  if (!done) {
    QDialog::keyPressEvent(event);
  }
}

bool frmStoryboard::doKeyInDrag(int key) {
  if (key == Qt::Key_Escape) {
    giveUpDrag();
  }
  return true;
}

bool frmStoryboard::doKey(int key, bool shift) {
  const qint32 column = currentColumn();
  switch (key) {
    case Qt::Key_Left:
      shift ? moveBy({-1, 0}) : stepTo(column - 1);
      return true;
    case Qt::Key_Right:
      shift ? moveBy({1, 0}) : stepTo(column + 1);
      return true;
    case Qt::Key_Up:
      shift ? moveBy({0, -1}) : stepTo(tables_.columnBeside(column, -1));
      return true;
    case Qt::Key_Down:
      shift ? moveBy({0, 1}) : stepTo(tables_.columnBeside(column, 1));
      return true;
    case Qt::Key_F10:
      // Small keyboards have no key for the menu.
      if (StoryCard* const card = shift ? dynamic_cast<StoryCard*>(focusWidget()) : nullptr) {
        popUpMenu(card->mapToGlobal(card->rect().center()));
      }
      return shift;
    case Qt::Key_Home:
      stepTo(1);
      return true;
    case Qt::Key_End:
      stepTo(tables_.columns());
      return true;
    case Qt::Key_PageUp:
      stepTo(column - BoardGrid::wholeColumns(frameWidth()));
      return true;
    case Qt::Key_PageDown:
      stepTo(column + BoardGrid::wholeColumns(frameWidth()));
      return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      mnuEditScene_Click();
      return true;
    default:
      return false;
  }
}

/// The first that is seen, as long as no card was pressed.
qint32 frmStoryboard::currentColumn() const {
  const qint32 column = tables_.columnOf(currentScene_);
  return column > 0 ? column : firstColumn_ + 1;
}

void frmStoryboard::stepTo(qint32 column) {
  const qint32 there = std::clamp(column, 1, std::max(tables_.columns(), 1));
  select(tables_.sceneAt(there));
  showColumn(there);
  focusCurrent();
}

// By the road of a drop. There is no row and no column to go to beyond the last.
void frmStoryboard::moveBy(Cell step) {
  const qint32 column = currentColumn();
  const Cell from{column, tables_.rowAt(column)};
  const Cell to{from.column + step.column, from.row + step.row};
  if (tables_.sceneAt(column) == 0 || tables_.sceneAt(to.column) == 0 || !tables_.isRow(to.row)) {
    return;
  }
  select(tables_.sceneAt(column));
  PlaceScene(from, to);
}

void frmStoryboard::select(qint32 scene) {
  currentScene_ = scene;
  setTabStop();
}

// One card takes the Tab key: the others are reached from it by the arrows.
void frmStoryboard::setTabStop() {
  const qint32 column = currentColumn();
  const qint32 place = column - firstColumn_ - 1;
  const auto stop = place < 0 || place >= static_cast<qint32>(cards_.size()) ? 0 : static_cast<size_t>(place);
  for (size_t i = 0; i < cards_.size(); ++i) {
    cards_[i]->setFocusPolicy(i == stop ? Qt::StrongFocus : Qt::ClickFocus);
  }
}

void frmStoryboard::showColumn(qint32 column) {
  if (tables_.sceneAt(column) == 0) {
    return;
  }
  HScroll1->setValue(std::clamp(HScroll1->value(), column - BoardGrid::wholeColumns(frameWidth()), column - 1));
  const int row = tables_.rowAt(column);
  VScroll1->setValue(std::clamp(VScroll1->value(), row - BoardGrid::wholeRows(frameHeight()), row - 1));
}

// A card that isn't seen can't have the keyboard; the arrows go on from it all the same.
void frmStoryboard::focusCurrent() {
  const qint32 scene = tables_.sceneAt(currentColumn());
  const auto shown = std::find_if(cards_.begin(), cards_.end(), [&](const StoryCard* card) {
    return card->isVisibleTo(picSB) && card->tag() == scene;
  });
  QWidget* const taker = shown == cards_.end() ? static_cast<QWidget*>(picSB) : *shown;
  taker->setFocus();
}

void frmStoryboard::mnuEditScene_Click() {
  const auto scene = g_Project->SceneByID(tables_.sceneAt(currentColumn()));
  if (g_Project->IsBusy() || !scene->InScenes()) {
    return;
  }
  scene->Edit();
  Q_EMIT sceneOpened();
}

void frmStoryboard::popUpMenu(const QPoint& place) {
  mnuMain->popup(place);
}
