#pragma once

#include <QWidget>

class QComboBox;
class QToolButton;
class RichTextBox;

/// The formatting bar over the text: font, size, bold, italic, underline. It formats the selection of the text and
/// does not follow the caret.
class FontBar : public QWidget {
  Q_OBJECT

 public:
  FontBar(RichTextBox& text, QWidget* parent);

  /// Shows the choice without applying it.
  void showChoice(const QString& font, const QString& size);
  /// Fills the lists; what the combos show stays.
  void fillLists();

 private:
  QComboBox* makeCombo(const char* name, const QString& tip);
  void connectCombos();
  void connectButtons();
  void applyFont();
  void applyTypedSize();
  void applySize(double points);

  RichTextBox& text_;
  QComboBox* cmbFont;
  QComboBox* cmbFontSize;
  QToolButton* cmdBold;
  QToolButton* cmdItalic;
  QToolButton* cmdUnderline;
};
