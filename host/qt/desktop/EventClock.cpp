#include "host/qt/desktop/EventClock.h"

namespace bkuk::host {

namespace {

// An event older than this, in seconds, means that the desktop's counter has started anew.
constexpr double longestDelay = 30;

}  // namespace

double EventClock::date(std::uint64_t milliseconds, double now) {
  if (milliseconds == 0) return now;
  const double stamp = static_cast<double>(milliseconds) / 1000;
  const double start = now - stamp;
  if (!start_ || start < *start_ || start > *start_ + longestDelay) start_ = start;
  return *start_ + stamp;
}

}  // namespace bkuk::host
