#pragma once

#include "platform/coregraphics/CGAffineTransform.h"
#include "platform/foundation/CGGeometry.h"

namespace bkuk {

/// A 4 × 4 matrix for row vectors. Layers use its affine part; see `CATransform3DGetAffineTransform`.
struct CATransform3D {
  CGFloat m11 = 1, m12 = 0, m13 = 0, m14 = 0;
  CGFloat m21 = 0, m22 = 1, m23 = 0, m24 = 0;
  CGFloat m31 = 0, m32 = 0, m33 = 1, m34 = 0;
  CGFloat m41 = 0, m42 = 0, m43 = 0, m44 = 1;
  bool operator==(const CATransform3D&) const = default;
};

inline constexpr CATransform3D CATransform3DIdentity{};

[[nodiscard]] bool CATransform3DIsIdentity(const CATransform3D& transform);
[[nodiscard]] CATransform3D CATransform3DMakeTranslation(CGFloat tx, CGFloat ty, CGFloat tz);
[[nodiscard]] CATransform3D CATransform3DMakeScale(CGFloat sx, CGFloat sy, CGFloat sz);
/// `angle` in radians about the vector (x, y, z); the identity when that has no length.
[[nodiscard]] CATransform3D CATransform3DMakeRotation(CGFloat angle, CGFloat x, CGFloat y, CGFloat z);
[[nodiscard]] CATransform3D CATransform3DMakeAffineTransform(const CGAffineTransform& transform);
/// `a` is applied first, then `b`.
[[nodiscard]] CATransform3D CATransform3DConcat(const CATransform3D& a, const CATransform3D& b);

/// The elements m11, m12, m21, m22, m41 and m42; the others are dropped.
[[nodiscard]] CGAffineTransform CATransform3DGetAffineTransform(const CATransform3D& transform);

}  // namespace bkuk
