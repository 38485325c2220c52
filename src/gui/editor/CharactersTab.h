#pragma once

#include "gui/editor/EditorTab.h"

#include <array>

class ListView;

/// The tab "Characters": those in the scene beside all of the book.
class CharactersTab : public EditorTab {
  Q_OBJECT

 public:
  explicit CharactersTab(QWidget* parent = nullptr);

  // Who is in the scene is shown by refresh(), and written when it changes.
  void DataToForm(clsScene&) override {}
  void FormToData(clsScene&) const override {}
  void refresh(clsScene& scene) override;

 private:
  ListView* makeList(int index, const QString& title, const QString& whenEmpty);

  /// In the scene; all.
  std::array<ListView*, 2> ListChar;
};
