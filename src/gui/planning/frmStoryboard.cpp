#include "gui/planning/frmStoryboard.h"

#include "core/infra/Guard.h"
#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/planning/BoardGround.h"
#include "gui/planning/BoardSpoken.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/toolkit/Mnemonics.h"
#include "gui/toolkit/Twips.h"
#include "gui/views/SceneCells.h"

#include <QAction>
#include <QGridLayout>
#include <QLabel>
#include <QMenu>
#include <QResizeEvent>
#include <QScopedValueRollback>
#include <QScreen>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <chrono>
#include <cstdlib>

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "frmStoryboard";
constexpr QSize kCellsAtFirst(10, 5);

QString nameOfCard(size_t place) {
  return u"picScene(%1)"_s.arg(place);
}

}  // namespace

frmStoryboard::frmStoryboard(QWidget* parent)
    : QDialog(parent), poller_("Timer1_Timer", kModule, ChangeArea::Storyboard, this) {
  setObjectName(u"frmStoryboard"_s);
  setWindowTitle(u"StoryBoard - Double-click to edit scenes, hold shift and drag scenes to move them around"_s);
  setWindowFlag(Qt::WindowMinMaxButtonsHint);
  setAttribute(Qt::WA_DeleteOnClose);
  setMinimumSize(Twips::toPixels(BoardGrid::kMinimumWidth), Twips::toPixels(BoardGrid::kMinimumHeight));
  createControls();
  createMenu();
  buildLayout();
  connectSignals();
  Guard("Form_Load", kModule)([this] {
    fillTables();
    followChanges();
  });
  // Whole cells, so that the last card can be scrolled into sight whole.
  const int margins = 2 * Twips::toPixels(BoardGrid::kFrameTop);
  const QSize wanted(
      Twips::toPixels(BoardGrid::kCellWidth * kCellsAtFirst.width()) + margins + VScroll1->sizeHint().width(),
      Twips::toPixels(BoardGrid::boardHeight(kCellsAtFirst.height())) + margins + HScroll1->sizeHint().height());
  resize(wanted.boundedTo(screen()->availableSize() * 9 / 10));
}

void frmStoryboard::createControls() {
  speakOfCards();
  picFrame = new QWidget(this);
  picFrame->setObjectName(u"picFrame"_s);
  picSB = new BoardGround(picFrame);
  giveName(*picSB, u"picSB"_s, u"Storyboard"_s);
  auto* const empty = makeLabel(u"lblEmpty"_s, {}, picFrame);
  empty->setAlignment(Qt::AlignCenter);
  empty->setAutoFillBackground(true);
  HScroll1 = new QScrollBar(Qt::Horizontal, this);
  giveName(*HScroll1, u"HScroll1"_s, u"Scenes"_s);
  VScroll1 = new QScrollBar(Qt::Vertical, this);
  giveName(*VScroll1, u"VScroll1"_s, u"Viewpoints"_s);
  edgeTimer_.setParent(this);
  edgeTimer_.setInterval(200ms);
}

void frmStoryboard::createMenu() {
  mnuMain = new QMenu(this);
  mnuMain->setObjectName(u"mnuMain"_s);
  mnuMain->setToolTipsVisible(true);
  const auto add = [this](const QString& name, const QString& caption) {
    QAction* const entry = mnuMain->addAction(caption);
    entry->setObjectName(name);
    return entry;
  };
  connect(add(u"mnuEditScene"_s, u"Edit Scene"_s), &QAction::triggered, this,
          guarded("mnuEditScene_Click", kModule, this, &frmStoryboard::mnuEditScene_Click));
  add(u"mnuSceneDetails"_s, u"View Details"_s);
  connect(add(u"mnuPrintSB"_s, u"Print Storyboard"_s), &QAction::triggered, this,
          guarded("PrintSB", kModule, this, &frmStoryboard::PrintSB));
  assignMnemonics(mnuMain->actions());
}

void frmStoryboard::buildLayout() {
  auto* const grid = new QGridLayout(this);
  const int margin = Twips::toPixels(BoardGrid::kFrameTop);
  grid->setContentsMargins(margin, margin, margin, margin);
  grid->setSpacing(0);
  grid->addWidget(picFrame, 0, 0);
  grid->addWidget(VScroll1, 0, 1);
  grid->addWidget(HScroll1, 1, 0);
  grid->setRowStretch(0, 1);
  grid->setColumnStretch(0, 1);
}

void frmStoryboard::connectSignals() {
  connect(HScroll1, &QScrollBar::valueChanged, this,
          guarded("HScroll1_Change", kModule, this, &frmStoryboard::hScrollMoved));
  connect(VScroll1, &QScrollBar::valueChanged, this,
          guarded("vScrollMoved", kModule, this, &frmStoryboard::vScrollMoved));
  connect(&edgeTimer_, &QTimer::timeout, this,
          guarded("picScene_MouseMove", kModule, this, &frmStoryboard::scrollAtEdges));
}

