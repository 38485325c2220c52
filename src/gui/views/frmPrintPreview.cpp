#include "gui/views/frmPrintPreview.h"

#include "core/infra/cSharedLang.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/toolkit/WindowSettings.h"
#include "gui/toolkit/WindowTitle.h"
#include "gui/views/PageView.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSpinBox>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "frmPrintPreview";
const QString kBlock = u"PrintPreview"_s;
/// Entries of the zoom in front of the hundredths.
enum Fit { kWholePage = 0, kPageWidth = 1 };
constexpr int kHundredths[] = {50, 75, 100, 125, 150, 200, 300};
constexpr int kFits = 2;
constexpr double kPartOfScreen = 0.8;

QPushButton* makeTurner(const QString& name, const QString& caption, const QString& tip, QWidget* parent) {
  QPushButton* const button = makeButton(name, caption, parent);
  button->setToolTip(tip);
  return button;
}

}  // namespace

frmPrintPreview::frmPrintPreview(std::shared_ptr<const PrintDocument> document, QWidget* parent)
    : QDialog(parent), document_(std::move(document)) {
  setObjectName(u"frmPrintPreview"_s);
  setWindowTitle(literalTitle(translated(u"Preview: %1"_s).arg(document_->title)));
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  createControls();
  buildLayout();
  connectSignals();
  resize(screen()->availableSize() * kPartOfScreen);
  restoreWindow(kBlock, *this);
  cmdPrint->setFocus();
}

void frmPrintPreview::createControls() {
  picPage = new PageView;
  area_ = new QScrollArea(this);
  area_->setObjectName(u"scrPage"_s);
  area_->setAccessibleName(u"Page"_s);
  area_->setAlignment(Qt::AlignCenter);
  area_->setBackgroundRole(QPalette::Dark);
  area_->setWidget(picPage);
  area_->installEventFilter(this);
  cmdFirst = makeTurner(u"cmdFirst"_s, u"&First"_s, u"First page (Home)"_s, this);
  cmdPrevious = makeTurner(u"cmdPrevious"_s, u"P&revious"_s, u"Previous page (Page Up)"_s, this);
  cmdNext = makeTurner(u"cmdNext"_s, u"&Next"_s, u"Next page (Page Down)"_s, this);
  cmdLast = makeTurner(u"cmdLast"_s, u"&Last"_s, u"Last page (End)"_s, this);
  txtPage = new QSpinBox(this);
  giveName(*txtPage, u"txtPage"_s, u"Page number"_s);
  txtPage->findChild<QLineEdit*>()->setAccessibleName(u"Page number"_s);
  txtPage->setRange(1, qMax(1, pageCount()));
  txtPage->setSuffix(translated(u" of %L1"_s).arg(pageCount()));
  txtPage->setKeyboardTracking(false);
  txtPage->installEventFilter(this);
  cmbZoom = new QComboBox(this);
  giveName(*cmbZoom, u"cmbZoom"_s, u"Zoom"_s);
  cmbZoom->setToolTip(u"Size of the page (Ctrl++, Ctrl+-)"_s);
  cmbZoom->addItems({translated(u"Whole page"_s), translated(u"Page width"_s)});
  for (const int hundredths : kHundredths) {
    cmbZoom->addItem(u"%1%"_s.arg(hundredths));
  }
  cmdPrint = makeButton(u"cmdPrint"_s, u"&Print"_s, this);
  cmdPrint->setToolTip(u"Prints the report"_s);
  cmdPrint->setDefault(true);
  cmdCancel = makeButton(u"cmdCancel"_s, u"&Cancel"_s, this);
  cmdCancel->setToolTip(u"Goes back to the choice of the printer"_s);
}

void frmPrintPreview::buildLayout() {
  auto* const bar = new QHBoxLayout;
  for (QPushButton* const button : {cmdFirst, cmdPrevious}) {
    bar->addWidget(button);
  }
  bar->addWidget(makeLabelOf(u"Pa&ge:"_s, *txtPage));
  bar->addWidget(txtPage);
  for (QPushButton* const button : {cmdNext, cmdLast}) {
    bar->addWidget(button);
  }
  bar->addStretch(1);
  bar->addWidget(makeLabelOf(u"&Zoom:"_s, *cmbZoom));
  bar->addWidget(cmbZoom);
  auto* const buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(cmdPrint);
  buttons->addWidget(cmdCancel);
  auto* const column = new QVBoxLayout(this);
  column->addLayout(bar);
  column->addWidget(area_, 1);
  column->addLayout(buttons);
  giveTabOrder({cmdFirst, cmdPrevious, txtPage, cmdNext, cmdLast, cmbZoom, area_, cmdPrint, cmdCancel});
}

