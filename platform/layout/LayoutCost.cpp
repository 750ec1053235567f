#include "platform/layout/LayoutCost.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace bkuk {

namespace {

// Amounts are sums of products of a few coefficients near 1; what is smaller than this is rounding.
constexpr double negligible = 1e-9;

}  // namespace

void LayoutCost::add(double priority, double amount) {
  const auto place = std::ranges::lower_bound(levels_, priority, std::greater<>(), &Level::priority);
  if (place != levels_.end() && place->priority == priority) {
    place->amount += amount;
  } else {
    levels_.insert(place, {priority, amount});
  }
}

int LayoutCost::sign() const {
  for (const auto& level : levels_) {
    if (std::abs(level.amount) > negligible) return level.amount < 0 ? -1 : 1;
  }
  return 0;
}

bool LayoutCost::isLess(double factor, const LayoutCost& other, double otherFactor) const {
  auto a = levels_.begin();
  auto b = other.levels_.begin();
  while (a != levels_.end() || b != other.levels_.end()) {
    const bool takesA = a != levels_.end() && (b == other.levels_.end() || a->priority >= b->priority);
    const bool takesB = b != other.levels_.end() && (a == levels_.end() || b->priority >= a->priority);
    const double difference = (takesA ? a->amount * factor : 0) - (takesB ? b->amount * otherFactor : 0);
    if (std::abs(difference) > negligible) return difference < 0;
    a += takesA;
    b += takesB;
  }
  return false;
}

}  // namespace bkuk
