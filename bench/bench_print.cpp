// A whole novel laid out on pages, beside measuring each of its words once; and written as a PDF file.
#include "Paired.h"
#include "Yardsticks.h"
#include "core/layout/PrintFlow.h"
#include "gui/toolkit/PdfFile.h"

#include <QDir>
#include <QGuiApplication>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

const PrintState kState{false, false, 10, u"Times New Roman"_s};

const QString& novel() {
  static const QString text = [] {
    const QString shared = sharedNovel();
    return shared.isEmpty() ? u"“Well,” said he—it was July—“don’t wait for the well-known prince.”\n"_s.repeated(35000)
                            : shared;
  }();
  return text;
}

struct NoProgress : PrintProgress {
  void step(const QString&, qint32) override {}
};

PrintDocument laidOut(const TextMeasure& measure) {
  PrintFlow flow(measure, kState);
  flow.PrintText(novel(), true);
  return {u"Novel"_s, u"Bench"_s, flow.paper(), flow.takePages()};
}

void layout(benchmark::State& state) {
  const QStringList words = novel().split(QRegularExpression(u"\\s+"_s), Qt::SkipEmptyParts);
  const QtTextMeasure measure;
  double sum = 0;
  comparePaired(
      state, [] {},
      [&] {
        for (const QString& word : words) {
          sum += measure.width(word, kState.font());
        }
      },
      [] {}, [&] { benchmark::DoNotOptimize(laidOut(measure).pages.size()); });
  benchmark::DoNotOptimize(sum);
}

void pdf(benchmark::State& state) {
  const PrintDocument document = laidOut(QtTextMeasure());
  NoProgress progress;
  const QString path = QDir::temp().filePath(u"bench_print.pdf"_s);
  for (auto turn : state) {
    PdfFile(path).print(document, progress);
  }
  QFile::remove(path);
  state.counters["pages"] = static_cast<double>(document.pages.size());
}

}  // namespace

BENCHMARK(layout)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(pdf)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
