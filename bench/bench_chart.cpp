// The chart of ratings of a large book, beside a bare widget that draws the same lines, which are at hand;
// painted off the screen:
//     bench_chart PROJECT.qn4
// The project is neither changed nor saved: its scenes are rated in memory.
#include "BenchProgram.h"
#include "Paired.h"
#include "PlainLists.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/planning/RatingsChart.h"
#include "gui/planning/frmChart.h"
#include "gui/toolkit/Twips.h"

#include <QPainter>
#include <QTimer>

#include <algorithm>
#include <array>
#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<Qt::GlobalColor, SceneRatings::kFields> kColours{Qt::blue, Qt::darkGreen, Qt::red, Qt::gray};

/// A walk up and down, each field at a pace of its own.
void rateAll() {
  quint32 seed = 1;
  std::array<int, SceneRatings::kFields> rating{5, 5, 5, 5};
  for (const auto& scene : g_Project->Scenes) {
    for (size_t field = 0; field < rating.size(); ++field) {
      seed = seed * 1664525U + 1013904223U;
      rating[field] = std::clamp(rating[field] + static_cast<int>(seed >> 16) % 5 - 2, 1, 10);
      scene->setField(static_cast<int>(field) + 1, static_cast<qint16>(rating[field]));
    }
  }
}

/// The same picture as lines in pixels.
struct Picture {
  Picture(const SceneRatings& ratings, const QSize& size) {
    const auto drawing = RatingsChart::drawn(
        ratings, {Twips::fromPixels(size.width()), Twips::fromPixels(size.height()), 4 * Twips::perPixel});
    for (const double x : drawing.grid) {
      grid.append(QLineF(x / Twips::perPixel, 0, x / Twips::perPixel, drawing.axis / Twips::perPixel));
    }
    for (size_t field = 0; field < graphs.size(); ++field) {
      for (const RatingsChart::Stroke& stroke : drawing.graphs[field]) {
        graphs[field].append(QLineF(stroke.from.x / Twips::perPixel, stroke.from.y / Twips::perPixel,
                                    stroke.to.x / Twips::perPixel, stroke.to.y / Twips::perPixel));
      }
    }
    labels = drawing.labels;
  }

  QList<QLineF> grid;
  std::array<QList<QLineF>, SceneRatings::kFields> graphs;
  std::vector<RatingsChart::Label> labels;
};

class PlainChart : public QWidget {
 public:
  PlainChart(const SceneRatings& ratings, const QSize& size) : picture_(ratings, size) { resize(size); }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    painter.setPen(QColor(248, 248, 248));
    painter.drawLines(picture_.grid);
    for (size_t field = 0; field < kColours.size(); ++field) {
      painter.setPen(kColours[field]);
      painter.drawLines(picture_.graphs[field]);
    }
    painter.setPen(Qt::black);
    painter.setFont(QFont(u"Arial"_s, 6));
    for (const RatingsChart::Label& label : picture_.labels) {
      painter.drawText(QPointF(label.place.x, label.place.y + 100) / Twips::perPixel, label.text);
    }
  }

 private:
  Picture picture_;
};

struct Chart {
  Chart() {
    picChart().setFixedSize(1200, 600);
    const Painted painted({&picChart()});
    form.show();
    painted.wait();
  }

  QWidget& picChart() { return *form.findChild<QWidget*>(u"PicChart"_s); }
  void repaint() {
    const Painted painted({&picChart()});
    picChart().update();
    painted.wait();
  }

  frmChart form;
};

/// The book read, everything worked out and painted, against painting alone.
void painting(benchmark::State& state) {
  Chart chart;
  PlainChart plain(SceneRatings::of(*g_Project), chart.picChart().size());
  plain.show();
  comparePaired(
      state, [] {},
      [&] {
        const Painted painted({&plain});
        plain.update();
        painted.wait();
      },
      // What hasn't changed isn't painted again.
      [] {
        clsScene& first = **g_Project->Scenes.begin();
        first.setField(1, static_cast<qint16>(first.Field(1) % 9 + 1));
      },
      [&] {
        const Painted painted({&chart.picChart()});
        chart.form.refresh();
        painted.wait();
      });
}

/// What an uncovered chart costs: nothing of it has changed.
void again(benchmark::State& state) {
  Chart chart;
  for (auto turn : state) {
    state.SetIterationTime(secondsOf([&] { chart.repaint(); }));
  }
}

/// Once a second, nothing changed.
void look(benchmark::State& state) {
  const SceneRatings before = SceneRatings::of(*g_Project);
  for (auto turn : state) {
    state.SetIterationTime(secondsOf([&] { benchmark::DoNotOptimize(SceneRatings::of(*g_Project) == before); }));
  }
}

}  // namespace

BENCHMARK(painting)->UseManualTime()->Unit(benchmark::kMillisecond)->MinTime(1);
BENCHMARK(again)->UseManualTime()->Unit(benchmark::kMillisecond)->MinTime(0.3);
BENCHMARK(look)->UseManualTime()->Unit(benchmark::kMillisecond)->MinTime(0.3);

int main(int argc, char** argv) {
  const BenchProgram program(argc, argv);
  initChangeTables();
  g_Project = std::make_unique<clsProject>();
  if (!g_Project->Load(program.book(), false)) {
    return 1;
  }
  rateAll();
  benchmark::RunSpecifiedBenchmarks();
}
