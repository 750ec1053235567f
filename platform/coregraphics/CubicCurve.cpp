#include "platform/coregraphics/CubicCurve.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>

#include "platform/coregraphics/PointBox.h"

namespace bkuk {

namespace {

CGPoint mix(CGPoint p, CGPoint q, CGFloat t) { return {p.x * (1 - t) + q.x * t, p.y * (1 - t) + q.y * t}; }

CGFloat cubicAt(CGFloat p0, CGFloat p1, CGFloat p2, CGFloat p3, CGFloat t) {
  const CGFloat u = 1 - t;
  return u * u * u * p0 + 3 * u * u * t * p1 + 3 * u * t * t * p2 + t * t * t * p3;
}

CGFloat slopeAt(CGFloat p0, CGFloat p1, CGFloat p2, CGFloat p3, CGFloat t) {
  const CGFloat u = 1 - t;
  return 3 * (u * u * (p1 - p0) + 2 * u * t * (p2 - p1) + t * t * (p3 - p2));
}

// Calls `visit` with the parameters inside (0, 1) where one coordinate turns.
template <typename Visit>
void forEachTurn(CGFloat p0, CGFloat p1, CGFloat p2, CGFloat p3, Visit visit) {
  const CGFloat a = p3 - p0 + 3 * (p1 - p2);
  const CGFloat b = 2 * (p0 - 2 * p1 + p2);
  const CGFloat c = p1 - p0;
  const CGFloat discriminant = b * b - 4 * a * c;
  if (!(discriminant >= 0)) return;
  // The form that subtracts nothing of equal sign keeps its digits when `a` is tiny or zero.
  const CGFloat q = -(b + std::copysign(std::sqrt(discriminant), b)) / 2;
  for (const CGFloat t : {q / a, c / q}) {
    if (t > 0 && t < 1) visit(t);
  }
}

}  // namespace

CubicCurve CubicCurve::quadratic(CGPoint start, CGPoint control, CGPoint end) {
  constexpr CGFloat third = 2.0 / 3;
  return {start, mix(start, control, third), mix(end, control, third), end, false};
}

CubicCurve CubicCurve::from(CGPoint start, const CGPathElement& element) {
  switch (element.type) {
    case CGPathElementType::addQuadCurveToPoint:
      return quadratic(start, element.points[0], element.points[1]);
    case CGPathElementType::addCurveToPoint:
      return {start, element.points[0], element.points[1], element.points[2], false};
    default:
      return line(start, element.points[0]);
  }
}

CGPoint CubicCurve::point(CGFloat t) const {
  if (isLine) return mix(start, end, t);
  return {cubicAt(start.x, control1.x, control2.x, end.x, t),
          cubicAt(start.y, control1.y, control2.y, end.y, t)};
}

CGFloat CubicCurve::speed(CGFloat t) const {
  if (isLine) return std::hypot(end.x - start.x, end.y - start.y);
  const CGFloat x = slopeAt(start.x, control1.x, control2.x, end.x, t);
  const CGFloat y = slopeAt(start.y, control1.y, control2.y, end.y, t);
  return std::sqrt(x * x + y * y);
}

CubicCurve CubicCurve::portion(CGFloat from, CGFloat to) const {
  if (isLine) return line(point(from), point(to));
  // The polar form: each point of the piece is the curve blossomed at its ends' parameters.
  const auto blossom = [this](CGFloat r, CGFloat s, CGFloat t) {
    const CGPoint a = mix(start, control1, r);
    const CGPoint b = mix(control1, control2, r);
    const CGPoint c = mix(control2, end, r);
    return mix(mix(a, b, s), mix(b, c, s), t);
  };
  return {blossom(from, from, from), blossom(from, from, to), blossom(from, to, to), blossom(to, to, to),
          false};
}

CGRect CubicCurve::hull() const {
  PointBox box;
  for (const CGPoint corner : {start, control1, control2, end}) box.include(corner);
  return box.rect();
}

CGRect CubicCurve::box() const {
  PointBox box;
  box.include(start);
  box.include(end);
  if (isLine) return box.rect();
  const auto include = [&](CGFloat t) { box.include(point(t)); };
  forEachTurn(start.x, control1.x, control2.x, end.x, include);
  forEachTurn(start.y, control1.y, control2.y, end.y, include);
  return box.rect();
}

CGFloat CubicCurve::length(CGFloat from, CGFloat to) const {
  if (isLine) return speed(0) * (to - from);
  // Gauss-Legendre quadrature with five points.
  struct Node {
    CGFloat offset, weight;
  };
  static constexpr Node nodes[] = {{0.5384693101056831, 0.47862867049936647},
                                   {0.9061798459386640, 0.23692688505618909}};
  const CGFloat middle = (from + to) / 2;
  const CGFloat half = (to - from) / 2;
  CGFloat sum = 0.5688888888888889 * speed(middle);
  for (const auto& [offset, weight] : nodes) {
    sum += weight * (speed(middle - half * offset) + speed(middle + half * offset));
  }
  return half * sum;
}

CGFloat CubicCurve::parameter(CGFloat distance, CGFloat from, CGFloat to) const {
  const CGFloat whole = length(from, to);
  if (!(distance > 0)) return from;
  if (!(distance < whole)) return to;
  CGFloat t = from + (to - from) * distance / whole;
  if (isLine) return t;
  constexpr int maxSteps = 6;
  for (int step = 0; step < maxSteps; ++step) {
    const CGFloat miss = length(from, t) - distance;
    if (std::abs(miss) <= 1e-9 * whole) break;
    const CGFloat next = t - miss / speed(t);
    if (!(next >= from && next <= to)) break;
    t = next;
  }
  return t;
}

}  // namespace bkuk
