#include "platform/coregraphics/CGMutablePath.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "platform/foundation/Fatal.h"

namespace bkuk {

namespace {

constexpr CGFloat fullTurn = 2 * std::numbers::pi;

// The end angle on the side of `start` where the arc goes, and the nearest there.
CGFloat unwound(CGFloat start, CGFloat end, bool clockwise) {
  if (clockwise && end > start) end -= fullTurn * std::ceil((end - start) / fullTurn);
  if (!clockwise && end < start) end += fullTurn * std::ceil((start - end) / fullTurn);
  return end;
}

struct Arc {
  CGPoint center;
  CGFloat radius;

  [[nodiscard]] CGPoint point(CGFloat angle) const {
    return {center.x + radius * std::cos(angle), center.y + radius * std::sin(angle)};
  }
  // The point on the tangent at `angle`, `reach` radii ahead.
  [[nodiscard]] CGPoint control(CGFloat angle, CGFloat reach) const {
    const CGPoint onArc = point(angle);
    return {onArc.x - reach * radius * std::sin(angle), onArc.y + reach * radius * std::cos(angle)};
  }
};

CGFloat arcReach(CGFloat angle) { return 4.0 / 3 * std::tan(angle / 4); }

// How far the control points of a quarter ellipse lie from its ends, in radii.
const CGFloat quarterReach = arcReach(fullTurn / 4);

// An arc of more turns than this repeats itself; it bounds the work for absurd angles.
constexpr CGFloat maxQuarters = 4096;

}  // namespace

CGMutablePath::CGMutablePath(const CGPath& path)
    : CGPath(std::vector<CGPathElement>(path.elements().begin(), path.elements().end())) {}

void CGMutablePath::append(CGPathElementType type, std::initializer_list<CGPoint> points,
                           const CGAffineTransform& transform) {
  if (type != CGPathElementType::moveToPoint && elements_.empty()) {
    fatal("a line or curve needs a current point", "CGMutablePath");
  }
  CGPathElement& element = elements_.emplace_back(CGPathElement{type, {}});
  std::ranges::transform(points, element.points, [&](CGPoint point) { return transform.apply(point); });
}

void CGMutablePath::move(CGPoint to, const CGAffineTransform& transform) {
  append(CGPathElementType::moveToPoint, {to}, transform);
}

void CGMutablePath::addLine(CGPoint to, const CGAffineTransform& transform) {
  append(CGPathElementType::addLineToPoint, {to}, transform);
}

void CGMutablePath::addQuadCurve(CGPoint to, CGPoint control, const CGAffineTransform& transform) {
  append(CGPathElementType::addQuadCurveToPoint, {control, to}, transform);
}

void CGMutablePath::addCurve(CGPoint to, CGPoint control1, CGPoint control2,
                             const CGAffineTransform& transform) {
  append(CGPathElementType::addCurveToPoint, {control1, control2, to}, transform);
}

void CGMutablePath::closeSubpath() {
  if (elements_.empty() || elements_.back().type == CGPathElementType::closeSubpath) return;
  elements_.push_back({CGPathElementType::closeSubpath, {}});
}

void CGMutablePath::beginArc(CGPoint start, const CGAffineTransform& transform) {
  const auto current = currentPoint();
  if (!current) return move(start, transform);
  if (*current != transform.apply(start)) addLine(start, transform);
}

void CGMutablePath::addArc(CGPoint center, CGFloat radius, CGFloat startAngle, CGFloat endAngle,
                           bool clockwise, const CGAffineTransform& transform) {
  const Arc arc{center, radius};
  beginArc(arc.point(startAngle), transform);
  const CGFloat sweep = unwound(startAngle, endAngle, clockwise) - startAngle;
  // A sweep that rounding carried just past a whole number of quarters does not get another curve.
  const CGFloat quarters = std::ceil(std::abs(sweep) / (fullTurn / 4) - 1e-9);
  if (!(quarters > 0 && quarters <= maxQuarters)) return;
  const CGFloat step = sweep / quarters;
  const CGFloat reach = arcReach(step);
  for (CGFloat index = 0; index < quarters; ++index) {
    const CGFloat from = startAngle + step * index;
    const CGFloat to = startAngle + step * (index + 1);
    addCurve(arc.point(to), arc.control(from, reach), arc.control(to, -reach), transform);
  }
}

void CGMutablePath::addRect(const CGRect& rect, const CGAffineTransform& transform) {
  move({rect.minX(), rect.minY()}, transform);
  addLine({rect.maxX(), rect.minY()}, transform);
  addLine({rect.maxX(), rect.maxY()}, transform);
  addLine({rect.minX(), rect.maxY()}, transform);
  closeSubpath();
}

void CGMutablePath::addEllipse(const CGRect& rect, const CGAffineTransform& transform) {
  const CGFloat x = rect.width() / 2 * quarterReach;
  const CGFloat y = rect.height() / 2 * quarterReach;
  const CGPoint middle{rect.midX(), rect.midY()};
  move({rect.maxX(), middle.y}, transform);
  addCurve({middle.x, rect.maxY()}, {rect.maxX(), middle.y + y}, {middle.x + x, rect.maxY()}, transform);
  addCurve({rect.minX(), middle.y}, {middle.x - x, rect.maxY()}, {rect.minX(), middle.y + y}, transform);
  addCurve({middle.x, rect.minY()}, {rect.minX(), middle.y - y}, {middle.x - x, rect.minY()}, transform);
  addCurve({rect.maxX(), middle.y}, {middle.x + x, rect.minY()}, {rect.maxX(), middle.y - y}, transform);
  closeSubpath();
}

void CGMutablePath::addRoundedRect(const CGRect& rect, CGFloat cornerWidth, CGFloat cornerHeight,
                                   const CGAffineTransform& transform) {
  const CGFloat w = std::min(std::max(cornerWidth, 0.0), rect.width() / 2);
  const CGFloat h = std::min(std::max(cornerHeight, 0.0), rect.height() / 2);
  if (!(w > 0 && h > 0)) return addRect(rect, transform);
  const CGFloat x = w * (1 - quarterReach);
  const CGFloat y = h * (1 - quarterReach);
  const CGFloat left = rect.minX(), right = rect.maxX(), low = rect.minY(), high = rect.maxY();
  move({left + w, low}, transform);
  addLine({right - w, low}, transform);
  addCurve({right, low + h}, {right - x, low}, {right, low + y}, transform);
  addLine({right, high - h}, transform);
  addCurve({right - w, high}, {right, high - y}, {right - x, high}, transform);
  addLine({left + w, high}, transform);
  addCurve({left, high - h}, {left + x, high}, {left, high - y}, transform);
  addLine({left, low + h}, transform);
  addCurve({left + w, low}, {left, low + y}, {left + x, low}, transform);
  closeSubpath();
}

void CGMutablePath::addPath(const CGPath& path, const CGAffineTransform& transform) {
  if (&path == this) return addPath(*copy(), transform);
  addElements(path.elements(), transform);
}

void CGMutablePath::addElements(std::span<const CGPathElement> elements, const CGAffineTransform& transform) {
  for (CGPathElement element : elements) {
    for (int point = 0; point < pointCount(element.type); ++point) {
      element.points[point] = transform.apply(element.points[point]);
    }
    elements_.push_back(element);
  }
}

void CGMutablePath::removeAll() { elements_.clear(); }

}  // namespace bkuk
