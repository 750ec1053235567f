#include "platform/foundation/NSTimer.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string_view>
#include <utility>

#include "host/Host.h"
#include "host/Loop.h"
#include "platform/foundation/Fatal.h"
#include "platform/foundation/NSRunLoop.h"

namespace bkuk {

namespace {

constexpr double shortestInterval = 0.0001;
constexpr std::string_view noTarget = "NSTimer: no target to call; give it one, or a block";

Ref<NSTimer> scheduled(Ref<NSTimer> timer) {
  NSRunLoop::current().add(timer, NSDefaultRunLoopMode);
  return timer;
}

}  // namespace

NSTimer::NSTimer(double timeInterval, Action action, Ref<NSObject> userInfo, bool repeats)
    : timeInterval_(timeInterval > 0 ? timeInterval : shortestInterval),
      fireDate_(host::current().loop().now() + timeInterval_),
      anchorDate_(fireDate_),
      repeats_(repeats),
      action_(std::move(action)),
      userInfo_(std::move(userInfo)) {}

NSTimer::NSTimer(double timeInterval, Ref<NSObject> target, Selector selector, Ref<NSObject> userInfo,
                 bool repeats)
    : NSTimer(timeInterval, Action(TargetAction{required(std::move(target), noTarget), selector}),
              std::move(userInfo), repeats) {}

NSTimer::NSTimer(double timeInterval, bool repeats, Block block)
    : NSTimer(timeInterval, Action(required(std::move(block), "NSTimer: no block to call")), {}, repeats) {}

Ref<NSTimer> NSTimer::scheduledTimer(double timeInterval, Ref<NSObject> target, Selector selector,
                                     Ref<NSObject> userInfo, bool repeats) {
  return scheduled(make<NSTimer>(timeInterval, std::move(target), selector, std::move(userInfo), repeats));
}

Ref<NSTimer> NSTimer::scheduledTimer(double timeInterval, bool repeats, Block block) {
  return scheduled(make<NSTimer>(timeInterval, repeats, std::move(block)));
}

Ref<NSTimer> NSTimer::scheduledTimerWithWeakTarget(double timeInterval, NSObject* target, Selector selector,
                                                   Ref<NSObject> userInfo, bool repeats) {
  Action action = WeakTargetAction{required(target, noTarget), selector};
  return scheduled(make<NSTimer>(timeInterval, std::move(action), std::move(userInfo), repeats));
}

bool NSTimer::isValid() const {
  const auto* weak = std::get_if<WeakTargetAction>(&action_);
  return isValid_ && !(weak && !weak->target.isAlive());
}

void NSTimer::setFireDate(double date) {
  if (!isValid()) return;
  fireDateWasSet_ = true;
  anchorDate_ = std::isnan(date) ? std::numeric_limits<double>::infinity() : date;
  NSRunLoop::main().move(this, anchorDate_);
}

void NSTimer::fire() {
  if (!isValid() || isFiring_) return;
  const Ref<NSTimer> keepSelf(this);
  isFiring_ = true;
  callAction();
  isFiring_ = false;
  if (!repeats_) invalidate();
}

void NSTimer::callAction() {
  if (const auto* strong = std::get_if<TargetAction>(&action_)) {
    const auto [target, selector] = *strong;
    target->perform(selector, this);
  } else if (const auto* weak = std::get_if<WeakTargetAction>(&action_)) {
    const auto selector = weak->selector;
    if (const auto target = weak->target.lock()) target->perform(selector, this);
  } else {
    callBlock();
  }
}

// The block is out of the timer while it runs, so that invalidating in it does not destroy it under way.
void NSTimer::callBlock() {
  Block block = std::move(std::get<Block>(action_));
  block(*this);
  if (isValid_) action_ = std::move(block);
}

void NSTimer::invalidate() {
  if (!std::exchange(isValid_, false)) return;
  const Ref<NSTimer> keepSelf(this);
  NSRunLoop::main().dequeue(keepSelf);
  const Action dropped = std::exchange(action_, std::monostate());
}

void NSTimer::advanceFireDate(double now) {
  double count = std::floor((now - anchorDate_) / timeInterval_) + 1;
  if (anchorDate_ + count * timeInterval_ <= now) ++count;
  // At least a little later: intervals can be too short for the dates' precision.
  const double afterNow = std::nextafter(now, std::numeric_limits<double>::infinity());
  fireDate_ = std::max(afterNow, anchorDate_ + count * timeInterval_);
}

}  // namespace bkuk
