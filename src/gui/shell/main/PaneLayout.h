#pragma once

#include "gui/toolkit/Twips.h"

/// Where the panes of the main window part; all lengths are twips.
namespace PaneLayout {

inline constexpr double kMinimumWidth = 8600;
inline constexpr double kMinimumHeight = 6650;
/// What the splitter leaves to the scene list on its left and to the tabs on its right.
inline constexpr double kSplitterLeft = 2500;
inline constexpr double kSplitterRight = 2800;
inline constexpr double kDefaultSplit = 0.5;

/// Rounded up, for what may not be smaller.
constexpr int pixelsAtLeast(double twips) {
  const int whole = static_cast<int>(twips / Twips::perPixel);
  return Twips::fromPixels(whole) < twips ? whole + 1 : whole;
}

}  // namespace PaneLayout
