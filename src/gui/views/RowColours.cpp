#include "gui/views/RowColours.h"

#include "gui/toolkit/Colours.h"

#include <algorithm>
#include <cmath>

namespace {

/// What small text needs to be read with ease.
constexpr double kEnoughContrast = 4.5;

double linear(double channel) {
  return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& colour) {
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

}  // namespace

namespace RowColours {

double contrast(const QColor& a, const QColor& b) {
  const double first = luminance(a);
  const double second = luminance(b);
  return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

QColor readable(quint32 colour, const QPalette& palette) {
  const QColor base = palette.color(QPalette::Base);
  QColor result = Colours::toQt(colour);
  if (base.lightness() >= 128) {
    return result;
  }
  for (int lightness = result.lightness(); contrast(result, base) < kEnoughContrast && lightness < 250;) {
    lightness += 5;
    result = QColor::fromHsl(result.hslHue(), result.hslSaturation(), std::min(lightness, 255));
  }
  return result;
}

}  // namespace RowColours
