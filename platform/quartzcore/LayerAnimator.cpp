#include "platform/quartzcore/LayerAnimator.h"

#include <utility>

#include "host/Host.h"
#include "host/Loop.h"
#include "platform/foundation/NSRunLoop.h"
#include "platform/quartzcore/CompletionGroup.h"
#include "platform/quartzcore/LayerAccess.h"

namespace bkuk {

namespace {

constexpr double framesPerSecond = 60;

const CARenderer* rendererOf(const CALayer& layer) {
  const auto* root = &layer;
  while (const auto* above = LayerAccess::container(*root)) root = above;
  return LayerAccess::renderer(*root);
}

}  // namespace

LayerAnimator& LayerAnimator::shared() {
  static auto& animator = *new LayerAnimator;
  return animator;
}

void LayerAnimator::addUnstarted(CALayer& layer) { unstarted_.emplace_back(&layer); }

void LayerAnimator::start(const CARenderer& renderer) {
  if (unstarted_.empty()) return;
  const auto now = host::current().loop().now();
  // With others on their way, the new ones stand at their start until the next frame. Another host's clock
  // may have been ahead.
  if (running_.empty() || frameTime_ > now) frameTime_ = now;
  const auto waiting = std::exchange(unstarted_, {});
  for (const auto& weak : waiting) {
    const auto layer = weak.lock();
    if (!layer) continue;
    if (rendererOf(*layer) != &renderer) {
      unstarted_.push_back(weak);
      continue;
    }
    if (LayerAccess::startAnimations(*layer, now)) running_.push_back(weak);
    LayerAccess::markRender(*layer, LayerAccess::Effect::rearrange);
  }
  ensureTimer(now);
}

void LayerAnimator::dropUnstarted() {
  for (const auto& weak : std::exchange(unstarted_, {})) {
    if (const auto layer = weak.lock()) LayerAccess::dropUnstartedAnimations(*layer);
  }
}

void LayerAnimator::ensureTimer(double now) {
  if (running_.empty()) return;
  const auto nextFrame = now + 1 / framesPerSecond;
  if (!timer_) {
    timer_ = make<NSTimer>(1 / framesPerSecond, true, [this](NSTimer&) { step(); });
    NSRunLoop::main().add(timer_, NSRunLoopCommonModes);
  } else if (timer_->fireDate() > nextFrame) {
    // Another host's clock, which the timer was made by, was ahead.
    timer_->setFireDate(nextFrame);
  }
}

void LayerAnimator::step() {
  const auto now = frameTime_ = host::current().loop().now();
  const auto snapshot = std::exchange(running_, {});
  for (const auto& weak : snapshot) {
    const auto layer = weak.lock();
    if (!layer) continue;
    // Where nobody sees it, an endless animation must not keep the process awake.
    if (!rendererOf(*layer)) layer->removeAllAnimations();
    if (LayerAccess::stepAnimations(*layer, now)) running_.push_back(weak);
  }
  if (running_.empty()) std::exchange(timer_, nullptr)->invalidate();
  CompletionGroup::callDueBlocks();
}

}  // namespace bkuk
