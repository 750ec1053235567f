#pragma once

#include <algorithm>
#include <cmath>

#include "host/Geometry.h"
#include "platform/foundation/CGGeometry.h"

namespace bkuk {

using host::PixelRect;
using host::PixelSize;

[[nodiscard]] inline PixelRect fromEdges(int minX, int minY, int maxX, int maxY) {
  return {minX, minY, std::max(0, maxX - minX), std::max(0, maxY - minY)};
}

[[nodiscard]] inline PixelRect intersect(const PixelRect& a, const PixelRect& b) {
  return fromEdges(std::max(a.x, b.x), std::max(a.y, b.y), std::min(a.maxX(), b.maxX()),
                   std::min(a.maxY(), b.maxY()));
}

[[nodiscard]] inline bool intersects(const PixelRect& a, const PixelRect& b) {
  return a.x < b.maxX() && b.x < a.maxX() && a.y < b.maxY() && b.y < a.maxY() && !a.isEmpty() && !b.isEmpty();
}

/// Every rectangle contains an empty one.
[[nodiscard]] inline bool contains(const PixelRect& outer, const PixelRect& inner) {
  if (inner.isEmpty()) return true;
  return inner.x >= outer.x && inner.y >= outer.y && inner.maxX() <= outer.maxX() &&
         inner.maxY() <= outer.maxY();
}

/// The box around both; an empty rectangle adds nothing.
[[nodiscard]] inline PixelRect unite(const PixelRect& a, const PixelRect& b) {
  if (a.isEmpty()) return b;
  if (b.isEmpty()) return a;
  return fromEdges(std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.maxX(), b.maxX()),
                   std::max(a.maxY(), b.maxY()));
}

[[nodiscard]] inline PixelRect insetBy(const PixelRect& rect, int distance) {
  return fromEdges(rect.x + distance, rect.y + distance, rect.maxX() - distance, rect.maxY() - distance);
}

[[nodiscard]] inline long area(const PixelRect& rect) { return static_cast<long>(rect.width) * rect.height; }

/// Coordinates far outside any image keep this distance, so that their differences stay in range.
inline constexpr double farthestPixel = 1 << 28;

[[nodiscard]] inline int toPixel(double coordinate) {
  return static_cast<int>(std::clamp(coordinate, -farthestPixel, farthestPixel));
}

[[nodiscard]] inline bool isFinite(const CGRect& rect) {
  return std::isfinite(rect.origin.x) && std::isfinite(rect.origin.y) && std::isfinite(rect.size.width) &&
         std::isfinite(rect.size.height);
}

/// The pixels that a rectangle in device space touches; empty when it is not finite.
[[nodiscard]] inline PixelRect touchedPixels(const CGRect& rect) {
  // Sums of the kind 0.1 + 0.2 must not touch one pixel more.
  constexpr double slack = 1e-6;
  if (!isFinite(rect) || rect.isNull()) return {};
  return fromEdges(toPixel(std::floor(rect.minX() + slack)), toPixel(std::floor(rect.minY() + slack)),
                   toPixel(std::ceil(rect.maxX() - slack)), toPixel(std::ceil(rect.maxY() - slack)));
}

/// The pixels between the edges of a rectangle in device space, each rounded to the nearest.
[[nodiscard]] inline PixelRect snappedPixels(const CGRect& rect) {
  // Halves go the same way everywhere, also where a sum of fractions missed them by a little.
  constexpr double half = 0.5 + 1e-6;
  if (!isFinite(rect)) return {};
  return fromEdges(toPixel(std::floor(rect.minX() + half)), toPixel(std::floor(rect.minY() + half)),
                   toPixel(std::floor(rect.maxX() + half)), toPixel(std::floor(rect.maxY() + half)));
}

}  // namespace bkuk
