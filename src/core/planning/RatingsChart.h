#pragma once

#include "core/planning/SceneRatings.h"

/// The ratings as graphs, one for each field. Everything is in twips.
namespace RatingsChart {

inline constexpr auto kFont = u"Arial";
inline constexpr double kFontPoints = 6;

struct Point {
  double x = 0;
  double y = 0;

  bool operator==(const Point&) const = default;
};

struct Stroke {
  Point from;
  Point to;

  bool operator==(const Stroke&) const = default;
};

/// y is the upper edge.
struct Label {
  Point place;
  QString text;

  bool operator==(const Label&) const = default;
};

struct Drawing {
  /// Where a line of the grid stands, from the upper edge down to the axis.
  std::vector<double> grid;
  double axis = 0;
  std::array<std::vector<Stroke>, SceneRatings::kFields> graphs;
  std::vector<Label> labels;
  /// From one scene to the next.
  double step = 0;
};

/// In blue-green-red order; of the four fields from 0.
quint32 colourOf(size_t field);

/// On a picture of this size. Where labels of letters as wide as this have no room beside each other, every second,
/// third, ... scene has one. Of grid lines that would stand within a pixel one is drawn.
Drawing drawn(const SceneRatings& ratings, double width, double height, double letterWidth);

}  // namespace RatingsChart