void frmStoryboard::followChanges() {
  poller_.follow(g_SceneChanges, [](qint32) {});
  poller_.follow(g_CharChanges, [](qint32) {});
  poller_.setAfterPoll([this](bool anyChange) { checkChanges(anyChange); });
  // The cards show what has changed till now.
  g_SceneChanges.ResetChangedByArea(static_cast<int>(ChangeArea::Storyboard));
  g_CharChanges.ResetChangedByArea(static_cast<int>(ChangeArea::Storyboard));
  startPolling();
}

void frmStoryboard::startPolling() {
  poller_.start(1000ms);
}

// What was added or has gone leaves no mark of its own.
void frmStoryboard::checkChanges(bool anyChange) {
  if (anyChange || !tables_.isInStep(*g_Project)) {
    refresh();
  }
}

void frmStoryboard::fillTables() {
  tables_.fill(*g_Project);
  SetupScreen();
}

void frmStoryboard::refresh() {
  endDrag();
  fillTables();
  ResizeScreen();
}

void frmStoryboard::clear() {
  endDrag();
  tables_.clear();
  currentScene_ = 0;
  firstColumn_ = 0;
  VScroll1->setValue(0);
  SetupScreen();
  ResizeScreen();
  picFrame->findChild<QLabel*>(u"lblEmpty"_s)->hide();
}

void frmStoryboard::bringForward() {
  setWindowState(windowState() & ~Qt::WindowMinimized);
  show();
  raise();
  activateWindow();
}

double frmStoryboard::frameWidth() const {
  return Twips::fromPixels(picFrame->width());
}

double frmStoryboard::frameHeight() const {
  return Twips::fromPixels(picFrame->height());
}

// A row that isn't of a character of the book has its bar too.
int frmStoryboard::rows() const {
  return std::max(g_Project->CharCount() + 1, tables_.rows());
}

// A bar for each row.
void frmStoryboard::SetupScreen() {
  Guard("SetupScreen", kModule)([this] { picSB->setBars(rows()); });
  Guard("PrintActors", kModule)([this] { PrintActors(); });
}

void frmStoryboard::PrintActors() {
  QStringList names;
  for (int row = 1; row <= tables_.rows(); ++row) {
    names.append(g_Project->CharByID(tables_.viewpointAt(row))->Title());
  }
  picSB->setNames(names);
}

void frmStoryboard::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  if (!isMinimized()) {
    Guard("ResizeScreen", kModule)([this] {
      layout()->activate();
      ResizeScreen();
    });
  }
}

void frmStoryboard::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() == QEvent::LanguageChange) {
    Guard("Form_Localise", kModule)([this] { refresh(); });
  }
}

void frmStoryboard::ResizeScreen() {
  picSB->resize(Twips::toPixels(BoardGrid::boardWidth(frameWidth())), Twips::toPixels(BoardGrid::boardHeight(rows())));
  Guard("DrawScrollbars", kModule)([this] { DrawScrollbars(); });
  RedisplayCards();
  vScrollMoved();
  sayWhyEmpty();
}

void frmStoryboard::DrawScrollbars() {
  const QScopedValueRollback redrawing(redrawing_, true);
  VScroll1->setRange(0, BoardGrid::lastFirstRow(rows(), frameHeight()));
  VScroll1->setPageStep(std::max(BoardGrid::rowsInView(frameHeight()), 1));
  VScroll1->setEnabled(rows() > BoardGrid::wholeRows(frameHeight()));
  if (!VScroll1->isEnabled()) {
    VScroll1->setValue(0);
  }
  HScroll1->setRange(0, BoardGrid::lastFirstColumn(tables_.columns(), frameWidth()));
  HScroll1->setPageStep(std::max(BoardGrid::visibleColumns(frameWidth()), 1));
  HScroll1->setValue(firstColumn_);
  firstColumn_ = HScroll1->value();
}

void frmStoryboard::hScrollMoved() {
  if (!redrawing_) {
    turnCards(HScroll1->value() - firstColumn_);
    firstColumn_ = HScroll1->value();
    RedisplayCards();
  }
}

// A scene that is seen before and after keeps its card, and the keyboard what it is on.
void frmStoryboard::turnCards(int columns) {
  const auto count = static_cast<int>(cards_.size());
  if (columns == 0 || std::abs(columns) >= count) {
    return;
  }
  std::rotate(cards_.begin(), cards_.begin() + (columns > 0 ? columns : count + columns), cards_.end());
  for (size_t place = 0; place < cards_.size(); ++place) {
    cards_[place]->setObjectName(nameOfCard(place));
  }
}

