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

/// What is drawn on.
struct Paper {
  double width = 0;
  double height = 0;
  /// Of a letter of a label.
  double letterWidth = 0;
  /// What is finer isn't seen.
  double dot = 15;
};

/// In blue-green-red order; of the four fields from 0.
quint32 colourOf(size_t field);

/// Where labels have no room beside each other, every second, third, ... scene has one. Of grid lines that would share
/// a column of dots one is drawn, and of a graph that has several points in one the stretch that they cover.
Drawing drawn(const SceneRatings& ratings, const Paper& paper);

}  // namespace RatingsChart
