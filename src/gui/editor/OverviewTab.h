#pragma once

#include "gui/editor/EditorTab.h"

#include <array>

class ElidedLabel;
class QLabel;
class QPlainTextEdit;

/// The tab "Overview": what the other tabs show, at a glance. Nothing is edited here.
class OverviewTab : public EditorTab {
  Q_OBJECT

 public:
  explicit OverviewTab(QWidget* parent = nullptr);

  void mirror(const SceneOverview& shown);

  void DataToForm(clsScene&) override {}
  void FormToData(clsScene&) const override {}

 private:
  struct Goal {
    QLabel* letter = nullptr;
    QPlainTextEdit* text = nullptr;
  };

  Goal makeGoal(const QString& letterName, const QString& textName, const QString& spokenName);
  void buildLayout();

  ElidedLabel* lblOVTitle;
  QPlainTextEdit* txtOVDesc;
  /// lblOVGoal, lblOVConflict, lblOVOutcome, each behind the letter that it begins with.
  std::array<Goal, 3> goals_;
  ElidedLabel* lblOVAction;
  ElidedLabel* lblOVPlot;
  ElidedLabel* lblOVStatus;
  std::array<ElidedLabel*, 4> lblOVRating{};
};
