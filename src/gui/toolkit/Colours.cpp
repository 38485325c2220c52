#include "gui/toolkit/Colours.h"

#include <QHash>

#include <algorithm>
#include <cmath>

namespace {

/// What differs no more from white is paper, be it tinted.
constexpr double kPaper = 1.5;
constexpr int kLightest = 255;

double linear(double channel) {
  return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& colour) {
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

/// The nearest lightness of a hue that reads: lighter on what is dark, and either way on what is grey.
QColor counterpart(const QColor& told, const QColor& ground, double enough) {
  for (int step = 0; step <= kLightest; ++step) {
    for (const int lightness : {told.lightness() + step, told.lightness() - step}) {
      const QColor tried =
          step == 0 ? told : QColor::fromHsl(told.hslHue(), told.hslSaturation(), std::clamp(lightness, 0, kLightest));
      if (Colours::contrast(tried, ground) >= enough) {
        return tried;
      }
    }
  }
  return Colours::textOn(ground);
}

}  // namespace

namespace Colours {

double contrast(const QColor& a, const QColor& b) {
  const double first = luminance(a);
  const double second = luminance(b);
  return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

QColor mixed(const QColor& over, const QColor& under, int share) {
  const auto channel = [share](int a, int b) { return (a * share + b * (100 - share)) / 100; };
  return {channel(over.red(), under.red()), channel(over.green(), under.green()), channel(over.blue(), under.blue())};
}

QColor readable(quint32 colour, const QPalette& palette, QPalette::ColorRole ground, double enough) {
  // Thousands of rows ask for the same few.
  static QHash<std::pair<std::pair<quint32, QRgb>, double>, QColor> known;
  const QColor behind = palette.color(ground);
  const std::pair key(std::pair(colour, behind.rgb()), enough);
  auto found = known.constFind(key);
  if (found == known.constEnd()) {
    const QColor told = toQt(colour);
    found = known.insert(key, contrast(behind, Qt::white) <= kPaper ? told : counterpart(told, behind, enough));
  }
  return *found;
}

QColor textOn(const QColor& background) {
  return contrast(Qt::black, background) >= contrast(Qt::white, background) ? Qt::black : Qt::white;
}

}  // namespace Colours
