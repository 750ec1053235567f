#include <benchmark/benchmark.h>
#include <functional>
#include <memory>
#include <vector>

#include "BrenvikUIKit/animation/BKUKLinearAnimator.h"
#include "testing/VirtualHostScope.h"

namespace bkuk {
namespace {

constexpr int animationCount = 10'000;

// Reports the time of one animation beside that of the whole frame.
void reportPerAnimation(benchmark::State& state) {
  state.counters["per_animation"] = benchmark::Counter(
      animationCount, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

std::function<void()> counting(std::size_t& counter) {
  return [&counter] { ++counter; };
}

/// One frame of many endless animations.
void stepAnimations(benchmark::State& state) {
  const VirtualHostScope host;
  std::size_t calls = 0;
  std::vector<Ref<BKUKLinearAnimationContext>> contexts;
  for (int i = 0; i < animationCount; ++i) {
    contexts.push_back(make<BKUKLinearAnimationContext>(std::nullopt, 0, 1));
    contexts.back()->setBlock(counting(calls));
    contexts.back()->startAnimating();
  }
  auto& animator = BKUKLinearAnimator::sharedInstance();
  const Selector frame("onFrame");
  for (auto _ : state) animator.perform(frame);
  benchmark::DoNotOptimize(calls);
  reportPerAnimation(state);
  contexts.clear();
  animator.perform(frame);
}
BENCHMARK(stepAnimations);

/// What the frame's callbacks cost alone: subtract it to have the animator's own work.
void callBlocks(benchmark::State& state) {
  std::size_t calls = 0;
  std::vector<std::unique_ptr<std::function<void()>>> blocks;
  for (int i = 0; i < animationCount; ++i) {
    blocks.push_back(std::make_unique<std::function<void()>>(counting(calls)));
  }
  for (auto _ : state) {
    for (const auto& block : blocks) (*block)();
  }
  benchmark::DoNotOptimize(calls);
  reportPerAnimation(state);
}
BENCHMARK(callBlocks);

}  // namespace
}  // namespace bkuk
