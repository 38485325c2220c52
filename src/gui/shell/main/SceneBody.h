#pragma once

#include "gui/toolkit/RichTextBox.h"

class clsScene;

/// The selected scene's text, formatted and read-only, in the colours that the editor uses.
class SceneBody : public RichTextBox {
  Q_OBJECT

 public:
  explicit SceneBody(QWidget* parent = nullptr);

  /// A text of nothing but blanks says so: false then. What is shown already stays where it is scrolled to.
  bool showText(clsScene& scene);
  void clearText();

 private:
  qint32 sceneID_ = 0;
  QByteArray shown_;
  std::optional<quint32> colour_;
  bool hasContent_ = false;
};
