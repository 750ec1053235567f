#pragma once

#include "platform/foundation/CGGeometry.h"

namespace bkuk {

using NSPoint = CGPoint;
using NSSize = CGSize;
using NSRect = CGRect;

inline constexpr NSRect NSZeroRect{};

/// Whether the pointer at `point` is in `rect`: the left edge is inside, the right one outside; of the
/// horizontal edges the visually upper one is inside, so the lower one (in y) only when `flipped`.
[[nodiscard]] constexpr bool NSMouseInRect(NSPoint point, const NSRect& rect, bool flipped) {
  if (!(point.x >= rect.minX() && point.x < rect.maxX())) return false;
  return flipped ? point.y >= rect.minY() && point.y < rect.maxY()
                 : point.y > rect.minY() && point.y <= rect.maxY();
}

/// As `NSMouseInRect` in a flipped space.
[[nodiscard]] bool NSPointInRect(NSPoint point, const NSRect& rect);

[[nodiscard]] NSRect NSInsetRect(const NSRect& rect, CGFloat dx, CGFloat dy);
[[nodiscard]] NSRect NSOffsetRect(const NSRect& rect, CGFloat dx, CGFloat dy);
/// The zero rectangle when they share nothing.
[[nodiscard]] NSRect NSIntersectionRect(const NSRect& a, const NSRect& b);
/// An empty rectangle adds nothing.
[[nodiscard]] NSRect NSUnionRect(const NSRect& a, const NSRect& b);
/// An empty rectangle is never contained.
[[nodiscard]] bool NSContainsRect(const NSRect& outer, const NSRect& inner);

}  // namespace bkuk
