#pragma once

#include "gui/editor/EditorTab.h"

#include <array>

class EditorCombo;
class ElidedLabel;
class QGridLayout;

/// The tab "Status": plot, status and the four ratings of the scene. A rating that was chosen is taken up by the next
/// save and asks for none itself.
class StatusTab : public EditorTab {
  Q_OBJECT

 public:
  explicit StatusTab(QWidget* parent = nullptr);

  void DataToForm(clsScene& scene) override;
  void FormToData(clsScene& scene) const override;
  void refresh(clsScene& scene) override;
  void describe(SceneOverview& shown) const override;

 private:
  static constexpr size_t kRatings = 4;

  void addRating(QGridLayout& grid, size_t index);
  void connectSignals();
  void showNames();
  void cmdHelp_Click();

  EditorCombo* cmbPlot;
  EditorCombo* cmbStatus;
  std::array<EditorCombo*, kRatings> cmbFieldValue{};
  std::array<ElidedLabel*, kRatings> lblFieldTitle{};
};
