#pragma once

#include "gui/editor/EditorTab.h"

#include <array>

class ListView;

/// The tab "Characters": those in the scene beside all of the book.
class CharactersTab : public EditorTab {
  Q_OBJECT

 public:
  explicit CharactersTab(QWidget* parent = nullptr);

  void DataToForm(clsScene& scene) override { refresh(scene); }
  /// Nothing: who is in the scene is written when it changes.
  void FormToData(clsScene&) const override {}
  void refresh(clsScene& scene) override;

 private:
  ListView* makeList(int index, const QString& title, const QString& whenEmpty);

  /// In the scene; all.
  std::array<ListView*, 2> ListChar;
};
