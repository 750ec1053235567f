#include "platform/foundation/NSGeometry.h"

namespace bkuk {

bool NSPointInRect(NSPoint point, const NSRect& rect) { return NSMouseInRect(point, rect, true); }

NSRect NSInsetRect(const NSRect& rect, CGFloat dx, CGFloat dy) {
  return {rect.origin.x + dx, rect.origin.y + dy, rect.size.width - 2 * dx, rect.size.height - 2 * dy};
}

NSRect NSOffsetRect(const NSRect& rect, CGFloat dx, CGFloat dy) {
  return {{rect.origin.x + dx, rect.origin.y + dy}, rect.size};
}

NSRect NSIntersectionRect(const NSRect& a, const NSRect& b) {
  const NSRect shared = a.intersection(b);
  return shared.isEmpty() ? NSZeroRect : shared;
}

NSRect NSUnionRect(const NSRect& a, const NSRect& b) {
  if (a.isEmpty()) return b.isEmpty() ? NSZeroRect : b;
  return b.isEmpty() ? a : a.united(b);
}

bool NSContainsRect(const NSRect& outer, const NSRect& inner) {
  return !inner.isEmpty() && outer.contains(inner);
}

}  // namespace bkuk
