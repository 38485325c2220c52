#pragma once

#include <QString>
#include <Qt>

#include <initializer_list>

class QFormLayout;
class QIcon;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QTabWidget;
class QToolButton;
class QWidget;

// Makers of controls. Each has the name under which it is found, and the one by which a screen reader speaks of it.
// One that is made without a parent goes into a layout, whose window becomes its parent.

/// Names a control. An empty spoken name leaves what the control says of itself.
void giveName(QWidget& control, const QString& name, const QString& spokenName = {});
/// The same for the tabs and for their bar, which is what takes the keyboard.
void giveName(QTabWidget& tabs, const QString& name, const QString& spokenName);

/// The Tab key leads from each of them to the next.
void giveTabOrder(std::initializer_list<QWidget*> controls);

/// Spoken of by its caption.
QPushButton* makeButton(const QString& name, const QString& caption, QWidget* parent = nullptr);
/// A flat button of a bar with nothing but a picture. What the tip says in front of a key in brackets is spoken.
QToolButton* makeBarButton(const QString& name, const QIcon& picture, const QString& tip, QWidget* parent = nullptr);
/// Shows its text as it is, whatever it looks like.
QLabel* makeLabel(const QString& name, const QString& text, QWidget* parent = nullptr);
/// The same in lines of so many letters at least, with room for all of them, whatever it comes to say.
QLabel* makeWrappedLabel(const QString& name, const QString& text, int letters, QWidget* parent = nullptr);
/// A caption over or beside the control that it belongs to.
QLabel* makeLabelOf(const QString& caption, QWidget& buddy);
QLineEdit* makeLineEdit(const QString& name, const QString& spokenName, QWidget* parent = nullptr);
/// A line to type in behind its caption, as the form's next row.
QLineEdit* addLineEdit(QFormLayout& form, const QString& name, const QString& caption);
/// A text of several lines; the Tab key leaves it.
QPlainTextEdit* makeTextEdit(const QString& name, const QString& spokenName, QWidget* parent = nullptr);
QPlainTextEdit* makeReadOnlyText(const QString& name, const QString& spokenName, QWidget* parent = nullptr);

/// Makes a text box one for reading: its text can be walked through and copied by keyboard, the caret shows where
/// the keyboard is, and Tab leaves it.
template <class TextBox>
void makeReadOnly(TextBox& box) {
  box.setReadOnly(true);
  box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  box.setTabChangesFocus(true);
}
