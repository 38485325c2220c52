#pragma once

#include <QTimer>
#include <QWidget>

class FormatCombo;
class QAction;
class QToolButton;
class RichTextBox;
struct DefaultFont;

/// The formatting bar over the text: font, size, bold, italic, underline. It formats the selection of the text. Where
/// it follows the text it shows the format of the selection, or of what would be typed at the caret: nothing where
/// that differs.
class FontBar : public QWidget {
  Q_OBJECT

 public:
  FontBar(RichTextBox& text, QWidget* parent);

  void setFollowsText(bool follows);
  /// Shows the choice without applying it; where the bar follows the text, that is shown again at its next change.
  void showChoice(const DefaultFont& font);
  /// As if the font and the size had been typed into the bar.
  void choose(const DefaultFont& font);
  /// Fills the lists; what the combos show stays.
  void fillLists();
  /// Marks the shown font when it isn't installed, and says what stands in for it.
  void markReplaced();

 private:
  QToolButton* makeToggle(const char* name, const QString& tip);
  void connectCombos();
  void connectButton(QToolButton& button, const char* handler, void (RichTextBox::*toggle)());
  void follow();
  void applyFont(const QString& name);
  void applySize(const QString& typed);
  void setSize(double points);

  RichTextBox& text_;
  bool follows_ = false;
  /// Waits until a change of the text is through, however many signals that sends.
  QTimer following_;
  FormatCombo* cmbFont;
  FormatCombo* cmbFontSize;
  QToolButton* cmdBold;
  QToolButton* cmdItalic;
  QToolButton* cmdUnderline;
  /// The sign beside the name of a font that isn't there.
  QAction* replaced_;
};
