#pragma once

#include "gui/editor/EditorTab.h"

#include <array>

class EditorCombo;
class MemoEdit;
class QLabel;

/// The tab "Goals": whether the scene is one of action or of reaction, and the three texts that such a one has.
class GoalsTab : public EditorTab {
  Q_OBJECT

 public:
  explicit GoalsTab(QWidget* parent = nullptr);

  void DataToForm(clsScene& scene) override;
  void FormToData(clsScene& scene) const override;
  void refresh(clsScene& scene) override;
  void describe(SceneOverview& shown) const override;
  const char* sign() const override;

 private:
  struct Goal {
    QLabel* label = nullptr;
    MemoEdit* text = nullptr;
  };

  Goal makeGoal(const QString& labelName, const QString& textName);
  void fillAction();
  void SetGoalsLabels();

  EditorCombo* cmbAction;
  /// txtGoal, txtConflict, txtOutcome.
  std::array<Goal, 3> goals_;
};
