#include "platform/quartzcore/compositor/OccluderStack.h"

#include <algorithm>

namespace bkuk {

namespace {

// The largest hide most; looking at more costs more than it saves.
constexpr std::size_t mostOccluders = 12;

}  // namespace

void OccluderStack::add(const PixelRect& rect) {
  if (rect.isEmpty() || hides(rect)) return;
  auto& set = sets_.back();
  if (set.size() < mostOccluders) {
    set.push_back(rect);
    return;
  }
  const auto smallest = std::ranges::min_element(set, {}, area);
  if (area(*smallest) < area(rect)) *smallest = rect;
}

bool OccluderStack::hides(const PixelRect& rect) const {
  return std::ranges::any_of(sets_.back(), [&](const auto& occluder) { return contains(occluder, rect); });
}

}  // namespace bkuk
