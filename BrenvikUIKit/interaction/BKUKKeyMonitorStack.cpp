#include "BrenvikUIKit/interaction/BKUKKeyMonitorStack.h"

#include <algorithm>
#include <utility>

namespace bkuk {

BKUKKeyMonitorStack::~BKUKKeyMonitorStack() { uninstall(); }

void BKUKKeyMonitorStack::append(Ref<BKUKKeyMonitor> monitor) {
  if (!monitor) return;
  stack_.push_back(std::move(monitor));
  if (monitor_) return;
  monitor_ = NSEventMonitor::addLocalMonitorForEvents(
      NSEventMaskFromType(NSEventType::keyDown),
      [weak = Weak<BKUKKeyMonitorStack>(this)](NSEvent& event) -> Ref<NSEvent> {
        const auto stack = weak.lock();
        if (stack && stack->serves(event) && stack->consumes(event)) return nullptr;
        return &event;
      });
}

void BKUKKeyMonitorStack::remove(const BKUKKeyMonitor* monitor) {
  const auto found = std::ranges::find(stack_, monitor, &Ref<BKUKKeyMonitor>::get);
  if (found == stack_.end()) return;
  const Ref<BKUKKeyMonitor> keep = std::move(*found);
  stack_.erase(found);
  if (stack_.empty()) uninstall();
}

void BKUKKeyMonitorStack::removeAll() {
  const auto keep = std::exchange(stack_, {});
  uninstall();
}

void BKUKKeyMonitorStack::uninstall() { NSEventMonitor::removeMonitor(std::exchange(monitor_, nullptr)); }

bool BKUKKeyMonitorStack::serves(const NSEvent& event) const {
  const auto window = window_.lock();
  return !window || event.window() == window;
}

bool BKUKKeyMonitorStack::consumes(NSEvent& event) const {
  const auto snapshot = stack_;
  for (auto monitor = snapshot.rbegin(); monitor != snapshot.rend(); ++monitor) {
    using Options = BKUKKeyMonitor::Options;
    const auto* found = (*monitor)->action(event.keyCode());
    // The action may replace itself, so a copy is called.
    const auto action = found ? *found : BKUKKeyMonitor::Action();
    if (action && action(event)) return true;
    const auto needed = action ? Options::passWhenNotConsumed : Options::passWhenNoAction;
    if (!(*monitor)->options().contains(needed)) return false;
  }
  return false;
}

}  // namespace bkuk
