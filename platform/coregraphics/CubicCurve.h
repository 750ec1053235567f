#pragma once

#include "platform/coregraphics/CGPathElement.h"

namespace bkuk {

/// A cubic Bézier curve, the one kind of curve that path computations know; quadratic ones are raised.
/// A straight line is a curve whose control points lie on its ends, marked as such to stay exact.
struct CubicCurve {
  CGPoint start;
  CGPoint control1;
  CGPoint control2;
  CGPoint end;
  bool isLine = false;

  [[nodiscard]] static CubicCurve line(CGPoint start, CGPoint end) { return {start, start, end, end, true}; }
  [[nodiscard]] static CubicCurve quadratic(CGPoint start, CGPoint control, CGPoint end);
  /// What an element draws from `start` on; not for a move or a close.
  [[nodiscard]] static CubicCurve from(CGPoint start, const CGPathElement& element);

  [[nodiscard]] CGPoint point(CGFloat t) const;
  /// The length of the derivative.
  [[nodiscard]] CGFloat speed(CGFloat t) const;
  [[nodiscard]] CubicCurve portion(CGFloat from, CGFloat to) const;
  /// The box around all four points.
  [[nodiscard]] CGRect hull() const;
  /// The box around the curve itself.
  [[nodiscard]] CGRect box() const;

  /// The arc length between two parameters, to full precision over a tenth of an ordinary curve.
  [[nodiscard]] CGFloat length(CGFloat from, CGFloat to) const;
  /// The parameter in [from, to] at `distance` along the arc after `from`.
  [[nodiscard]] CGFloat parameter(CGFloat distance, CGFloat from, CGFloat to) const;
};

}  // namespace bkuk
