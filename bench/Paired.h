#pragma once

#include <benchmark/benchmark.h>
#include <chrono>
#include <utility>

/// The seconds that a piece of work takes.
template <class Work>
double secondsOf(Work&& work) {
  const auto start = std::chrono::steady_clock::now();
  std::forward<Work>(work)();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// Runs the limit and the work turn by turn, each behind its own untimed preparation; the counter "ratio" is how
/// many times the limit's time the work takes. Turn by turn, so that a machine that changes its speed changes both.
template <class PrepareLimit, class Limit, class PrepareWork, class Work>
void comparePaired(benchmark::State& state, PrepareLimit prepareLimit, Limit limit, PrepareWork prepareWork,
                   Work work) {
  double limited = 0;
  double worked = 0;
  for (auto turn : state) {
    prepareLimit();
    limited += secondsOf(limit);
    prepareWork();
    const double seconds = secondsOf(work);
    worked += seconds;
    state.SetIterationTime(seconds);
  }
  state.counters["ratio"] = worked / limited;
  state.counters["limit_ms"] = limited * 1e3 / static_cast<double>(state.iterations());
}
