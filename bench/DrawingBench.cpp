#include <array>
#include <benchmark/benchmark.h>

#include "BrenvikUIKit/drawing/LinePatternFit.h"

namespace bkuk {
namespace {

constexpr std::array<CGFloat, 4> dashDot{8, 3, 2, 3};

/// Fits four elements to a path of 1,000 points in the way that the argument numbers.
void fitLinePattern(benchmark::State& state) {
  const LinePatternFit fit{.modification = static_cast<BKUKLinePatternModification>(state.range(0)),
                           .pathLength = 1000};
  for (auto _ : state) benchmark::DoNotOptimize(fittedLinePattern(dashDot, fit));
}
BENCHMARK(fitLinePattern)->DenseRange(1, 4);

/// The result's memory alone, for comparison.
void copyLinePattern(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(std::vector<CGFloat>(dashDot.begin(), dashDot.end()));
}
BENCHMARK(copyLinePattern);

}  // namespace
}  // namespace bkuk
