#pragma once

#include <cstdint>

#include "platform/foundation/CGGeometry.h"

namespace bkuk {

enum class CGPathElementType : std::int32_t {
  moveToPoint = 0,
  addLineToPoint = 1,
  addQuadCurveToPoint = 2,
  addCurveToPoint = 3,
  closeSubpath = 4,
};

/// How many points an element of that type has: 1, 1, 2, 3, 0.
[[nodiscard]] constexpr int pointCount(CGPathElementType type) {
  constexpr int counts[] = {1, 1, 2, 3, 0};
  return counts[static_cast<int>(type)];
}

/// One step of a path: the control points in order, then the end point. Points beyond the type's count
/// are zero.
struct CGPathElement {
  CGPathElementType type = CGPathElementType::moveToPoint;
  CGPoint points[3];
  bool operator==(const CGPathElement&) const = default;
};

}  // namespace bkuk
