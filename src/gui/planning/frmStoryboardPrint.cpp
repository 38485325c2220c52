// The board on paper: one screenshot after another.
#include "core/infra/Toolkit.h"
#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "gui/planning/BoardGround.h"
#include "gui/planning/frmStoryboard.h"
#include "gui/views/PrintRun.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QImage>
#include <QPointer>
#include <QScrollBar>

#include <algorithm>
#include <chrono>

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

/// Around the screenshot on its page, in twips.
constexpr double kMargin = 500;
/// Paper is finer than a screen.
constexpr double kLeastDotsOfAPixel = 2;
/// Of 100; what is plain packs well with little effort.
constexpr int kPackedQuickly = 80;

// When a desktop makes a window larger is its own affair, and whether it does.
void putInState(const QPointer<QWidget>& window, Qt::WindowStates state) {
  if (window->windowState() == state) {
    return;
  }
  const QSize before = window->size();
  window->setWindowState(state);
  QTimer tick;
  tick.start(10ms);
  const QDeadlineTimer patience(500ms);
  while (window && window->size() == before && !patience.hasExpired()) {
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::WaitForMoreEvents);
  }
}

/// On whatever desktop: black letters on white paper.
QPalette paper() {
  return {QColor(0xE0, 0xE0, 0xE0), Qt::white};
}

}  // namespace

/// However the board is shown meanwhile, it is shown as before when this goes, if it is there still.
class frmStoryboard::AsBefore {
 public:
  explicit AsBefore(frmStoryboard& board)
      : board_(&board),
        state_(board.windowState()),
        palette_(board.palette()),
        hasPalette_(board.testAttribute(Qt::WA_SetPalette)),
        column_(board.HScroll1->value()),
        row_(board.VScroll1->value()),
        hadKeyboard_(board.picSB->isAncestorOf(board.focusWidget())) {}
  ~AsBefore() {
    if (!board_) {
      return;
    }
    board_->setPalette(hasPalette_ ? palette_ : QPalette());
    putInState(board_.data(), state_);
    if (board_) {
      board_->DrawScrollbars();
      board_->VScroll1->setValue(row_);
      board_->HScroll1->setValue(column_);
      if (hadKeyboard_) {
        board_->focusCurrent();
      }
    }
  }
  AsBefore(const AsBefore&) = delete;
  AsBefore& operator=(const AsBefore&) = delete;

 private:
  QPointer<frmStoryboard> board_;
  Qt::WindowStates state_;
  QPalette palette_;
  bool hasPalette_;
  int column_;
  int row_;
  bool hadKeyboard_;
};

void frmStoryboard::PrintSB() {
  if (tables_.columns() == 0) {
    toolkit().MsgBox(u"There is nothing to print."_s);
    return;
  }
  if (g_Project->IsBusy() ||
      toolkit().MsgBox(
          u"For best results, set the height of the storyboard so that all active characters are visible,\r\n"
          "and set the width to maximum. Are you ready to proceed?"_s,
          Buttons::YesNo) != Answer::Yes) {
    return;
  }
  const QPointer<frmStoryboard> board(this);
  const AsBefore before(*this);
  putInState(this, Qt::WindowMaximized);
  if (!board) {
    return;
  }
  HScroll1->setValue(0);
  const int number = BoardGrid::screenshots(tables_.columns(), BoardGrid::wholeColumns(frameWidth()));
  if (toolkit().MsgBox(translated(u"This routine will print %1 screenshot(s). Are you sure?"_s).arg(number),
                       Buttons::YesNo) != Answer::Yes ||
      !board) {
    return;
  }
  const ReportLayout report = [board](const ReportJob& job) {
    return board ? board->screenshots(job) : PrintDocument();
  };
  printReport({.key = u"Storyboard"_s,
               .prompt = shownText(u"Click PRINT to continue."_s),
               .name = printFileName(shownText(u"Storyboard"_s)),
               .report = report,
               .routine = "PrintSB",
               .module = "frmStoryboard"});
}

PrintDocument frmStoryboard::screenshots(const ReportJob& job) {
  PrintDocument document{
      translated(u"%1 storyboard"_s).arg(g_Project->Title), g_Project->AuthorName, PaperSize::a4().turned(), {}};
  const AsBefore before(*this);
  setPalette(paper());
  // No card is printed as the one that the keyboard is on.
  if (QWidget* const taker = focusWidget()) {
    taker->clearFocus();
  }
  const int whole = BoardGrid::wholeColumns(frameWidth());
  const int number = BoardGrid::screenshots(tables_.columns(), whole);
  HScroll1->setMaximum(std::max(HScroll1->maximum(), (number - 1) * whole));
  for (int shot = 0; shot < number; ++shot) {
    HScroll1->setValue(shot * whole);
    job.progress.step(shownText(u"Taking screenshot %1"_s), shot + 1);
    PrintedPage page;
    page.pictures.push_back(
        {kMargin, kMargin, document.paper.width - 2 * kMargin, document.paper.height - 2 * kMargin, screenshot()});
    document.pages.push_back(std::move(page));
  }
  return document;
}

QByteArray frmStoryboard::screenshot() {
  const double dots = std::max(kLeastDotsOfAPixel, devicePixelRatioF());
  QImage picPrint(size() * dots, QImage::Format_RGB32);
  picPrint.setDevicePixelRatio(dots);
  render(&picPrint);
  QBuffer png;
  png.open(QIODevice::WriteOnly);
  picPrint.save(&png, "PNG", kPackedQuickly);
  return png.data();
}
