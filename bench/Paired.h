#pragma once

#include <benchmark/benchmark.h>
#include <chrono>
#include <ctime>
#include <utility>

/// The seconds that a piece of work takes.
template <class Work>
double secondsOf(Work&& work) {
  const auto start = std::chrono::steady_clock::now();
  std::forward<Work>(work)();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// What a piece of work has taken in all its turns: seconds by the clock, and those in which it had a processor.
struct Spent {
  double wall = 0;
  double processor = 0;
};

/// One turn; its seconds by the clock.
template <class Work>
double spendOn(Work&& work, Spent& spent) {
  const std::clock_t start = std::clock();
  const double seconds = secondsOf(std::forward<Work>(work));
  spent.processor += static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
  spent.wall += seconds;
  return seconds;
}

/// Runs the limit and the work turn by turn, each behind its own untimed preparation; the counter "ratio" is how
/// many times the limit's time the work takes. Turn by turn, so that a machine that changes its speed changes both.
/// Where other work has the processors most of the time, "cpu_ratio" and "cpu_ms" tell what is the work's own.
template <class PrepareLimit, class Limit, class PrepareWork, class Work>
void comparePaired(benchmark::State& state, PrepareLimit prepareLimit, Limit limit, PrepareWork prepareWork,
                   Work work) {
  Spent limited;
  Spent worked;
  for (auto turn : state) {
    prepareLimit();
    spendOn(limit, limited);
    prepareWork();
    state.SetIterationTime(spendOn(work, worked));
  }
  const auto turns = static_cast<double>(state.iterations());
  state.counters["ratio"] = worked.wall / limited.wall;
  state.counters["limit_ms"] = limited.wall * 1e3 / turns;
  state.counters["cpu_ratio"] = worked.processor / limited.processor;
  state.counters["cpu_ms"] = worked.processor * 1e3 / turns;
}
