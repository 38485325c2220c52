#pragma once

#include <Qt>

/// Makes a text box one for reading: its text can be walked through and copied by keyboard, the caret shows where
/// the keyboard is, and Tab leaves it.
template <class TextBox>
void makeReadOnly(TextBox& box) {
  box.setReadOnly(true);
  box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  box.setTabChangesFocus(true);
}
