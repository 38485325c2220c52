#pragma once

#include "core/text/RichText.h"

#include <optional>

// What the editor does to a whole text on its way in and out.

/// All text takes the one colour, none being the automatic one: no mark of spelling or names is ever saved.
void ResetFontColour(RichText& text, std::optional<quint32> colour);
/// First lines are indented by 200 twips, the lines behind them begin at the margin. Paragraphs that have an indent of
/// their own, such as quotations, and items of lists stay as they are.
void SetMainIndent(RichText& text);
