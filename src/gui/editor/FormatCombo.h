#pragma once

#include "gui/editor/EditorCombo.h"

/// A box of the formatting bar: a list to choose from, with a field to type in. What code shows in it is no choice.
class FormatCombo : public EditorCombo {
  Q_OBJECT

 public:
  FormatCombo(const QString& name, const QString& tip, QWidget* parent = nullptr);

  /// Shows a text, be it in the list or not. What is being typed stays.
  void showText(const QString& text);
  /// Something was typed that is neither applied nor given up yet.
  bool isBeingTyped() const { return typing_; }

 Q_SIGNALS:
  /// Chosen from the list; or typed and finished, by Return or by leaving the box.
  void chosen(const QString& text, bool typed);
  /// The user has done with the box: chosen, or given up by Escape.
  void left();

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void finish();

  QString shown_;
  bool typing_ = false;
};
