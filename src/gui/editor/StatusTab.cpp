#include "gui/editor/StatusTab.h"

#include "core/infra/Toolkit.h"
#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/editor/EditorCombo.h"
#include "gui/editor/SceneOverview.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/ElidedLabel.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/toolkit/WindowTexts.h"
#include "gui/views/SceneCells.h"

#include <QGridLayout>
#include <QPushButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int kHighestRating = 10;
/// What is seen of a long name.
constexpr int kNameLetters = 30;

QString fieldTitle(size_t index) {
  const int number = static_cast<int>(index) + 1;
  return shownRating(number, g_Project->FieldTitle(number));
}

}  // namespace

StatusTab::StatusTab(QWidget* parent)
    : EditorTab(u"Status"_s, u"Shows the type of scene and the ratings"_s, parent),
      cmbPlot(new EditorCombo(u"cmbPlot"_s, u"Plot"_s, this)),
      cmbStatus(new EditorCombo(u"cmbStatus"_s, u"Status"_s, this)) {
  for (EditorCombo* const box : {cmbPlot, cmbStatus}) {
    box->setMinimumContentsLength(12);
  }
  auto* grid = new QGridLayout(this);
  grid->addWidget(makeLabelOf(u"Plot:"_s, *cmbPlot), 0, 0);
  grid->addWidget(cmbPlot, 0, 1);
  grid->addWidget(makeLabelOf(u"Status:"_s, *cmbStatus), 1, 0);
  grid->addWidget(cmbStatus, 1, 1);
  QPushButton* const cmdHelp = makeButton(u"cmdHelp"_s, u"Help"_s);
  cmdHelp->setAccessibleName(u"Help on ratings"_s);
  grid->addWidget(cmdHelp, 2, 1, Qt::AlignLeft);
  grid->setColumnMinimumWidth(2, 16);
  for (size_t i = 0; i < kRatings; ++i) {
    addRating(*grid, i);
  }
  grid->setColumnStretch(5, 1);
  grid->setRowStretch(static_cast<int>(kRatings), 1);
  connect(cmdHelp, &QPushButton::clicked, this, guarded("cmdHelp_Click", "frmEditor", this, &StatusTab::cmdHelp_Click));
  connectSignals();
  showNames();
  cmbPlot->setCurrentIndex(0);
}

void StatusTab::addRating(QGridLayout& grid, size_t index) {
  // A writer's own name for a rating may be of any length.
  auto* const name = makeElidedLabel(u"lblFieldTitle(%1)"_s.arg(index), this);
  name->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
  auto* const value = new EditorCombo(u"cmbFieldValue(%1)"_s.arg(index), {}, this);
  value->setMinimumContentsLength(3);
  keepWords(*name);
  keepWords(*value);
  for (int rating = 1; rating <= kHighestRating; ++rating) {
    value->addItem(QString::number(rating));
  }
  grid.addWidget(name, static_cast<int>(index), 3);
  grid.addWidget(value, static_cast<int>(index), 4);
  lblFieldTitle[index] = name;
  cmbFieldValue[index] = value;
}

void StatusTab::connectSignals() {
  for (const EditorCombo* const box : {cmbPlot, cmbStatus}) {
    connect(box, &EditorCombo::activated, this, &StatusTab::changed);
    connect(box, &EditorCombo::activated, this, &StatusTab::shownChanged);
  }
  for (const EditorCombo* const box : cmbFieldValue) {
    connect(box, &EditorCombo::activated, this, &StatusTab::shownChanged);
  }
}

void StatusTab::showNames() {
  cmbPlot->renew({translated(u"Main plot"_s), translated(u"Subplot"_s)});
  cmbStatus->renew(SceneCells::statuses());
  for (size_t i = 0; i < kRatings; ++i) {
    lblFieldTitle[i]->setText(withColon(fieldTitle(i)));
    cmbFieldValue[i]->setAccessibleName(fieldTitle(i));
  }
  int width = 0;
  for (const ElidedLabel* const name : lblFieldTitle) {
    width = std::max(width, name->sizeHint().width());
  }
  for (ElidedLabel* const name : lblFieldTitle) {
    name->setFixedWidth(std::min(width, fontMetrics().averageCharWidth() * kNameLetters));
  }
}

void StatusTab::DataToForm(clsScene& scene) {
  cmbPlot->setCurrentIndex(scene.SubPlot ? 1 : 0);
  cmbStatus->selectIndex(scene.Status - 1);
  for (size_t i = 0; i < kRatings; ++i) {
    cmbFieldValue[i]->selectIndex(scene.Field(static_cast<int>(i) + 1) - 1);
  }
  Q_EMIT shownChanged();
}

void StatusTab::FormToData(clsScene& scene) const {
  scene.SubPlot = cmbPlot->currentIndex() != 0;
  if (cmbStatus->currentIndex() >= 0) {
    scene.Status = static_cast<qint16>(cmbStatus->currentIndex() + 1);
  }
  for (size_t i = 0; i < kRatings; ++i) {
    if (cmbFieldValue[i]->currentIndex() >= 0) {
      scene.setField(static_cast<int>(i) + 1, static_cast<qint16>(cmbFieldValue[i]->currentIndex() + 1));
    }
  }
}

void StatusTab::refresh(clsScene&) {
  showNames();
  Q_EMIT shownChanged();
}

void StatusTab::describe(SceneOverview& shown) const {
  shown.plot = cmbPlot->currentText();
  shown.status = cmbStatus->currentText();
  for (size_t i = 0; i < kRatings; ++i) {
    shown.ratings.append(withColon(fieldTitle(i)) + u' ' + cmbFieldValue[i]->currentText());
  }
}

void StatusTab::cmdHelp_Click() {
  toolkit().MsgBox(
      u"You can rate four aspects of this scene from 1 (low) to 10 (high). You can also set the scene's status. (Rename these variables on the Project Settings form.)"_s);
}
