#include "gui/planning/frmWordTarget.h"

#include "core/infra/Clock.h"
#include "core/infra/Guard.h"
#include "core/infra/cSharedDateSubs.h"
#include "core/infra/cSharedGetDate.h"
#include "core/infra/cSharedLang.h"
#include "gui/planning/TargetBar.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/toolkit/SelectAllOnFocus.h"
#include "gui/toolkit/WindowSettings.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "frmWordTarget";
const QString kBlock = u"WordTarget"_s;
const QString kNoFigure = shownText(u"N/A"_s);
const QString kStartDate = shownText(u"Start date"_s);
const QString kEndDate = shownText(u"End date"_s);
constexpr int kDigits = 12;

enum Column { kCaption, kValue, kBeside, kRest };

qint32 today() {
  return Clock::dayNumber(Clock::today());
}

QString shown(qint64 number) {
  return QLocale().toString(number);
}

QPushButton* makeDate(const QString& name, QWidget* parent) {
  QPushButton* const date = makeButton(name, {}, parent);
  date->setToolTip(u"Choose another date"_s);
  return date;
}

QLineEdit* makeCount(const QString& name, const QString& spokenName, QWidget* parent) {
  QLineEdit* const field = makeLineEdit(name, spokenName, parent);
  field->setAlignment(Qt::AlignRight);
  field->setMinimumWidth(field->fontMetrics().averageCharWidth() * kDigits * 3 / 2);
  new SelectAllOnFocus(*field);
  return field;
}

/// What was typed as a number; nothing, and logged, where it is none.
template <class Read>
auto readNumber(Guard guard, Read read, const QLineEdit& field) {
  std::optional<decltype(read(QString()))> number;
  guard([&] { number = read(field.text()); });
  return number;
}

}  // namespace

frmWordTarget::frmWordTarget(const WordTarget& target, qint32 projectWords, QWidget* parent)
    : QDialog(parent),
      given_(target),
      startDate_(target.startDate),
      endDate_(target.endDate),
      projectWords_(projectWords) {
  setObjectName(u"frmWordTarget"_s);
  setWindowTitle(u"Word Count Target"_s);
  createControls();
  createFigures();
  buildLayout();
  connectSignals();
  Guard("Form_Load", kModule)([this] { Form_Load(); });
}

frmWordTarget* frmWordTarget::showOver(QWidget& window, const WordTarget& target, qint32 projectWords) {
  auto* form = new frmWordTarget(target, projectWords, &window);
  // Not with its closing: what is saved behind that lets the message loop run.
  connect(form, &QDialog::finished, form, &QObject::deleteLater);
  form->setWindowModality(Qt::ApplicationModal);
  form->show();
  return form;
}

void frmWordTarget::createControls() {
  lblStartDate = makeDate(u"lblStartDate"_s, this);
  lblEndDate = makeDate(u"lblEndDate"_s, this);
  txtStartCount = makeCount(u"txtStartCount"_s, u"Starting Count"_s, this);
  cmdCopy = makeButton(u"cmdCopy"_s, u"Co&py"_s, this);
  cmdCopy->setToolTip(u"Copy 'Current word count' to 'Starting Count'"_s);
  txtEndCount = makeCount(u"txtEndCount"_s, u"Words to Write"_s, this);
  txtEndCount->setToolTip(u"This is the NET TOTAL words you want to write in the specified time."_s);
  cmdSave = makeButton(u"cmdSave"_s, u"&Save"_s, this);
  cmdSave->setDefault(true);
  cmdExit = makeButton(u"cmdExit"_s, u"&Cancel"_s, this);
}

void frmWordTarget::createFigures() {
  lblProjCount = makeLabel(u"lblProjCount"_s, shown(projectWords_), this);
  lblNumDays = makeLabel(u"lblNumDays"_s, {}, this);
  lblWordsPerDay = makeLabel(u"lblWordsPerDay"_s, {}, this);
  lblWordsPerDay->setToolTip(u"Target - (Current Count - Starting Count) / Days Left"_s);
  lblTotalWords = makeLabel(u"lblTotalWords"_s, {}, this);
  Picture1 = new TargetBar(this);
  Picture1->setToolTip(u"The green bar represents the percentage you've completed"_s);
  lblStart = makeLabel(u"lblStart"_s, {}, this);
  lblMid = makeLabel(u"lblMid"_s, {}, this);
  lblEnd = makeLabel(u"lblEnd"_s, {}, this);
  lblStatus = makeLabel(u"lblStatus"_s, {}, this);
}

void frmWordTarget::addRow(QGridLayout& grid, const QString& caption, QWidget& control) {
  const int row = grid.rowCount();
  grid.addWidget(makeLabelOf(caption, control), row, kCaption);
  grid.addWidget(&control, row, kValue);
}

void frmWordTarget::addFigure(QGridLayout& grid, const QString& caption, QLabel& figure) {
  const int row = grid.rowCount();
  figure.setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  figure.setAccessibleDescription(caption);
  auto* const label = makeLabel(figure.objectName() + u"Caption"_s, caption);
  label->setToolTip(figure.toolTip());
  grid.addWidget(label, row, kCaption);
  grid.addWidget(&figure, row, kValue);
}

