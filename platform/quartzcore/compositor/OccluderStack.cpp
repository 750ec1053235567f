#include "platform/quartzcore/compositor/OccluderStack.h"

#include <algorithm>
#include <iterator>

namespace bkuk {

namespace {

// The largest hide most; looking at more costs more than it saves.
constexpr std::size_t mostOccluders = 12;
constexpr std::size_t mostLatest = 24;

}  // namespace

void OccluderStack::add(const PixelRect& rect) {
  if (rect.isEmpty() || hides(rect)) return;
  auto& [largest, latest, next] = sets_.back();
  latest.resize(std::max(latest.size(), next + 1));
  latest[next] = rect;
  next = (next + 1) % mostLatest;
  if (largest.size() < mostOccluders) {
    largest.push_back(rect);
    return;
  }
  const auto smallest = std::ranges::min_element(largest, {}, area);
  if (area(*smallest) < area(rect)) *smallest = rect;
}

bool OccluderStack::hides(const PixelRect& rect) const {
  const auto& largest = sets_.back().largest;
  return std::ranges::any_of(largest, [&](const auto& occluder) { return contains(occluder, rect); });
}

void OccluderStack::appendCovers(const PixelRect& rect, std::vector<PixelRect>& covers) const {
  const auto& set = sets_.back();
  const auto isNew = [&](const PixelRect& occluder) {
    return intersects(occluder, rect) && std::ranges::find(set.latest, occluder) == set.latest.end();
  };
  std::ranges::copy_if(set.largest, std::back_inserter(covers), isNew);
  std::ranges::copy_if(set.latest, std::back_inserter(covers),
                       [&](const PixelRect& occluder) { return intersects(occluder, rect); });
}

}  // namespace bkuk
