#pragma once

#include "platform/foundation/CGGeometry.h"

namespace bkuk {

/// An affine map of points taken as row vectors: x' = a·x + c·y + tx, y' = b·x + d·y + ty.
struct CGAffineTransform {
  CGFloat a = 1;
  CGFloat b = 0;
  CGFloat c = 0;
  CGFloat d = 1;
  CGFloat tx = 0;
  CGFloat ty = 0;

  static const CGAffineTransform identity;

  [[nodiscard]] static CGAffineTransform translation(CGFloat x, CGFloat y);
  [[nodiscard]] static CGAffineTransform scale(CGFloat x, CGFloat y);
  /// Turns by `angle` radians, counter-clockwise where y points up.
  [[nodiscard]] static CGAffineTransform rotation(CGFloat angle);

  /// This transform first, then `next`.
  [[nodiscard]] CGAffineTransform concatenating(const CGAffineTransform& next) const;

  /// The named operation first, then this transform.
  [[nodiscard]] CGAffineTransform translatedBy(CGFloat x, CGFloat y) const;
  [[nodiscard]] CGAffineTransform scaledBy(CGFloat x, CGFloat y) const;
  [[nodiscard]] CGAffineTransform rotatedBy(CGFloat angle) const;

  /// A transform that cannot be inverted is answered unchanged.
  [[nodiscard]] CGAffineTransform inverted() const;

  [[nodiscard]] CGPoint apply(CGPoint point) const;
  /// Without the translation.
  [[nodiscard]] CGSize apply(CGSize size) const;
  /// The box around the four mapped corners; null stays null.
  [[nodiscard]] CGRect apply(const CGRect& rect) const;

  [[nodiscard]] bool isIdentity() const { return *this == CGAffineTransform(); }
  [[nodiscard]] CGFloat determinant() const { return a * d - b * c; }
  /// Whether rectangles stay rectangles with sides along the axes and no quarter turn.
  [[nodiscard]] bool isScaleAndTranslation() const { return b == 0 && c == 0; }

  bool operator==(const CGAffineTransform&) const = default;
};

inline constexpr CGAffineTransform CGAffineTransform::identity{};

}  // namespace bkuk
