#pragma once

#include "gui/toolkit/RichTextBox.h"

class clsScene;

/// The selected scene's text, formatted and read-only, in the colours that the editor uses.
class SceneBody : public RichTextBox {
  Q_OBJECT

 public:
  explicit SceneBody(QWidget* parent = nullptr);

  /// A text of nothing but blanks says so.
  void showText(const clsScene& scene);
  void clearText();
};
