#include "core/planning/RatingsChart.h"

#include "core/planning/Rgb.h"

#include <algorithm>
#include <cmath>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr double kSides = 400;
constexpr double kLeft = 200;
constexpr double kBelow = 600;
constexpr double kHighest = 10;
constexpr double kLabelLeft = 100;
constexpr double kLabelAbove = 300;
constexpr double kLevel = 120;
constexpr int kLevels = 3;

constexpr std::array<quint32, SceneRatings::kFields> kColours{rgb(0, 0, 255), rgb(0, 128, 0), rgb(255, 0, 0),
                                                              rgb(128, 128, 128)};

/// Where the scenes stand that count from 1, and how high a rating is.
struct Scales {
  double step;
  double rise;
  double axis;
  double dot;

  double x(size_t n) const { return static_cast<double>(n) * step + kLeft; }
  double y(qint16 rating) const { return axis - rating * rise; }
};

std::vector<double> gridOf(const SceneRatings& ratings, const Scales& scales) {
  std::vector<double> grid;
  for (size_t n = 1; n <= ratings.scenes.size(); ++n) {
    if (grid.empty() || scales.x(n) - grid.back() >= scales.dot) {
      grid.push_back(scales.x(n));
    }
  }
  return grid;
}

std::vector<RatingsChart::Stroke> graphOf(const SceneRatings& ratings, size_t field, const Scales& scales) {
  std::vector<RatingsChart::Stroke> graph;
  graph.reserve(ratings.scenes.size());
  std::optional<RatingsChart::Point> last;
  size_t n = 0;
  for (const SceneRatings::Scene& scene : ratings.scenes) {
    const RatingsChart::Point point{scales.x(++n), scales.y(scene.ratings[field])};
    graph.push_back({last.value_or(point), point});
    last = point;
  }
  return graph;
}

/// Seen as the same where several scenes share a column of dots.
std::vector<RatingsChart::Stroke> condensed(const std::vector<RatingsChart::Stroke>& graph, double dot) {
  std::vector<RatingsChart::Stroke> columns;
  for (const RatingsChart::Stroke& stroke : graph) {
    const double x = std::round(stroke.to.x / dot) * dot;
    const auto [upper, lower] = std::minmax(stroke.from.y, stroke.to.y);
    if (columns.empty() || columns.back().to.x != x) {
      columns.push_back({{x, upper}, {x, lower}});
    } else {
      RatingsChart::Stroke& column = columns.back();
      column = {{x, std::min(column.from.y, upper)}, {x, std::max(column.to.y, lower)}};
    }
  }
  return columns;
}

QString labelOf(const SceneRatings::Scene& scene) {
  return QString::number(scene.chapter) + u':' + QString::number(scene.index);
}

/// Every how manyth scene has a label: one level has every third of those.
size_t labelStride(const SceneRatings& ratings, const Scales& scales, double letterWidth) {
  SceneRatings::Scene longest{};
  for (const SceneRatings::Scene& scene : ratings.scenes) {
    longest.chapter = std::max(longest.chapter, scene.chapter);
    longest.index = std::max(longest.index, scene.index);
  }
  const double room = static_cast<double>(labelOf(longest).size()) * letterWidth;
  return static_cast<size_t>(std::max(std::ceil(room / (kLevels * scales.step)), 1.0));
}

/// A label that the edge would cut off is moved in.
std::vector<RatingsChart::Label> labelsOf(const SceneRatings& ratings, const Scales& scales,
                                          const RatingsChart::Paper& paper) {
  std::vector<RatingsChart::Label> labels;
  const size_t stride = labelStride(ratings, scales, paper.letterWidth);
  for (size_t n = 1; n <= ratings.scenes.size(); n += stride) {
    const QString text = labelOf(ratings.scenes[n - 1]);
    const double last = paper.width - static_cast<double>(text.size()) * paper.letterWidth;
    const auto level = static_cast<double>((labels.size() + 1) % kLevels);
    labels.push_back({{std::min(scales.x(n) - kLabelLeft, last), paper.height - kLabelAbove - level * kLevel}, text});
  }
  return labels;
}

}  // namespace

quint32 RatingsChart::colourOf(size_t field) {
  return kColours.at(field);
}

RatingsChart::Drawing RatingsChart::drawn(const SceneRatings& ratings, const Paper& paper) {
  Drawing drawing;
  drawing.axis = paper.height - kBelow;
  if (ratings.scenes.empty() || paper.width <= kSides) {
    return drawing;
  }
  drawing.step = (paper.width - kSides) / static_cast<double>(ratings.scenes.size());
  const Scales scales{drawing.step, drawing.axis / kHighest, drawing.axis, paper.dot};
  drawing.grid = gridOf(ratings, scales);
  for (size_t field = 0; field < drawing.graphs.size(); ++field) {
    const auto graph = graphOf(ratings, field, scales);
    drawing.graphs[field] = drawing.step < paper.dot ? condensed(graph, paper.dot) : graph;
  }
  drawing.labels = labelsOf(ratings, scales, paper);
  return drawing;
}