void frmStoryboard::vScrollMoved() {
  if (!redrawing_) {
    FitToFrame(-VScroll1->value() * BoardGrid::kCellHeight);
  }
}

void frmStoryboard::FitToFrame(double wanted) {
  const double height = BoardGrid::boardHeight(rows());
  picSB->move(Twips::toPixels(BoardGrid::kRest), Twips::toPixels(BoardGrid::fitted(wanted, height, frameHeight())));
  liftedToPointer();
}

void frmStoryboard::RedisplayCards() {
  const QScopedValueRollback redrawing(redrawing_, true);
  // A card with the keyboard may be another scene's afterwards.
  const bool hadKeyboard = picSB->isAncestorOf(focusWidget()) || focusWidget() == picSB;
  Guard("RedisplayCards", kModule)([this] { drawSeen(); });
  setTabStop();
  if (hadKeyboard && !isDragging()) {
    focusCurrent();
  }
}

void frmStoryboard::drawSeen() {
  const int visible = BoardGrid::visibleColumns(frameWidth());
  const int shown = std::clamp(tables_.columns() - firstColumn_, 0, visible);
  std::vector<BoardGround::ChapterMark> marks;
  qint32 chapter = 0;
  for (int place = 0; place < shown; ++place) {
    const qint32 column = firstColumn_ + place + 1;
    DrawCard(place, column);
    if (tables_.chapterAt(column) != chapter) {
      chapter = tables_.chapterAt(column);
      // In the middle of a command the book may be ahead of the tables.
      const auto inBook = g_Project->ChapterByIndex(chapter);
      marks.push_back({place, chapter, inBook ? inBook->Title : QString()});
    }
  }
  for (size_t place = static_cast<size_t>(shown); place < cards_.size(); ++place) {
    cards_[place]->hide();
  }
  picSB->setChapterMarks(marks);
}

void frmStoryboard::DrawCard(int place, qint32 column) {
  StoryCard& card = picScene(place);
  const int row = tables_.rowAt(column);
  const auto scene = g_Project->SceneByID(tables_.sceneAt(column));
  if (!scene->InScenes()) {
    card.hide();
    return;
  }
  Guard("PrintOnCard", kModule)([&] { card.PrintOnCard(*scene, row, {column, tables_.columns()}); });
  Guard("DrawCard", kModule)([&] {
    const auto [x, y] = BoardGrid::cardAt(place, row);
    card.move(Twips::toPixels(x), Twips::toPixels(y));
    card.setVisible(!isDragging() || column != from_.column);
  });
}

StoryCard& frmStoryboard::picScene(int place) {
  while (static_cast<int>(cards_.size()) <= place) {
    StoryCard* const card = makeCard();
    giveName(*card, nameOfCard(cards_.size()), u"Card"_s);
    cards_.push_back(card);
  }
  return *cards_[static_cast<size_t>(place)];
}

StoryCard* frmStoryboard::makeCard() {
  auto* const card = new StoryCard(picSB);
  connect(card, &StoryCard::pressed, this,
          guarded("picScene_MouseDown", kModule, this, &frmStoryboard::picScene_MouseDown));
  connect(card, &StoryCard::moved, this,
          guarded("picScene_MouseMove", kModule, this, &frmStoryboard::picScene_MouseMove));
  connect(card, &StoryCard::released, this,
          guarded("picScene_MouseUp", kModule, this, &frmStoryboard::picScene_MouseUp));
  connect(card, &StoryCard::doubleClicked, this,
          guarded("picScene_DblClick", kModule, this, &frmStoryboard::mnuEditScene_Click));
  connect(card, &StoryCard::menuWanted, this,
          guarded("picScene_MouseDown", kModule, [this](const StoryCard* of, const QPoint& place) {
            select(of->tag());
            popUpMenu(place);
          }));
  return card;
}

void frmStoryboard::sayWhyEmpty() {
  auto* const empty = picFrame->findChild<QLabel*>(u"lblEmpty"_s);
  empty->setText(translatedLines(SceneCells::whyNone()));
  empty->adjustSize();
  empty->move(picFrame->rect().center() - empty->rect().center());
  empty->setVisible(tables_.columns() == 0);
}

void frmStoryboard::wheelEvent(QWheelEvent* event) {
  const QPoint turned = event->angleDelta();
  const bool sideways = std::abs(turned.x()) > std::abs(turned.y()) || event->modifiers().testFlag(Qt::ShiftModifier);
  QScrollBar* const bar = sideways || !VScroll1->isEnabled() ? HScroll1 : VScroll1;
  // Not sent: what the bar has no use for would come back here.
  bar->event(event);
}
