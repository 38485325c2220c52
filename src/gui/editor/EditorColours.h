#pragma once

#include "gui/toolkit/Colours.h"

#include <optional>

class RichTextBox;

/// The colours of the text pane: its background, and the one colour of all text that is saved. Blue-green-red
/// numbers; the defaults name system colours and follow the palette.
struct EditorColours {
  quint32 EditorBG = Colours::systemWindow;
  quint32 EditorFG = Colours::systemWindowText;

  static EditorColours fromSettings();
  void toSettings() const;

  /// What saved text states as its colour: nothing, the automatic colour, when EditorFG follows the palette. A
  /// fixed black would vanish on a dark desktop.
  std::optional<quint32> textColour() const;
  /// Background and automatic text colour of the pane; text is readable on a background of the user's own.
  void applyTo(RichTextBox& pane) const;

  bool operator==(const EditorColours&) const = default;
};
