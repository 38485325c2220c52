// Files that nobody wrote: what an index of tags takes of a text that is made of their beginnings, and chapters that
// have no IDs.
#include "Paired.h"
#include "Yardsticks.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/Collections.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/text/TagView.h"

#include <QCoreApplication>

namespace {

void nothing() {}

constexpr qsizetype kSize = 10'000'000;

void tagIndex(benchmark::State& state, const char* part) {
  const QByteArray text = QByteArray(part).repeated(kSize / static_cast<qsizetype>(qstrlen(part)));
  comparePaired(
      state, nothing, [&] { benchmark::DoNotOptimize(byteWalk(text)); }, nothing,
      [&] { benchmark::DoNotOptimize(TagIndex(text).memory()); });
  state.counters["bytes_per_byte"] = static_cast<double>(TagIndex(text).memory()) / static_cast<double>(text.size());
}

/// A highest ID leaves none behind it, so that each chapter looks for the lowest free one.
void chaptersWithoutID(benchmark::State& state, bool highest) {
  QByteArray text = "<CHAPTERS>";
  if (highest) {
    text += "<CHAPTER><ID>2147483647</ID></CHAPTER>";
  }
  text += QByteArray("<CHAPTER><Title>x</Title></CHAPTER>").repeated(state.range(0)) + "</CHAPTERS>";
  const TagIndex index(text);
  for (auto turn : state) {
    g_Project = std::make_unique<clsProject>();
    const double seconds = secondsOf([&] { g_Project->Chapters.CreateFromXML(TagView(index)); });
    state.SetIterationTime(seconds);
  }
  state.counters["time_per_chapter"] =
      benchmark::Counter(static_cast<double>(state.range(0)) * static_cast<double>(state.iterations()),
                         benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  Logging().NOLOGGING = true;
  initChangeTables();
  benchmark::Initialize(&argc, argv);
  for (const char* part : {"<", "<a", "<SCENE>"}) {
    benchmark::RegisterBenchmark((std::string("TagIndex/") + part).c_str(),
                                 [=](benchmark::State& state) { tagIndex(state, part); })
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
  }
  for (const bool highest : {false, true}) {
    benchmark::RegisterBenchmark(highest ? "ChaptersWithoutID/behindTheHighest" : "ChaptersWithoutID",
                                 [=](benchmark::State& state) { chaptersWithoutID(state, highest); })
        ->UseManualTime()
        ->Arg(10'000)
        ->Arg(20'000)
        ->Arg(40'000)
        ->Unit(benchmark::kMillisecond);
  }
  benchmark::RunSpecifiedBenchmarks();
}
