#include <benchmark/benchmark.h>
#include <vector>

#include "platform/foundation/NSTimer.h"
#include "testing/VirtualHostScope.h"

namespace bkuk {
namespace {

/// Makes a timer and takes it off again while `state.range(0)` others wait.
void scheduleTimer(benchmark::State& state) {
  const VirtualHostScope host;
  std::vector<Ref<NSTimer>> others;
  for (auto count = state.range(0); count > 0; --count)
    others.push_back(NSTimer::scheduledTimer(static_cast<double>(count), true, [](NSTimer&) {}));
  for (auto _ : state) NSTimer::scheduledTimer(0.5, true, [](NSTimer&) {})->invalidate();
  for (const auto& timer : others) timer->invalidate();
}
BENCHMARK(scheduleTimer)->Arg(0)->Arg(100);

/// One fire of a repeating timer, with the turn of the run loop around it.
void fireTimer(benchmark::State& state) {
  const VirtualHostScope host;
  std::int64_t fired = 0;
  const auto timer = NSTimer::scheduledTimer(1, true, [&](NSTimer&) { ++fired; });
  for (auto _ : state) host->advance(1);
  timer->invalidate();
  if (fired != static_cast<std::int64_t>(state.iterations())) state.SkipWithError("the timer missed a date");
}
BENCHMARK(fireTimer);

}  // namespace
}  // namespace bkuk
