#include "BrenvikUIKit/interaction/BKUKKeyMonitor.h"

#include <utility>

#include "BrenvikUIKit/interaction/BKUKKeyCodes.h"
#include "BrenvikUIKit/interaction/BKUKNSWindow+Extensions.h"
#include "BrenvikUIKit/interaction/BKUKStatefulView.h"

namespace bkuk {

namespace {

constexpr std::uint16_t submitKeys[] = {rawValue(BKUKKeyCodes::enter_main),
                                        rawValue(BKUKKeyCodes::enter_num)};

}  // namespace

BKUKKeyMonitor::~BKUKKeyMonitor() = default;

void BKUKKeyMonitor::activate(NSWindow& window) {
  window_ = &window;
  appendKeyMonitor(window, this);
}

void BKUKKeyMonitor::deactivate() {
  const Ref<BKUKKeyMonitor> self(this);
  if (const auto window = window_.lock()) removeKeyMonitor(*window, this);
  window_ = nullptr;
}

void BKUKKeyMonitor::setAction(std::uint16_t key, Action action) {
  if (!action) return removeAction(key);
  actions_[key] = std::move(action);
}

void BKUKKeyMonitor::setAction(std::initializer_list<std::uint16_t> keys, const Action& action) {
  setAction(std::span(keys.begin(), keys.size()), action);
}

void BKUKKeyMonitor::setAction(std::span<const std::uint16_t> keys, const Action& action) {
  for (const auto key : keys) setAction(key, action);
}

void BKUKKeyMonitor::removeAction(std::uint16_t key) { actions_.erase(key); }

const BKUKKeyMonitor::Action* BKUKKeyMonitor::action(std::uint16_t key) const {
  const auto found = actions_.find(key);
  return found == actions_.end() ? nullptr : &found->second;
}

void BKUKKeyMonitor::setSubmit(const Action& action) { setAction(submitKeys, action); }

void BKUKKeyMonitor::setCancel(Action action) {
  setAction(rawValue(BKUKKeyCodes::escape), std::move(action));
}

void BKUKKeyMonitor::setKeyAlias(std::uint16_t keyCode, BKUKStatefulView& control) {
  setAction(keyCode, [weak = Weak<BKUKStatefulView>(&control)](NSEvent&) {
    const auto pressed = weak.lock();
    const bool canPress = pressed && pressed->window() && !pressed->isHidden() && pressed->isEnabled() &&
                          pressed->state() != BKUKInteractionState::disabled;
    if (canPress) pressed->performUserAction();
    return canPress;
  });
}

void BKUKKeyMonitor::setSubmit(BKUKStatefulView& button) {
  for (const auto key : submitKeys) setKeyAlias(key, button);
}

void BKUKKeyMonitor::setCancel(BKUKStatefulView& button) {
  setKeyAlias(rawValue(BKUKKeyCodes::escape), button);
}

}  // namespace bkuk
