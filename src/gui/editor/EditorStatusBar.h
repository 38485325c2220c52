#pragma once

#include <QStatusBar>

#include <array>

class QLabel;

/// The status bar of an editor, of five panels counted from 1.
class EditorStatusBar : public QStatusBar {
  Q_OBJECT

 public:
  static constexpr int autosave = 1;
  static constexpr int chapterWords = 2;
  static constexpr int sceneWords = 3;
  /// What is to be known of the text.
  static constexpr int hint = 4;
  static constexpr int chapterTitle = 5;

  explicit EditorStatusBar(QWidget* parent = nullptr);

  void setPanel(int panel, const QString& text, const QString& toolTip = {});

 private:
  std::array<QLabel*, 5> panels_;
};
