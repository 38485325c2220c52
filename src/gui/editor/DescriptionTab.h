#pragma once

#include "gui/editor/EditorTab.h"

class MemoEdit;
class QLineEdit;

/// The tab "Description": title and summary of the scene.
class DescriptionTab : public EditorTab {
  Q_OBJECT

 public:
  explicit DescriptionTab(QWidget* parent = nullptr);

  void DataToForm(const clsScene& scene) override;
  void FormToData(clsScene& scene) const override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QLineEdit* txtTitle;
  MemoEdit* txtDesc;
};
