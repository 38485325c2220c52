#include "gui/toolkit/cSharedProgress.h"

#include "core/infra/cSharedLang.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/toolkit/InputShield.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>
#include <QWidget>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace {

constexpr int kWidthInChars = 48;

/// Escape anywhere in it presses its Stop button.
class ProgressBox : public QWidget {
 public:
  using QWidget::QWidget;

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    auto* const stop = findChild<QPushButton*>(u"cmdStop"_s);
    if (stop == nullptr || event->key() != Qt::Key_Escape) {
      QWidget::keyPressEvent(event);
      return;
    }
    stop->click();
  }
};

}  // namespace

cSharedProgress::cSharedProgress() = default;
cSharedProgress::~cSharedProgress() {
  delete window_.data();
}

void cSharedProgress::build() {
  // No close button: it would only hide what goes on.
  window_ = new ProgressBox(QApplication::activeWindow(), Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
  window_->setObjectName(u"cSharedProgress"_s);
  window_->setWindowTitle(u"Quillane"_s);
  window_->setAttribute(Qt::WA_ShowWithoutActivating);
  lblCaption_ = makeLabel(u"lblCaption"_s, {}, window_);
  auto* bar = new QProgressBar(window_);
  bar->setRange(0, 0);
  bar->setTextVisible(false);
  bar->setAccessibleName(shownText(u"Busy"_s));
  bar->setMinimumWidth(window_->fontMetrics().averageCharWidth() * kWidthInChars);
  auto* layout = new QVBoxLayout(window_);
  layout->setSizeConstraint(QLayout::SetMinAndMaxSize);
  layout->addWidget(lblCaption_);
  layout->addWidget(bar);
  if (stop_) {
    addStop(*layout);
  }
}

void cSharedProgress::addStop(QVBoxLayout& layout) {
  QPushButton* const stop = makeButton(u"cmdStop"_s, u"Stop"_s, window_);
  layout.addWidget(stop, 0, Qt::AlignRight);
  QObject::connect(stop, &QPushButton::clicked, window_,
                   guarded("cmdStop_Click", "cSharedProgress", [stop, asked = stop_] {
                     stop->setEnabled(false);
                     asked();
                   }));
  InputShield::letThrough(*window_);
}

void cSharedProgress::Show() {
  if (!window_) {
    build();
  }
  lblCaption_->setText(caption_);
  window_->show();
  window_->raise();
  if (window_->parentWidget() != nullptr) {
    paintAtOnce();
  }
}

// The window system puts a window up some time after it was told to, and the work may not yield for a while. Before the
// main window is there the splash says what goes on.
void cSharedProgress::paintAtOnce() {
  constexpr qint64 kMostMs = 100;
  constexpr int kStepMs = 10;
  QElapsedTimer waiting;
  waiting.start();
  const auto isUp = [this] { return !window_ || (window_->windowHandle() && window_->windowHandle()->isExposed()); };
  while (!isUp() && waiting.elapsed() < kMostMs) {
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::WaitForMoreEvents, kStepMs);
  }
  if (window_) {
    window_->repaint();
  }
}

void cSharedProgress::offerStop(std::function<void()> stop) {
  stop_ = std::move(stop);
}

void cSharedProgress::Hide() {
  if (window_) {
    window_->hide();
  }
}

void cSharedProgress::setCaption(const QString& caption) {
  caption_ = caption;
  if (window_ && window_->isVisible()) {
    lblCaption_->setText(caption);
  }
}
