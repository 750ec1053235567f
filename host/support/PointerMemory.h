#pragma once

#include <functional>
#include <optional>
#include <utility>

#include "host/Geometry.h"

namespace bkuk::host {

/// Where the pointer is on the screen, for a desktop that answers only after a round trip. One answer holds
/// for a turn of the loop: the place that the latest event told, in a turn that events have come or are
/// delivered in; otherwise the desktop is asked, once, since it may have moved the pointer unseen.
class PointerMemory {
 public:
  /// `ask` asks the desktop.
  explicit PointerMemory(std::function<Point()> ask) : ask_(std::move(ask)) {}

  /// An event came in that tells the pointer's place.
  void see(Point position) { seen_ = answer_ = position; }
  /// Such an event is about to be delivered: what was seen last holds for this turn.
  void recall() {
    if (seen_) answer_ = seen_;
  }
  /// The pointer left the windows of the program: where it is now, no event tells.
  void loseSight() { seen_ = answer_ = std::nullopt; }
  void turnEnds() { answer_.reset(); }

  [[nodiscard]] Point position() {
    if (!answer_) answer_ = ask_();
    return *answer_;
  }

 private:
  std::function<Point()> ask_;
  std::optional<Point> seen_;
  std::optional<Point> answer_;
};

}  // namespace bkuk::host
