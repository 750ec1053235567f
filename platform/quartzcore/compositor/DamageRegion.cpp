#include "platform/quartzcore/compositor/DamageRegion.h"

#include <limits>

namespace bkuk {

namespace {

constexpr std::size_t mostRects = 16;

// What painting the box around both costs beyond painting each.
long costOfUniting(const PixelRect& a, const PixelRect& b) { return area(unite(a, b)) - area(a) - area(b); }

}  // namespace

void DamageRegion::add(PixelRect rect) {
  if (rect.isEmpty()) return;
  // A union may meet others, so it starts again until nothing is worth uniting.
  for (bool united = true; united;) {
    united = false;
    for (auto other = rects_.begin(); other != rects_.end(); ++other) {
      if (contains(*other, rect)) return;
      if (!intersects(*other, rect) && costOfUniting(*other, rect) > 0) continue;
      rect = unite(rect, *other);
      rects_.erase(other);
      united = true;
      break;
    }
  }
  if (rects_.size() < mostRects) {
    rects_.push_back(rect);
    return;
  }
  const auto nearest = std::ranges::min_element(
      rects_, {}, [&](const PixelRect& other) { return costOfUniting(other, rect); });
  const auto both = unite(rect, *nearest);
  rects_.erase(nearest);
  add(both);
}

}  // namespace bkuk
