#include "platform/foundation/CGGeometry.h"

#include <algorithm>
#include <cmath>

namespace bkuk {

namespace {

CGRect between(CGFloat minX, CGFloat minY, CGFloat maxX, CGFloat maxY) {
  return {minX, minY, maxX - minX, maxY - minY};
}

}  // namespace

bool CGRect::isNull() const { return std::isinf(origin.x) || std::isinf(origin.y); }

bool CGRect::isEmpty() const { return isNull() || size.width == 0 || size.height == 0; }

bool CGRect::contains(CGPoint point) const {
  return !isEmpty() && point.x >= minX() && point.x < maxX() && point.y >= minY() && point.y < maxY();
}

bool CGRect::contains(const CGRect& other) const {
  return !other.isNull() && united(other) == standardized();
}

bool CGRect::intersects(const CGRect& other) const { return !intersection(other).isEmpty(); }

CGRect CGRect::standardized() const { return isNull() ? null : CGRect(minX(), minY(), width(), height()); }

CGRect CGRect::insetBy(CGFloat dx, CGFloat dy) const {
  if (isNull()) return null;
  const CGFloat insetWidth = width() - 2 * dx;
  const CGFloat insetHeight = height() - 2 * dy;
  if (insetWidth < 0 || insetHeight < 0) return null;
  return {minX() + dx, minY() + dy, insetWidth, insetHeight};
}

CGRect CGRect::offsetBy(CGFloat dx, CGFloat dy) const {
  return isNull() ? null : CGRect(minX() + dx, minY() + dy, width(), height());
}

CGRect CGRect::united(const CGRect& other) const {
  if (isNull()) return other.standardized();
  if (other.isNull()) return standardized();
  return between(std::min(minX(), other.minX()), std::min(minY(), other.minY()),
                 std::max(maxX(), other.maxX()), std::max(maxY(), other.maxY()));
}

CGRect CGRect::intersection(const CGRect& other) const {
  if (isNull() || other.isNull()) return null;
  const CGFloat left = std::max(minX(), other.minX());
  const CGFloat bottom = std::max(minY(), other.minY());
  const CGFloat right = std::min(maxX(), other.maxX());
  const CGFloat top = std::min(maxY(), other.maxY());
  return right < left || top < bottom ? null : between(left, bottom, right, top);
}

CGRect CGRect::integral() const {
  if (isNull()) return null;
  return between(std::floor(minX()), std::floor(minY()), std::ceil(maxX()), std::ceil(maxY()));
}

}  // namespace bkuk
