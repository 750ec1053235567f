#include "BrenvikUIKit/animation/BKUKLinearAnimator.h"

#include <limits>
#include <utility>

#include "platform/foundation/DispatchQueue.h"
#include "platform/foundation/Fatal.h"
#include "platform/foundation/NSRunLoop.h"
#include "platform/foundation/NSThread.h"
#include "platform/foundation/NSTimer.h"
#include "platform/foundation/Permanent.h"

namespace bkuk {

namespace {

std::uint32_t frameAfter(std::uint32_t frame) {
  if (frame == std::numeric_limits<std::uint32_t>::max()) {
    trap("BKUKLinearAnimationContext: more frames than 32 bits count; start it anew in between");
  }
  return frame + 1;
}

bool isMultiple(std::uint32_t frame, std::uint32_t spacing) {
  if (spacing == 0) trap("BKUKLinearAnimationContext: frameSpacing 0; give it 1 for every frame");
  return frame % spacing == 0;
}

}  // namespace

BKUKLinearAnimator& BKUKLinearAnimator::sharedInstance() {
  static const auto& animator =
      permanent([] { return Ref<BKUKLinearAnimator>::adopt(new BKUKLinearAnimator); });
  return *animator;
}

const SelectorTable& BKUKLinearAnimator::selectors() const {
  static const auto& table =
      SelectorTable::make(NSObject::selectors(), {{"onFrame", memberAction<&BKUKLinearAnimator::onFrame>}});
  return table;
}

// Starting

BKUKLinearAnimator::CancelHandle BKUKLinearAnimator::animate(BKUKLinearAnimationContext& context) {
  const auto instance = make<AnimationInstance>(context);
  if (NSThread::isMainThread()) {
    add(instance);
  } else {
    DispatchQueue::main().async([this, instance] { add(instance); });
  }
  return [weak = Weak<AnimationInstance>(instance)] {
    if (const auto live = weak.lock()) live->cancel();
  };
}

void BKUKLinearAnimator::add(Ref<AnimationInstance> instance) {
  animations_.push_back(std::move(instance));
  ensureTimer();
}

void BKUKLinearAnimator::ensureTimer() {
  if (timer_ && timer_->isValid()) return;
  timer_ = permanentObject<NSTimer>(FrameLength, Ref<NSObject>(this), Selector("onFrame"), nullptr, true);
  NSRunLoop::current().add(timer_, NSRunLoopCommonModes);
}

// Frames

// Callbacks may start animations, which are appended, and even call for a frame in a nested loop; so
// `animations_` is walked by index, and each instance is held.
void BKUKLinearAnimator::onFrame() {
  const auto ending = takeEnding();
  const std::size_t goingOn = animations_.size();
  for (const auto& instance : ending) deliverLastFrame(*instance);
  if (animations_.empty() && timer_) timer_->invalidate();
  for (std::size_t i = 0; i < goingOn && i < animations_.size(); ++i) {
    const auto instance = animations_[i];
    deliverFrame(*instance);
  }
}

// In place and by index: letting go of a context's last reference may run code of its owner.
BKUKLinearAnimator::Instances BKUKLinearAnimator::takeEnding() {
  Instances ending;
  std::size_t kept = 0;
  const std::size_t count = animations_.size();
  for (std::size_t i = 0; i < count; ++i) {
    if (goesOn(*animations_[i])) {
      std::swap(animations_[kept++], animations_[i]);
    } else {
      ending.push_back(animations_[i]);
    }
  }
  const auto begin = animations_.begin();
  animations_.erase(begin + static_cast<std::ptrdiff_t>(kept), begin + static_cast<std::ptrdiff_t>(count));
  return ending;
}

bool BKUKLinearAnimator::goesOn(const AnimationInstance& instance) {
  const auto context = instance.context();
  if (!context) return false;
  context->isAnimating_ = !instance.isCanceled() && !isAtLastFrame(*context);
  return context->isAnimating_;
}

bool BKUKLinearAnimator::isAtLastFrame(const Context& context) {
  return context.animationFrames_ && frameAfter(context.currentFrame_) >= *context.animationFrames_;
}

void BKUKLinearAnimator::deliverLastFrame(const AnimationInstance& instance) {
  const auto context = instance.context();
  if (!context || instance.isCanceled()) return;
  context->currentFrame_ = frameAfter(context->currentFrame_);
  callBlock(*context);
  if (!instance.isCanceled()) tell(*context, BKUKAnimationPhases::finish);
}

void BKUKLinearAnimator::deliverFrame(const AnimationInstance& instance) {
  const auto context = instance.context();
  if (!context) return;
  context->currentFrame_ = frameAfter(context->currentFrame_);
  if (instance.isCanceled()) return;
  if (const auto phase = phaseOfFrame(*context)) tell(*context, *phase);
  if (instance.isCanceled() || context->currentFrame_ < context->startingFrame_) return;
  if (isMultiple(context->currentFrame_, context->frameSpacing_)) callBlock(*context);
}

std::optional<BKUKAnimationPhases> BKUKLinearAnimator::phaseOfFrame(const Context& context) {
  const auto frame = context.currentFrame_;
  if (frame == context.startingFrame_) return BKUKAnimationPhases::start;
  if (context.animationFrames_ && frame == *context.animationFrames_ / 2) return BKUKAnimationPhases::middle;
  return {};
}

void BKUKLinearAnimator::callBlock(const Context& context) {
  const auto block = context.block_;
  (*required(block, "BKUKLinearAnimationContext: no block; call setBlock before startAnimating"))();
}

void BKUKLinearAnimator::tell(const Context& context, BKUKAnimationPhases phase) {
  const auto handler = context.phaseHandler_;
  if (handler) (*handler)(phase);
}

}  // namespace bkuk
