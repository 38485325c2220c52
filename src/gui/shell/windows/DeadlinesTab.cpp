#include "gui/shell/windows/DeadlinesTab.h"

#include "core/infra/Clock.h"
#include "core/infra/cSharedDateSubs.h"
#include "core/infra/cSharedGetDate.h"
#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/views/RowColours.h"

#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "frmEditProject";
constexpr int kLettersInLine = 60;
constexpr size_t kLast = Deadlines::kLevels - 1;

QString statusName(size_t level) {
  return g_StatusNames.value(static_cast<qsizetype>(level) + 1);
}

QString rowCaption(size_t level) {
  return (level == kLast ? u"Final Edit"_s : statusName(level)) + u':';
}

QString startCaption(size_t level) {
  return translated(u"%1 start date"_s).arg(translated(statusName(level)));
}

QString deadlineCaption(size_t level) {
  return level == kLast ? translated(u"Project completion date"_s)
                        : translated(u"%1 deadline date"_s).arg(translated(statusName(level)));
}

QString indexed(const QString& array, size_t index) {
  return array + u'(' + QString::number(index) + u')';
}

qint32 today() {
  return Clock::dayNumber(Clock::today());
}

/// The palette with the text of buttons in the red of what is wrong.
QPalette faultPalette(QPalette palette) {
  palette.setColor(QPalette::ButtonText, RowColours::readable(RowColours::kRed, palette, QPalette::Button));
  return palette;
}

}  // namespace

DeadlinesTab::DeadlinesTab(QWidget* parent) : QWidget(parent) {
  createControls();
  buildLayout();
  connectSignals();
}

void DeadlinesTab::createControls() {
  lblHint = makeLabel(u"lblHint"_s, u"When scenes are due at each status. Press a date to change it."_s, this);
  for (size_t i = 0; i < rows_.size(); ++i) {
    rows_[i] = {makeLabel(indexed(u"lblFinish"_s, i), rowCaption(i), this),
                makeButton(indexed(u"lblDeadlineStart"_s, i), {}, this),
                makeButton(indexed(u"lblDeadline"_s, i), {}, this)};
  }
  lblOutOfOrder = makeWrappedLabel(u"lblOutOfOrder"_s,
                                   u"The dates in red are out of order: a deadline comes before its start date, or a "
                                   "start date before the deadline above it."_s,
                                   kLettersInLine, this);
  QSizePolicy keepsItsRoom = lblOutOfOrder->sizePolicy();
  keepsItsRoom.setRetainSizeWhenHidden(true);
  lblOutOfOrder->setSizePolicy(keepsItsRoom);
}

void DeadlinesTab::buildLayout() {
  auto* grid = new QGridLayout;
  grid->addWidget(makeLabel(u"lblStart"_s, u"Start date"_s), 0, 1, Qt::AlignHCenter);
  grid->addWidget(makeLabel(u"lblEnd"_s, u"Deadline"_s), 0, 2, Qt::AlignHCenter);
  for (const Row& row : rows_) {
    addRow(*grid, row);
  }
  grid->setColumnStretch(3, 1);
  grid->setHorizontalSpacing(fontMetrics().averageCharWidth() * 2);

  auto* column = new QVBoxLayout(this);
  column->addWidget(lblHint);
  column->addSpacing(fontMetrics().lineSpacing() / 2);
  column->addLayout(grid);
  column->addSpacing(fontMetrics().lineSpacing() / 2);
  column->addWidget(lblOutOfOrder);
  column->addStretch();
}

void DeadlinesTab::addRow(QGridLayout& grid, const Row& row) {
  const int at = grid.rowCount();
  grid.addWidget(row.lblFinish, at, 0);
  grid.addWidget(row.lblDeadlineStart, at, 1);
  grid.addWidget(row.lblDeadline, at, 2);
}

void DeadlinesTab::connectSignals() {
  for (size_t i = 0; i < rows_.size(); ++i) {
    Deadlines::Range& range = deadlines_.levels[i];
    connect(
        rows_[i].lblDeadlineStart, &QPushButton::clicked, this,
        guarded("lblDeadlineStart_Click", kModule, [this, i, &range] { askForDate(startCaption(i), range.start); }));
    connect(rows_[i].lblDeadline, &QPushButton::clicked, this,
            guarded("lblDeadline_Click", kModule, [this, i, &range] { askForDate(deadlineCaption(i), range.end); }));
  }
}

void DeadlinesTab::showDeadlines(const Deadlines& deadlines) {
  deadlines_ = deadlines;
  deadlines_.fillUnset(today());
  BadValues();
}

void DeadlinesTab::askForDate(const QString& caption, qint32& date) {
  const qint32 chosen = cSharedGetDate().GetDate(caption, date);
  if (chosen != 0) {
    date = chosen;
    BadValues();
  }
}

bool DeadlinesTab::BadValues() {
  bad_ = ::BadValues(deadlines_, today());
  showDates();
  return bad_.any();
}

void DeadlinesTab::showDates() {
  const auto faultOf = [](bool isBad, const QString& fault) { return isBad ? fault : QString(); };
  for (size_t i = 0; i < rows_.size(); ++i) {
    const Deadlines::Range& range = deadlines_.levels[i];
    showDate(*rows_[i].lblDeadlineStart, startCaption(i), range.start,
             faultOf(bad_.start[i], translated(u"This start date comes before the deadline above it."_s)));
    showDate(*rows_[i].lblDeadline, deadlineCaption(i), range.end,
             faultOf(bad_.end[i], translated(u"This deadline comes before its start date."_s)));
  }
  lblOutOfOrder->setVisible(bad_.any());
}

void DeadlinesTab::showDate(QPushButton& button, const QString& caption, qint32 date, const QString& fault) {
  const QString shown = Dates().ShortFormatDate(Clock::dateOf(date));
  button.setText(shown);
  button.setAccessibleName(caption + u", "_s + shown);
  button.setAccessibleDescription(fault);
  button.setToolTip(fault);
  button.setPalette(fault.isEmpty() ? QPalette() : faultPalette(palette()));
}

void DeadlinesTab::focusBadDate() {
  for (size_t i = 0; i < rows_.size(); ++i) {
    if (bad_.start[i] || bad_.end[i]) {
      (bad_.start[i] ? rows_[i].lblDeadlineStart : rows_[i].lblDeadline)->setFocus();
      return;
    }
  }
}

void DeadlinesTab::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) {
    showDates();
  }
}
