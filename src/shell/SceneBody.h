#pragma once

#include <QTextEdit>

class clsScene;

/// The selected scene's text, formatted and read-only, in the colours that the editor uses.
class SceneBody : public QTextEdit {
  Q_OBJECT

 public:
  explicit SceneBody(QWidget* parent = nullptr);

  /// A text of nothing but blanks says so.
  void showText(clsScene& scene);
  void clearText();
};
