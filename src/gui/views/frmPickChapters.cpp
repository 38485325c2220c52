#include "gui/views/frmPickChapters.h"

#include "core/infra/HelpFile.h"
#include "core/infra/Toolkit.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/toolkit/OverActiveWindow.h"
#include "gui/toolkit/WindowSettings.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "frmPickChapters";
const QString kBlock = u"PickChapters"_s;
/// Of a title so much is seen at first; a wider window shows more.
constexpr int kTitleLetters = 40;

QComboBox* makeCombo(const QString& name, const QString& spokenName, QWidget* parent) {
  auto* const combo = new QComboBox(parent);
  giveName(*combo, name, spokenName);
  combo->view()->setAccessibleName(spokenName);
  combo->view()->setTextElideMode(Qt::ElideRight);
  combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  combo->setMinimumContentsLength(kTitleLetters);
  return combo;
}

}  // namespace

frmPickChapters::frmPickChapters(QWidget* parent) : QDialog(parent) {
  setObjectName(u"frmPickChapters"_s);
  setWindowTitle(u"Select the range of files"_s);
  createControls();
  buildLayout();
  connectSignals();
  adjustSize();
  restoreWindow(kBlock, *this);
}

void frmPickChapters::createControls() {
  Combo1 = makeCombo(u"Combo1"_s, u"1st File"_s, this);
  Combo2 = makeCombo(u"Combo2"_s, u"Last File"_s, this);
  cmdAll = makeButton(u"cmdAll"_s, u"&All"_s, this);
  cmdAll->setToolTip(u"Select all files"_s);
  cmdAll->setAutoDefault(false);
  cmdOk = makeButton(u"cmdOk"_s, u"&OK"_s, this);
  cmdOk->setToolTip(u"Use the chosen range of files"_s);
  cmdOk->setDefault(true);
  cmdCancel = makeButton(u"cmdCancel"_s, u"&Cancel"_s, this);
}

void frmPickChapters::buildLayout() {
  auto* const fields = new QFormLayout;
  fields->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  fields->addRow(makeLabelOf(u"&1st File:"_s, *Combo1), Combo1);
  fields->addRow(makeLabelOf(u"&Last File:"_s, *Combo2), Combo2);
  auto* const buttons = new QHBoxLayout;
  buttons->addWidget(cmdAll);
  buttons->addStretch(1);
  buttons->addWidget(cmdOk);
  buttons->addWidget(cmdCancel);
  auto* const column = new QVBoxLayout(this);
  column->addLayout(fields);
  column->addStretch(1);
  column->addLayout(buttons);
}

void frmPickChapters::connectSignals() {
  connect(cmdAll, &QPushButton::clicked, this, guarded("cmdAll_Click", kModule, this, &frmPickChapters::cmdAll_Click));
  connect(cmdOk, &QPushButton::clicked, this, guarded("cmdOk_Click", kModule, this, &frmPickChapters::cmdOk_Click));
  connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmPickChapters::ShowRange() {
  Cancelled = true;
  if (g_Project->ChapterCount() == 0) {
    toolkit().MsgBox(u"Your project does not contain any chapters"_s);
    return;
  }
  fillCombos();
  Combo1->setFocus();
  exec();
}

void frmPickChapters::fillCombos() {
  QStringList chapters;
  for (const auto& chapter : g_Project->Chapters) {
    chapters.append(QString::number(chapters.size() + 1) + u" - "_s + chapter->Title);
  }
  for (QComboBox* const combo : {Combo1, Combo2}) {
    combo->clear();
    combo->addItems(chapters);
  }
  Combo1->setCurrentIndex(0);
  Combo2->setCurrentIndex(Combo2->count() - 1);
}

void frmPickChapters::cmdAll_Click() {
  choose(1, Combo2->count());
}

void frmPickChapters::cmdOk_Click() {
  if (Combo2->currentIndex() < Combo1->currentIndex()) {
    toolkit().MsgBox(u"Last file must come after first file. Please change one or the other."_s);
    return;
  }
  choose(Combo1->currentIndex() + 1, Combo2->currentIndex() + 1);
}

void frmPickChapters::choose(qint32 first, qint32 last) {
  FirstChapter = first;
  LastChapter = last;
  Cancelled = false;
  accept();
}

void frmPickChapters::done(int result) {
  storeWindow(kBlock, *this);
  QDialog::done(result);
}

std::optional<ChapterRange> pickChapters(const QString& helpPage) {
  const OverActiveWindow<frmPickChapters> form;
  form->setProperty(HelpFile::kPage, helpPage);
  form->ShowRange();
  if (!form.isThere() || form->Cancelled) {
    return {};
  }
  return ChapterRange{form->FirstChapter, form->LastChapter};
}
