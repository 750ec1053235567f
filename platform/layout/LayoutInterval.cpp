#include "platform/layout/LayoutInterval.h"

#include <algorithm>

namespace bkuk {

namespace {

constexpr double negligibleValue = 1e-7;  // points
constexpr double negligibleLength = 1e-9;
constexpr double negligibleSlope = 1e-9;

}  // namespace

bool LayoutInterval::isPoint() const { return greatest_ - least_ <= negligibleLength; }

bool LayoutInterval::demandAtLeast(double value) {
  if (value > greatest_ + negligibleValue) return false;
  least_ = std::min(std::max(least_, value), greatest_);
  return true;
}

bool LayoutInterval::demandAtMost(double value) {
  if (value < least_ - negligibleValue) return false;
  greatest_ = std::max(std::min(greatest_, value), least_);
  return true;
}

// The sum of the distances falls until one wish and rises from another on; between these it is least.
void LayoutInterval::prefer(std::span<Wish> wishes) {
  std::ranges::sort(wishes, {}, &Wish::at);
  double slope = 0;
  for (const auto& wish : wishes) slope -= wish.mindsLess ? wish.weight : 0;
  double first = -std::numeric_limits<double>::infinity();
  double last = std::numeric_limits<double>::infinity();
  for (const auto& wish : wishes) {
    const bool falls = slope < -negligibleSlope;
    slope += wish.mindsLess ? wish.weight : 0;
    slope += wish.mindsMore ? wish.weight : 0;
    if (falls && slope >= -negligibleSlope) first = wish.at;
    if (slope > negligibleSlope) {
      last = wish.at;
      break;
    }
  }
  const double least = std::clamp(first, least_, greatest_);
  greatest_ = std::clamp(last, least_, greatest_);
  least_ = least;
}

}  // namespace bkuk
