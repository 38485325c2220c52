#include "gui/planning/frmChart.h"

#include "core/infra/ScanPause.h"
#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "gui/planning/ChartPicture.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/ElidedLabel.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/toolkit/WindowSettings.h"
#include "gui/toolkit/WindowTexts.h"
#include "gui/views/SceneCells.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QScreen>
#include <QVBoxLayout>

#include <chrono>

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "frmChart";
const QString kBlock = u"frmChart"_s;
constexpr QSize kSizeAtFirst(900, 480);
constexpr QSize kLeast(360, 220);

}  // namespace

frmChart::frmChart(QWidget* parent) : QDialog(parent) {
  setObjectName(u"frmChart"_s);
  setWindowTitle(u"Scene Ratings Chart"_s);
  setWindowFlag(Qt::WindowMinMaxButtonsHint);
  setAttribute(Qt::WA_DeleteOnClose);
  setMinimumSize(kLeast);
  createControls();
  buildLayout();
  Guard("Form_Load", kModule)([this] { refresh(); });
  connect(&Timer1, &QTimer::timeout, this, guarded("Timer1_Timer", kModule, this, &frmChart::checkChanges));
  Timer1.start(1s);
  resize(kSizeAtFirst.boundedTo(screen()->availableSize() * 9 / 10));
  restoreWindow(kBlock, *this);
}

void frmChart::createControls() {
  PicChart = new ChartPicture(this);
  giveName(*PicChart, u"PicChart"_s, u"Scene ratings"_s);
  PicChart->setFocusPolicy(Qt::StrongFocus);
  lblEmpty = makeLabel(u"lblEmpty"_s, {}, PicChart);
  lblEmpty->setAlignment(Qt::AlignCenter);
  lblEmpty->setBackgroundRole(QPalette::Base);
  lblEmpty->setForegroundRole(QPalette::Text);
  lblEmpty->setAutoFillBackground(true);
  for (size_t field = 0; field < lblLegend.size(); ++field) {
    lblLegend[field] = makeElidedLabel(u"lblLegend(%1)"_s.arg(field), this);
    lblLegend[field]->setAlignment(Qt::AlignCenter);
    keepWords(*lblLegend[field]);
  }
  Timer1.setParent(this);
  Timer1.setObjectName(u"Timer1"_s);
}

void frmChart::buildLayout() {
  auto* const legend = new QHBoxLayout;
  for (ElidedLabel* const label : lblLegend) {
    legend->addWidget(label, 1);
  }
  auto* const column = new QVBoxLayout(this);
  column->addWidget(PicChart, 1);
  column->addLayout(legend);
}

void frmChart::refresh() {
  showRatings(SceneRatings::of(*g_Project));
  sayWhyEmpty();
}

void frmChart::clear() {
  showRatings({});
  lblEmpty->hide();
}

void frmChart::showRatings(const SceneRatings& ratings) {
  if (ratings == ratings_) {
    return;
  }
  ratings_ = ratings;
  PicChart->setRatings(ratings);
  PicChart->setAccessibleDescription(ratings.inWords());
  showLegend();
}

void frmChart::showLegend() {
  for (size_t field = 0; field < lblLegend.size(); ++field) {
    QPalette coloured;
    coloured.setColor(QPalette::WindowText, ChartPicture::colourOf(field, palette()));
    lblLegend[field]->setPalette(coloured);
    lblLegend[field]->setText(shownRating(static_cast<int>(field) + 1, ratings_.titles[field]));
  }
}

void frmChart::sayWhyEmpty() {
  lblEmpty->setText(
      ratings_.scenes.empty()
          ? translatedLines(SceneCells::whyNone())
          : translated(u"No scene of this book is rated yet.\nRatings are given in the editor, on the tab Status."_s));
  lblEmpty->adjustSize();
  lblEmpty->move(PicChart->rect().center() - lblEmpty->rect().center());
  lblEmpty->setVisible(!ratings_.any());
}

// A book that is being read or written isn't whole.
void frmChart::checkChanges() {
  if (!ScanPause::isActive() && SceneRatings::of(*g_Project) != ratings_) {
    refresh();
  }
}

void frmChart::bringForward() {
  setWindowState(windowState() & ~Qt::WindowMinimized);
  show();
  raise();
  activateWindow();
}

void frmChart::storeLayout() {
  storeWindow(kBlock, *this);
}

void frmChart::done(int result) {
  storeLayout();
  QDialog::done(result);
}

void frmChart::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  layout()->activate();
  lblEmpty->move(PicChart->rect().center() - lblEmpty->rect().center());
}

void frmChart::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) {
    showLegend();
  } else if (event->type() == QEvent::LanguageChange) {
    Guard("Form_Localise", kModule)([this] {
      ratings_ = {};
      refresh();
    });
  }
}
