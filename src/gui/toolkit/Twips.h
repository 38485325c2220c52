#pragma once

#include <QtGlobal>

#include <cmath>

/// Window sizes are told in twips: 1440 to the inch, 15 to a device-independent pixel.
namespace Twips {

inline constexpr double perPixel = 15.0;

constexpr double fromPixels(int pixels) {
  return pixels * perPixel;
}

/// To the nearest pixel; what no window could have is brought within what one can.
inline int toPixels(double twips) {
  if (std::isnan(twips)) {
    return 0;
  }
  constexpr double limit = 1 << 24;
  return qRound(qBound(-limit, twips / perPixel, limit));
}

}  // namespace Twips
