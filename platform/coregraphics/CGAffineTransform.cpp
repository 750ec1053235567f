#include "platform/coregraphics/CGAffineTransform.h"

#include <cmath>

#include "platform/coregraphics/PointBox.h"

namespace bkuk {

CGAffineTransform CGAffineTransform::translation(CGFloat x, CGFloat y) { return {1, 0, 0, 1, x, y}; }

CGAffineTransform CGAffineTransform::scale(CGFloat x, CGFloat y) { return {x, 0, 0, y, 0, 0}; }

CGAffineTransform CGAffineTransform::rotation(CGFloat angle) {
  const CGFloat cosine = std::cos(angle);
  const CGFloat sine = std::sin(angle);
  return {cosine, sine, -sine, cosine, 0, 0};
}

CGAffineTransform CGAffineTransform::concatenating(const CGAffineTransform& next) const {
  return {a * next.a + b * next.c,
          a * next.b + b * next.d,
          c * next.a + d * next.c,
          c * next.b + d * next.d,
          tx * next.a + ty * next.c + next.tx,
          tx * next.b + ty * next.d + next.ty};
}

CGAffineTransform CGAffineTransform::translatedBy(CGFloat x, CGFloat y) const {
  return translation(x, y).concatenating(*this);
}

CGAffineTransform CGAffineTransform::scaledBy(CGFloat x, CGFloat y) const {
  return scale(x, y).concatenating(*this);
}

CGAffineTransform CGAffineTransform::rotatedBy(CGFloat angle) const {
  return rotation(angle).concatenating(*this);
}

CGAffineTransform CGAffineTransform::inverted() const {
  const CGFloat det = determinant();
  if (det == 0 || !std::isfinite(det)) return *this;
  return {d / det, -b / det, -c / det, a / det, (c * ty - d * tx) / det, (b * tx - a * ty) / det};
}

CGPoint CGAffineTransform::apply(CGPoint point) const {
  return {a * point.x + c * point.y + tx, b * point.x + d * point.y + ty};
}

CGSize CGAffineTransform::apply(CGSize size) const {
  return {a * size.width + c * size.height, b * size.width + d * size.height};
}

CGRect CGAffineTransform::apply(const CGRect& rect) const {
  if (rect.isNull()) return rect;
  PointBox box;
  box.include(apply(CGPoint{rect.minX(), rect.minY()}));
  box.include(apply(CGPoint{rect.maxX(), rect.minY()}));
  box.include(apply(CGPoint{rect.maxX(), rect.maxY()}));
  box.include(apply(CGPoint{rect.minX(), rect.maxY()}));
  return box.rect();
}

}  // namespace bkuk
