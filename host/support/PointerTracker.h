#pragma once

#include <array>
#include <optional>

#include "host/Events.h"

namespace bkuk::host {

/// What a desktop reports with every pointer event.
struct PointerSample {
  Point position{};  ///< in points of the window's content
  Modifiers modifiers{};
  double timestamp = 0;  ///< seconds on the host's clock
};

/// Makes the pointer events of one window out of what its desktop reports: knows the held buttons, counts
/// clicks, and sees to it that every press ends in exactly one release or cancel.
class PointerTracker {
 public:
  /// Presses count as one series while each follows the one before within `clickInterval` seconds.
  explicit PointerTracker(double clickInterval = 0.5) : clickInterval_(clickInterval) {}

  [[nodiscard]] PointerEvent move(const PointerSample& sample);
  [[nodiscard]] PointerEvent enter(const PointerSample& sample);
  [[nodiscard]] PointerEvent leave(const PointerSample& sample);

  /// Empty for a button that is held already.
  [[nodiscard]] std::optional<PointerEvent> press(PointerButton button, const PointerSample& sample);
  /// Empty when the press is not known, or was cancelled.
  [[nodiscard]] std::optional<PointerEvent> release(PointerButton button, const PointerSample& sample);
  /// Ends whatever is held where the pointer was last; empty when nothing is.
  [[nodiscard]] std::optional<PointerEvent> cancel(double timestamp);

  /// The held button; of several the left before the right before the middle one.
  [[nodiscard]] PointerButton heldButton() const;

 private:
  [[nodiscard]] PointerEvent event(PointerEvent::Kind kind, const PointerSample& sample);
  [[nodiscard]] bool continuesSeries(PointerButton button, const PointerSample& sample) const;
  [[nodiscard]] int& clicks(PointerButton button) { return clicks_[static_cast<std::size_t>(button)]; }

  double clickInterval_;
  PointerSample last_;
  std::array<int, 4> clicks_{};  // of each held button, 0 for one that is up
  PointerButton seriesButton_ = PointerButton::none;
  PointerSample seriesPress_;
  int seriesCount_ = 0;
};

}  // namespace bkuk::host
