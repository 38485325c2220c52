#pragma once

#include "gui/editor/EditorTab.h"

class MemoEdit;
class QLineEdit;

/// The tab "Description": title and summary of the scene.
class DescriptionTab : public EditorTab {
  Q_OBJECT

 public:
  explicit DescriptionTab(QWidget* parent = nullptr);

  QString Title() const;
  /// In the place of what is there, which the field's own undo brings back.
  void takeTitle(const QString& title);
  void takeDescription(const QString& text);

  void DataToForm(clsScene& scene) override;
  void FormToData(clsScene& scene) const override;
  void describe(SceneOverview& shown) const override;

 Q_SIGNALS:
  void titleChanged(const QString& title);

 private:
  QLineEdit* txtTitle;
  MemoEdit* txtDesc;
};
