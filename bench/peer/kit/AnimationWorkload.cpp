#include <stdexcept>
#include <vector>

#include "BrenvikUIKit/animation/BKUKLinearAnimationContext.h"
#include "BrenvikUIKit/animation/BKUKLinearAnimator.h"
#include "bench/peer/common/Scene.h"
#include "bench/peer/kit/Workloads.h"

namespace bkuk::bench {

// Frames one after the other, without the timer and the sleep between them.
Result animate() {
  int calls = 0;
  std::vector<Ref<BKUKLinearAnimationContext>> contexts;
  for (int i = 0; i < peer::animationCount; ++i) {
    contexts.push_back(make<BKUKLinearAnimationContext>(std::nullopt, 0, 1));
    contexts.back()->setBlock([&calls] { ++calls; });
    contexts.back()->startAnimating();
  }
  auto& animator = BKUKLinearAnimator::sharedInstance();
  const Selector frame("onFrame");
  const auto costs = peer::costsOf(5, [&] {
    calls = 0;
    for (int i = 0; i < peer::animationTicks; ++i) animator.perform(frame);
  });
  if (calls != peer::animationCount * peer::animationTicks)
    throw std::runtime_error("animations missed frames");
  return {peer::animationTicks, costs};
}

}  // namespace bkuk::bench
