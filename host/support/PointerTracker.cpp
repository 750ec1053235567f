#include "host/support/PointerTracker.h"

#include <cmath>
#include <utility>

namespace bkuk::host {

namespace {

// How far apart, in points, two presses of one series may be.
constexpr double clickDistance = 4;

}  // namespace

PointerEvent PointerTracker::event(PointerEvent::Kind kind, const PointerSample& sample) {
  last_ = sample;
  return {kind, sample.position, heldButton(), sample.modifiers, sample.timestamp, 0};
}

PointerEvent PointerTracker::move(const PointerSample& sample) {
  return event(PointerEvent::Kind::move, sample);
}

PointerEvent PointerTracker::enter(const PointerSample& sample) {
  return event(PointerEvent::Kind::enter, sample);
}

PointerEvent PointerTracker::leave(const PointerSample& sample) {
  return event(PointerEvent::Kind::leave, sample);
}

std::optional<PointerEvent> PointerTracker::press(PointerButton button, const PointerSample& sample) {
  if (button == PointerButton::none || clicks(button) > 0) return std::nullopt;
  seriesCount_ = continuesSeries(button, sample) ? seriesCount_ + 1 : 1;
  seriesButton_ = button;
  seriesPress_ = sample;
  clicks(button) = seriesCount_;
  auto result = event(PointerEvent::Kind::press, sample);
  result.button = button;
  result.clickCount = seriesCount_;
  return result;
}

std::optional<PointerEvent> PointerTracker::release(PointerButton button, const PointerSample& sample) {
  if (button == PointerButton::none || clicks(button) == 0) return std::nullopt;
  auto result = event(PointerEvent::Kind::release, sample);
  result.button = button;
  result.clickCount = std::exchange(clicks(button), 0);
  return result;
}

std::optional<PointerEvent> PointerTracker::cancel(double timestamp) {
  const auto held = heldButton();
  if (held == PointerButton::none) return std::nullopt;
  auto sample = last_;
  sample.timestamp = timestamp;
  auto result = event(PointerEvent::Kind::cancel, sample);
  result.clickCount = clicks(held);
  clicks_.fill(0);
  seriesButton_ = PointerButton::none;
  return result;
}

PointerButton PointerTracker::heldButton() const {
  for (const auto button : {PointerButton::left, PointerButton::right, PointerButton::middle}) {
    if (clicks_[static_cast<std::size_t>(button)] > 0) return button;
  }
  return PointerButton::none;
}

bool PointerTracker::continuesSeries(PointerButton button, const PointerSample& sample) const {
  return button == seriesButton_ && sample.timestamp - seriesPress_.timestamp <= clickInterval_ &&
         std::abs(sample.position.x - seriesPress_.position.x) <= clickDistance &&
         std::abs(sample.position.y - seriesPress_.position.y) <= clickDistance;
}

}  // namespace bkuk::host
