#include "gui/toolkit/cSharedProgress.h"

#include "gui/toolkit/Controls.h"

#include <QApplication>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace {

constexpr int kWidthInChars = 48;

}  // namespace

cSharedProgress::cSharedProgress() = default;
cSharedProgress::~cSharedProgress() {
  delete window_.data();
}

void cSharedProgress::build() {
  // No close button: it would only hide what goes on.
  window_ = new QWidget(QApplication::activeWindow(), Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
  window_->setObjectName(u"cSharedProgress"_s);
  window_->setWindowTitle(u"Quillane"_s);
  window_->setAttribute(Qt::WA_ShowWithoutActivating);
  lblCaption = makeLabel(u"lblCaption"_s, {}, window_);
  auto* bar = new QProgressBar(window_);
  bar->setRange(0, 0);
  bar->setTextVisible(false);
  bar->setAccessibleName(u"Busy"_s);
  bar->setMinimumWidth(window_->fontMetrics().averageCharWidth() * kWidthInChars);
  auto* layout = new QVBoxLayout(window_);
  layout->setSizeConstraint(QLayout::SetMinAndMaxSize);
  layout->addWidget(lblCaption);
  layout->addWidget(bar);
}

void cSharedProgress::Show() {
  if (!window_) {
    build();
  }
  lblCaption->setText(caption_);
  window_->show();
  window_->raise();
}

void cSharedProgress::Hide() {
  if (window_) {
    window_->hide();
  }
}

void cSharedProgress::setCaption(const QString& caption) {
  caption_ = caption;
  if (window_ && window_->isVisible()) {
    lblCaption->setText(caption);
  }
}