void frmPrintPreview::connectSignals() {
  const auto turn = [this](QPushButton* button, const char* routine, int by) {
    connect(button, &QPushButton::clicked, this, guarded(routine, kModule, [this, by] { goBy(by); }));
  };
  turn(cmdFirst, "cmdFirst_Click", -pageCount());
  turn(cmdPrevious, "cmdPrevious_Click", -1);
  turn(cmdNext, "cmdNext_Click", 1);
  turn(cmdLast, "cmdLast_Click", pageCount());
  connect(txtPage, &QSpinBox::valueChanged, this, guarded("txtPage_Change", kModule, this, &frmPrintPreview::showPage));
  connect(cmbZoom, &QComboBox::currentIndexChanged, this,
          guarded("cmbZoom_Click", kModule, this, &frmPrintPreview::zoomTo));
  connect(cmdPrint, &QPushButton::clicked, this, &QDialog::accept);
  connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmPrintPreview::showPage(int number) {
  if (document_->pages.empty()) {
    return;
  }
  picPage->show(document_->pages[static_cast<size_t>(number - 1)], document_->paper);
  area_->verticalScrollBar()->setValue(0);
  const auto* const turner = qobject_cast<QPushButton*>(focusWidget());
  for (QPushButton* const button : {cmdFirst, cmdPrevious}) {
    button->setEnabled(number > 1);
  }
  for (QPushButton* const button : {cmdNext, cmdLast}) {
    button->setEnabled(number < pageCount());
  }
  // A button that went leaves the focus to its counterpart: what comes next in the window may print at Enter.
  if (turner != nullptr && !turner->isEnabled()) {
    (number > 1 ? cmdPrevious : cmdNext)->setFocus();
  }
}

void frmPrintPreview::goBy(int pages) {
  txtPage->setValue(txtPage->value() + pages);
}

void frmPrintPreview::zoomTo() {
  const int choice = cmbZoom->currentIndex();
  if (choice >= kFits) {
    picPage->setZoom(kHundredths[choice - kFits] / 100.0);
    return;
  }
  constexpr int kAround = 12;
  // As if there were no scroll bars: those of another size are about to go.
  QSize room = area_->maximumViewportSize() - QSize(kAround, kAround);
  if (choice == kPageWidth) {
    room = QSize(area_->width() - area_->verticalScrollBar()->sizeHint().width() - kAround, 0);
  }
  picPage->setZoom(picPage->zoomFor(room));
}

/// To the next of the sizes that are offered.
void frmPrintPreview::zoomBy(int steps) {
  const double now = picPage->zoom() * 100;
  constexpr int kSizes = static_cast<int>(std::size(kHundredths));
  int size = steps > 0 ? 0 : kSizes - 1;
  while (size > 0 && steps < 0 && kHundredths[size] >= now - 0.5) {
    --size;
  }
  while (size < kSizes - 1 && steps > 0 && kHundredths[size] <= now + 0.5) {
    ++size;
  }
  cmbZoom->setCurrentIndex(kFits + size);
}

bool frmPrintPreview::readKey(const QKeyEvent& event) {
  const bool control = event.modifiers().testFlag(Qt::ControlModifier);
  switch (event.key()) {
    case Qt::Key_PageUp:
      goBy(-1);
      return true;
    case Qt::Key_PageDown:
      goBy(1);
      return true;
    case Qt::Key_Home:
      goBy(-pageCount());
      return true;
    case Qt::Key_End:
      goBy(pageCount());
      return true;
    case Qt::Key_Plus:
    case Qt::Key_Equal:
      if (control) {
        zoomBy(1);
      }
      return control;
    case Qt::Key_Minus:
      if (control) {
        zoomBy(-1);
      }
      return control;
    default:
      return false;
  }
}

void frmPrintPreview::keyPressEvent(QKeyEvent* event) {
  if (!readKey(*event)) {
    QDialog::keyPressEvent(event);
  }
}

/// Enter takes the number that was typed, and isn't one for the print; Home and End stay the field's own.
bool frmPrintPreview::readNumberKey(const QKeyEvent& event) {
  const bool isEnter = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
  const bool isTurn = event.key() == Qt::Key_PageUp || event.key() == Qt::Key_PageDown;
  if (isEnter || isTurn) {
    txtPage->interpretText();
  }
  if (isEnter) {
    txtPage->selectAll();
  }
  return isEnter || (isTurn && readKey(event));
}

/// The sheet and the number would take these keys for something else.
bool frmPrintPreview::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const auto& key = *static_cast<QKeyEvent*>(event);
    if (watched == txtPage ? readNumberKey(key) : watched == area_ && readKey(key)) {
      return true;
    }
  }
  return QDialog::eventFilter(watched, event);
}

void frmPrintPreview::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  if (isVisible() && cmbZoom->currentIndex() < kFits) {
    zoomTo();
  }
}

void frmPrintPreview::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  layout()->activate();
  showPage(txtPage->value());
  zoomTo();
}

void frmPrintPreview::done(int result) {
  storeWindow(kBlock, *this);
  QDialog::done(result);
}
