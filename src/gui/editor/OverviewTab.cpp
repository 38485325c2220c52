#include "gui/editor/OverviewTab.h"

#include "gui/editor/SceneOverview.h"
#include "gui/toolkit/Controls.h"
#include "gui/toolkit/ElidedLabel.h"
#include "gui/toolkit/WindowTexts.h"

#include <QGridLayout>
#include <QPlainTextEdit>

using namespace Qt::StringLiterals;

namespace {

constexpr int kFactLetters = 22;

/// What is shown already keeps its place and its selection.
void showText(QPlainTextEdit& box, const QString& text) {
  if (box.property("given") != text) {
    box.setProperty("given", text);
    box.setPlainText(text);
  }
}

}  // namespace

OverviewTab::OverviewTab(QWidget* parent)
    : EditorTab(u"Overview"_s, u"You can't edit anything on this tab. Use the other tabs to make changes."_s, parent),
      lblOVTitle(makeElidedLabel(u"lblOVTitle"_s, this)),
      txtOVDesc(makeReadOnlyText(u"txtOVDesc"_s, u"Scene description"_s, this)),
      goals_{makeGoal(u"lblGoal(1)"_s, u"lblOVGoal"_s, u"Goal"_s),
             makeGoal(u"lblConflict(1)"_s, u"lblOVConflict"_s, u"Conflict"_s),
             makeGoal(u"lblOutcome(1)"_s, u"lblOVOutcome"_s, u"Outcome"_s)},
      lblOVAction(makeElidedLabel(u"lblOVAction"_s, this)),
      lblOVPlot(makeElidedLabel(u"lblOVPlot"_s, this)),
      lblOVStatus(makeElidedLabel(u"lblOVStatus"_s, this)) {
  for (size_t i = 0; i < lblOVRating.size(); ++i) {
    lblOVRating[i] = makeElidedLabel(u"lblOVRating(%1)"_s.arg(i), this);
    // A file may hold more than the names that there are.
    keepWords(*lblOVRating[i]);
  }
  keepWords(*lblOVTitle);
  QFont bold = lblOVTitle->font();
  bold.setBold(true);
  lblOVTitle->setFont(bold);
  txtOVDesc->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
  buildLayout();
}

OverviewTab::Goal OverviewTab::makeGoal(const QString& letterName, const QString& textName, const QString& spokenName) {
  QPlainTextEdit* const text = makeReadOnlyText(textName, spokenName, this);
  text->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
  text->setMinimumHeight(text->fontMetrics().lineSpacing() + 2 * text->frameWidth() + 8);
  QLabel* const letter = makeLabel(letterName, {}, this);
  letter->setContentsMargins(0, text->frameWidth() + qRound(text->document()->documentMargin()), 0, 0);
  return {letter, text};
}

void OverviewTab::buildLayout() {
  auto* const left = new QVBoxLayout;
  left->addWidget(lblOVTitle);
  left->addWidget(txtOVDesc, 1);

  auto* const middle = new QGridLayout;
  int row = 0;
  for (const Goal& goal : goals_) {
    middle->addWidget(goal.letter, row, 0, Qt::AlignTop | Qt::AlignHCenter);
    middle->addWidget(goal.text, row, 1);
    middle->setRowStretch(row++, 1);
  }

  auto* const facts = new QVBoxLayout;
  facts->setSpacing(1);
  for (ElidedLabel* const fact : {lblOVAction, lblOVPlot, lblOVStatus}) {
    facts->addWidget(fact);
  }
  for (ElidedLabel* const rating : lblOVRating) {
    facts->addWidget(rating);
  }
  facts->addStretch();

  auto* const whole = new QHBoxLayout(this);
  whole->setSpacing(12);
  whole->addLayout(left, 3);
  whole->addLayout(middle, 3);
  whole->addLayout(facts, 1);
  lblOVAction->setMinimumWidth(lblOVAction->fontMetrics().averageCharWidth() * kFactLetters);
}

void OverviewTab::mirror(const SceneOverview& shown) {
  lblOVTitle->setText(shown.Title);
  showText(*txtOVDesc, shown.DescText);
  for (size_t i = 0; i < goals_.size(); ++i) {
    const QString name = shown.goalNames.value(static_cast<qsizetype>(i));
    goals_[i].letter->setText(name.left(1));
    goals_[i].letter->setToolTip(name);
    goals_[i].text->setAccessibleName(name);
    showText(*goals_[i].text, shown.goals.value(static_cast<qsizetype>(i)));
  }
  lblOVAction->setText(shown.action);
  lblOVPlot->setText(shown.plot);
  lblOVStatus->setText(shown.status);
  for (size_t i = 0; i < lblOVRating.size(); ++i) {
    lblOVRating[i]->setText(shown.ratings.value(static_cast<qsizetype>(i)));
  }
}
