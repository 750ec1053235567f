#include "platform/coregraphics/PathWinding.h"

#include "platform/coregraphics/CubicCurve.h"
#include "platform/coregraphics/SubpathWalk.h"

namespace bkuk {

namespace {

// +1 or −1 when the way from one height to another passes that of the ray, half open so that a vertex on
// the ray counts once.
int passage(CGFloat fromY, CGFloat toY, CGFloat rayY) {
  return static_cast<int>(toY > rayY) - static_cast<int>(fromY > rayY);
}

// Passages of the line through the ray that goes from `point` to the right.
int linePassages(CGPoint start, CGPoint end, CGPoint point) {
  const int passed = passage(start.y, end.y, point.y);
  if (passed == 0) return 0;
  const CGFloat x = start.x + (point.y - start.y) * ((end.x - start.x) / (end.y - start.y));
  return x > point.x ? passed : 0;
}

int curvePassages(const CubicCurve& curve, CGPoint point, int depth) {
  const CGRect hull = curve.hull();
  if (hull.isNull() || point.y < hull.minY() || point.y >= hull.maxY() || point.x >= hull.maxX()) return 0;
  if (point.x < hull.minX()) return passage(curve.start.y, curve.end.y, point.y);
  if (curve.isLine || depth == 0) return linePassages(curve.start, curve.end, point);
  return curvePassages(curve.portion(0, 0.5), point, depth - 1) +
         curvePassages(curve.portion(0.5, 1), point, depth - 1);
}

}  // namespace

int windingNumber(std::span<const CGPathElement> path, CGPoint point) {
  // After so many halvings an ordinary curve is straight to the last digit that matters.
  constexpr int maxDepth = 18;
  int winding = 0;
  walkSubpaths(path, OpenSubpaths::close,
               [&](const CubicCurve& curve) { winding += curvePassages(curve, point, maxDepth); });
  return winding;
}

}  // namespace bkuk
