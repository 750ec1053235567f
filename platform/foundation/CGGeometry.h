#pragma once

#include <limits>

namespace bkuk {

using CGFloat = double;

/// A position in points.
struct CGPoint {
  CGFloat x = 0;
  CGFloat y = 0;
  bool operator==(const CGPoint&) const = default;
};

/// An extent in points. Negative extents are allowed; see `CGRect`.
struct CGSize {
  CGFloat width = 0;
  CGFloat height = 0;
  bool operator==(const CGSize&) const = default;
};

/// A rectangle in points. `origin` and `size` are the raw fields; every accessor works on the
/// standardised rectangle, whose negative extents are turned over. Equality compares the raw fields.
struct CGRect {
  CGPoint origin;
  CGSize size;

  constexpr CGRect() = default;
  constexpr CGRect(CGPoint rectOrigin, CGSize rectSize) : origin(rectOrigin), size(rectSize) {}
  constexpr CGRect(CGFloat x, CGFloat y, CGFloat width, CGFloat height) : origin{x, y}, size{width, height} {}

  /// The neutral element of `united`, with an infinite origin; also what disjoint rectangles share.
  static const CGRect null;
  static const CGRect zero;

  [[nodiscard]] constexpr CGFloat width() const { return size.width < 0 ? -size.width : size.width; }
  [[nodiscard]] constexpr CGFloat height() const { return size.height < 0 ? -size.height : size.height; }
  [[nodiscard]] constexpr CGFloat minX() const { return size.width < 0 ? origin.x + size.width : origin.x; }
  [[nodiscard]] constexpr CGFloat minY() const { return size.height < 0 ? origin.y + size.height : origin.y; }
  [[nodiscard]] constexpr CGFloat midX() const { return minX() + width() / 2; }
  [[nodiscard]] constexpr CGFloat midY() const { return minY() + height() / 2; }
  [[nodiscard]] constexpr CGFloat maxX() const { return minX() + width(); }
  [[nodiscard]] constexpr CGFloat maxY() const { return minY() + height(); }

  [[nodiscard]] bool isNull() const;
  /// Null, or without width or height.
  [[nodiscard]] bool isEmpty() const;
  [[nodiscard]] bool contains(CGPoint point) const;
  [[nodiscard]] bool contains(const CGRect& other) const;
  [[nodiscard]] bool intersects(const CGRect& other) const;

  [[nodiscard]] CGRect standardized() const;
  /// Moves every edge inwards; null when that leaves a negative extent.
  [[nodiscard]] CGRect insetBy(CGFloat dx, CGFloat dy) const;
  [[nodiscard]] CGRect offsetBy(CGFloat dx, CGFloat dy) const;
  [[nodiscard]] CGRect united(const CGRect& other) const;
  [[nodiscard]] CGRect intersection(const CGRect& other) const;
  /// The smallest rectangle with whole coordinates that holds this one.
  [[nodiscard]] CGRect integral() const;

  bool operator==(const CGRect&) const = default;
};

inline constexpr CGRect CGRect::null{std::numeric_limits<CGFloat>::infinity(),
                                     std::numeric_limits<CGFloat>::infinity(), 0, 0};
inline constexpr CGRect CGRect::zero{};

}  // namespace bkuk
