#pragma once

#include "core/exchange/clsQN2Scene.h"

#include <QString>

#include <vector>

class OldFolder;

/// The text of a chapter of generation 2: a header, and scenes that are marked in the body.
class clsQN2Text {
 public:
  /// What is before the first "<@@@>".
  QString Header;
  /// What stands in front of the first scene.
  QString Front;
  std::vector<clsQN2Scene> Scenes;

  /// Reads a file whole, by its name in the folder. False, and all is empty, when it is missing or can't be read.
  bool LoadText(OldFolder& folder, const QString& name, bool countWords);
  /// The same from a text. A body that marks no scene is one.
  void SetText(const QString& text, bool countWords = false);
  /// Whether a text marks any scene.
  static bool MarksScenes(const QString& text);
};
