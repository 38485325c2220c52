#include "gui/editor/GoalsTab.h"

#include "core/infra/cSharedLang.h"
#include "core/model/clsScene.h"
#include "gui/editor/EditorCombo.h"
#include "gui/editor/KeysPressed.h"
#include "gui/editor/SceneOverview.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/MemoEdit.h"

#include <QGridLayout>
#include <QLabel>

#include <algorithm>

using namespace Qt::StringLiterals;

GoalsTab::GoalsTab(QWidget* parent)
    : EditorTab(u"Goals"_s, shownText(u"Edit Goal/Conflict/Outcome or Reaction/Dilemma/Choice"_s), parent),
      cmbAction(new EditorCombo(u"cmbAction"_s, u"Type of scene"_s, this)),
      goals_{makeGoal(u"lblGoal(0)"_s, u"txtGoal"_s), makeGoal(u"lblConflict(0)"_s, u"txtConflict"_s),
             makeGoal(u"lblOutcome(0)"_s, u"txtOutcome"_s)} {
  fillAction();
  cmbAction->setCurrentIndex(0);
  cmbAction->setMinimumContentsLength(10);
  auto* grid = new QGridLayout(this);
  auto* kind = new QHBoxLayout;
  kind->addWidget(makeLabelOf(u"Type of scene:"_s, *cmbAction));
  kind->addWidget(cmbAction);
  kind->addStretch();
  grid->addLayout(kind, 0, 0, 1, static_cast<int>(goals_.size()));
  int column = 0;
  for (const Goal& goal : goals_) {
    grid->addWidget(goal.label, 1, column);
    grid->addWidget(goal.text, 2, column);
    grid->setColumnStretch(column++, 1);
  }
  grid->setRowStretch(2, 1);
  connect(cmbAction, &EditorCombo::activated, this, &GoalsTab::SetGoalsLabels);
  connect(cmbAction, &EditorCombo::activated, this, &GoalsTab::changed);
  SetGoalsLabels();
}

GoalsTab::Goal GoalsTab::makeGoal(const QString& labelName, const QString& textName) {
  auto* const text = new MemoEdit(this);
  text->setObjectName(textName);
  QLabel* const label = makeLabelOf({}, *text);
  label->setObjectName(labelName);
  connect(new KeysPressed(*text), &KeysPressed::pressed, this, &GoalsTab::changed);
  connect(text, &MemoEdit::textChanged, this, &GoalsTab::changed);
  connect(text, &MemoEdit::textChanged, this, &GoalsTab::shownChanged);
  return {label, text};
}

void GoalsTab::fillAction() {
  cmbAction->renew({translated(u"Action"_s), translated(u"Reaction"_s)});
}

// In the language that is in force now.
void GoalsTab::refresh(clsScene&) {
  fillAction();
  SetGoalsLabels();
}

void GoalsTab::SetGoalsLabels() {
  const std::array<QString, 3> names =
      cmbAction->currentIndex() == 0
          ? std::array{translated(u"Goal"_s), translated(u"Conflict"_s), translated(u"Outcome"_s)}
          : std::array{translated(u"Reaction"_s), translated(u"Dilemma"_s), translated(u"Choice"_s)};
  for (size_t i = 0; i < goals_.size(); ++i) {
    goals_[i].label->setText(names[i]);
    goals_[i].text->setAccessibleName(names[i]);
  }
  Q_EMIT shownChanged();
}

void GoalsTab::DataToForm(clsScene& scene) {
  goals_[0].text->setText(scene.Goal);
  goals_[1].text->setText(scene.Conflict);
  goals_[2].text->setText(scene.Outcome);
  cmbAction->setCurrentIndex(scene.ReactionScene ? 1 : 0);
  SetGoalsLabels();
}

void GoalsTab::FormToData(clsScene& scene) const {
  scene.Goal = goals_[0].text->Text();
  scene.Conflict = goals_[1].text->Text();
  scene.Outcome = goals_[2].text->Text();
  scene.ReactionScene = cmbAction->currentIndex() != 0;
}

void GoalsTab::describe(SceneOverview& shown) const {
  shown.action = cmbAction->currentText();
  for (const Goal& goal : goals_) {
    shown.goalNames.append(goal.label->text());
    shown.goals.append(goal.text->Text());
  }
}

const char* GoalsTab::sign() const {
  const bool any =
      std::any_of(goals_.begin(), goals_.end(), [](const Goal& goal) { return !goal.text->Text().isEmpty(); });
  return any ? "goal" : nullptr;
}
