#include "platform/quartzcore/Autoresizing.h"

#include <array>

namespace bkuk {

namespace {

// The three pieces of one axis: margin, extent, margin.
using Pieces = std::array<CGFloat, 3>;

// Hands a superlayer's growth to the flexible pieces, whose bits start at `mask`'s lowest.
Pieces resized(Pieces pieces, unsigned mask, CGFloat growth) {
  CGFloat flexibleLength = 0;
  int flexibleCount = 0;
  for (unsigned i = 0; i < 3; ++i) {
    if (!(mask & (1U << i))) continue;
    flexibleLength += pieces[i];
    ++flexibleCount;
  }
  for (unsigned i = 0; i < 3; ++i) {
    if (!(mask & (1U << i))) continue;
    pieces[i] += flexibleLength == 0 ? growth / flexibleCount : growth * (pieces[i] / flexibleLength);
  }
  return pieces;
}

}  // namespace

CGRect autoresized(const CGRect& frame, unsigned mask, const CGRect& bounds, CGSize oldSize) {
  const auto minX = frame.origin.x - bounds.minX();
  const auto minY = frame.origin.y - bounds.minY();
  const auto x = resized({minX, frame.size.width, oldSize.width - minX - frame.size.width}, mask & 7,
                         bounds.size.width - oldSize.width);
  const auto y = resized({minY, frame.size.height, oldSize.height - minY - frame.size.height},
                         (mask >> 3) & 7, bounds.size.height - oldSize.height);
  return {bounds.minX() + x[0], bounds.minY() + y[0], x[1], y[1]};
}

}  // namespace bkuk