void frmWordTarget::buildLayout() {
  auto* const grid = new QGridLayout;
  addRow(*grid, u"St&art date"_s, *lblStartDate);
  addRow(*grid, u"&End date"_s, *lblEndDate);
  addRow(*grid, u"Starting C&ount"_s, *txtStartCount);
  grid->addWidget(cmdCopy, grid->rowCount() - 1, kBeside);
  addRow(*grid, u"&Words to Write"_s, *txtEndCount);
  grid->setRowMinimumHeight(grid->rowCount(), fontMetrics().lineSpacing() / 2);
  addFigure(*grid, u"Words in Project now:"_s, *lblProjCount);
  addFigure(*grid, u"Number of days left:"_s, *lblNumDays);
  addFigure(*grid, u"Words to write per day:"_s, *lblWordsPerDay);
  addFigure(*grid, u"Total words at end date:"_s, *lblTotalWords);
  grid->setColumnStretch(kRest, 1);
  grid->setHorizontalSpacing(fontMetrics().averageCharWidth() * 2);

  auto* const scale = new QHBoxLayout;
  for (const auto& [label, alignment] :
       {std::pair{lblStart, Qt::AlignLeft}, {lblMid, Qt::AlignHCenter}, {lblEnd, Qt::AlignRight}}) {
    label->setAlignment(alignment);
    scale->addWidget(label, 1);
  }
  auto* const buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(cmdSave);
  buttons->addWidget(cmdExit);

  auto* const column = new QVBoxLayout(this);
  column->addLayout(grid);
  column->addSpacing(fontMetrics().lineSpacing() / 2);
  column->addWidget(Picture1);
  column->addLayout(scale);
  column->addSpacing(fontMetrics().lineSpacing() / 2);
  column->addWidget(lblStatus);
  column->addSpacing(fontMetrics().lineSpacing() / 2);
  column->addStretch();
  column->addLayout(buttons);
  adjustSize();
  restoreWindow(kBlock, *this);
}

void frmWordTarget::connectSignals() {
  for (QLineEdit* const field : {txtStartCount, txtEndCount}) {
    connect(field, &QLineEdit::textChanged, this, guarded("Recalc", kModule, this, &frmWordTarget::Recalc));
  }
  connect(lblStartDate, &QPushButton::clicked, this,
          guarded("lblStartDate_Click", kModule, [this] { askForDate(kStartDate, startDate_); }));
  connect(lblEndDate, &QPushButton::clicked, this,
          guarded("lblEndDate_Click", kModule, [this] { askForDate(kEndDate, endDate_); }));
  connect(cmdCopy, &QPushButton::clicked, this,
          guarded("cmdCopy_Click", kModule, [this] { txtStartCount->setText(QString::number(projectWords_)); }));
  connect(cmdSave, &QPushButton::clicked, this, &QDialog::accept);
  connect(cmdExit, &QPushButton::clicked, this, &QDialog::reject);
}

void frmWordTarget::Form_Load() {
  showDates();
  txtEndCount->setText(QString::number(given_.words));
  txtStartCount->setText(QString::number(given_.startCount));
  txtEndCount->setFocus();
  loading_ = false;
  Recalc();
}

void frmWordTarget::Recalc() {
  if (loading_) {
    return;
  }
  const Guard guard("Recalc", kModule);
  clearFigures();
  showFigures(targetFigures({startDate_, endDate_, readNumber(guard, &typedNumber, *txtStartCount),
                             readNumber(guard, &typedNumber, *txtEndCount), projectWords_},
                            today()));
}

void frmWordTarget::clearFigures() {
  for (QLabel* const label : {lblStart, lblMid, lblEnd, lblTotalWords, lblStatus}) {
    label->clear();
  }
  lblWordsPerDay->setText(kNoFigure);
  lblNumDays->setText(kNoFigure);
  Picture1->clear();
}

void frmWordTarget::showFigures(const TargetFigures& figures) {
  lblStatus->setText(figures.status);
  if (figures.daysLeft) {
    lblNumDays->setText(shown(*figures.daysLeft));
  }
  if (!figures.share) {
    return;
  }
  const TargetShare& share = *figures.share;
  lblWordsPerDay->setText(shown(share.perDay));
  lblTotalWords->setText(shown(share.total()));
  Picture1->ShowProgressString(share.done, share.target, share.text());
  lblStart->setText(shown(share.startCount));
  lblMid->setText(shown(share.middle()));
  lblEnd->setText(shown(share.total()));
}

void frmWordTarget::askForDate(const QString& caption, qint32& date) {
  const qint32 chosen = cSharedGetDate().GetDate(caption, date);
  if (chosen != 0) {
    date = chosen;
    showDates();
  }
  Recalc();
}

void frmWordTarget::showDates() {
  for (const auto& [button, caption, date] :
       {std::tuple{lblStartDate, kStartDate, startDate_}, {lblEndDate, kEndDate, endDate_}}) {
    button->setText(Dates().ShortFormatDate(Clock::dateOf(date)));
    button->setAccessibleName(translated(caption) + u", "_s + button->text());
  }
}

WordTarget frmWordTarget::target() const {
  const Guard guard("cmdSave_Click", kModule);
  return {startDate_, endDate_, readNumber(guard, &typedCount, *txtStartCount).value_or(given_.startCount),
          readNumber(guard, &typedCount, *txtEndCount).value_or(given_.words)};
}

void frmWordTarget::done(int result) {
  storeWindow(kBlock, *this);
  QDialog::done(result);
}
