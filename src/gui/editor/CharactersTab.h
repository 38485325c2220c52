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

 Q_SIGNALS:
  /// These characters are to come into the scene, or to go out of it.
  void castWanted(const QList<qint32>& ids, bool inScene);

 private:
  ListView* makeList(int index, const QString& title, const QString& whenEmpty);
  void join(ListView& list, bool inScene);

  /// In the scene; all.
  std::array<ListView*, 2> ListChar;
  /// Characters were picked up here.
  bool Dragging = false;
};
