#pragma once

#include <cstdint>
#include <optional>

namespace bkuk::host {

/// Puts the desktop's time stamps on the host's clock. They count milliseconds from a moment that nobody
/// tells; the events that arrive with the least delay give it away.
class EventClock {
 public:
  /// The date of an event stamped `milliseconds` that arrives at `now`. A stamp of 0 means none.
  [[nodiscard]] double date(std::uint64_t milliseconds, double now);

 private:
  std::optional<double> start_;
};

}  // namespace bkuk::host
