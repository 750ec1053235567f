#include "platform/appkit/drawing/NSBezierPath.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "platform/appkit/drawing/NSGraphicsContext.h"
#include "platform/foundation/Fatal.h"

namespace bkuk {

namespace {

constexpr std::string_view unit = "platform/appkit/NSBezierPath";

constexpr CGFloat fullTurn = 360;

CGFloat radians(CGFloat degrees) { return degrees * std::numbers::pi / 180; }

// Counted in degrees, where whole turns are exact: an end that meets the start stays there.
CGFloat unwound(CGFloat start, CGFloat end, bool clockwise) {
  if (clockwise && end > start) return end - fullTurn * std::ceil((end - start) / fullTurn);
  if (!clockwise && end < start) return end + fullTurn * std::ceil((start - end) / fullTurn);
  return end;
}

NSRect zeroIfNull(const CGRect& box) { return box.isNull() ? NSZeroRect : box; }

NSBezierPathElement elementOf(CGPathElementType type) {
  switch (type) {
    case CGPathElementType::moveToPoint:
      return NSBezierPathElement::moveTo;
    case CGPathElementType::addLineToPoint:
      return NSBezierPathElement::lineTo;
    case CGPathElementType::addCurveToPoint:
      return NSBezierPathElement::curveTo;
    case CGPathElementType::closeSubpath:
      return NSBezierPathElement::closePath;
    case CGPathElementType::addQuadCurveToPoint:
      break;  // nothing here makes one
  }
  trap("NSBezierPath: an element of no known kind");
}

}  // namespace

NSBezierPath::NSBezierPath() : path_(make<CGMutablePath>()) {}

Ref<NSBezierPath> NSBezierPath::rect(const NSRect& rect) {
  auto path = make<NSBezierPath>();
  path->path_->addRect(rect);
  return path;
}

Ref<NSBezierPath> NSBezierPath::ovalIn(const NSRect& rect) {
  auto path = make<NSBezierPath>();
  path->path_->addEllipse(rect);
  return path;
}

Ref<NSBezierPath> NSBezierPath::roundedRect(const NSRect& rect, CGFloat xRadius, CGFloat yRadius) {
  auto path = make<NSBezierPath>();
  path->path_->addRoundedRect(rect, xRadius, yRadius);
  return path;
}

// Building

void NSBezierPath::requireCurrentPoint() const {
  if (isEmpty()) fatal("The path has no current point", unit);
}

void NSBezierPath::move(NSPoint to) { path_->move(to); }

void NSBezierPath::line(NSPoint to) {
  requireCurrentPoint();
  path_->addLine(to);
}

void NSBezierPath::curve(NSPoint to, NSPoint controlPoint1, NSPoint controlPoint2) {
  requireCurrentPoint();
  path_->addCurve(to, controlPoint1, controlPoint2);
}

void NSBezierPath::close() { path_->closeSubpath(); }

void NSBezierPath::appendArc(NSPoint center, CGFloat radius, CGFloat startAngle, CGFloat endAngle,
                             bool clockwise) {
  const CGFloat end = unwound(startAngle, endAngle, clockwise);
  path_->addArc(center, radius, radians(startAngle), radians(end), clockwise);
}

void NSBezierPath::append(const NSBezierPath& path) { path_->addPath(*path.path_); }

void NSBezierPath::transform(const CGAffineTransform& transform) {
  path_ = path_->copy(transform)->mutableCopy();
}

// Reading

const CGPathElement& NSBezierPath::checkedElement(std::size_t index) const {
  if (index >= elementCount()) fatal("The path has no element of that index", unit);
  return path_->elements()[index];
}

NSBezierPathElement NSBezierPath::element(std::size_t index) const {
  return elementOf(checkedElement(index).type);
}

NSBezierPathElement NSBezierPath::element(std::size_t index, std::span<NSPoint, 3> points) const {
  const auto& element = checkedElement(index);
  std::copy_n(element.points, pointCount(element.type), points.begin());
  return elementOf(element.type);
}

NSPoint NSBezierPath::currentPoint() const {
  requireCurrentPoint();
  return *path_->currentPoint();
}

NSRect NSBezierPath::bounds() const { return zeroIfNull(path_->boundingBoxOfPath()); }

NSRect NSBezierPath::controlPointBounds() const { return zeroIfNull(path_->boundingBox()); }

CGPathFillRule NSBezierPath::fillRule() const {
  return windingRule_ == NSWindingRule::evenOdd ? CGPathFillRule::evenOdd : CGPathFillRule::winding;
}

bool NSBezierPath::contains(NSPoint point) const { return path_->contains(point, fillRule()); }

// Style

void NSBezierPath::setLineDash(std::span<const CGFloat> lengths, CGFloat phase) {
  dashLengths_.assign(lengths.begin(), lengths.end());
  dashPhase_ = phase;
}

// Drawing

void NSBezierPath::fill() const {
  const auto context = NSGraphicsContext::current();
  if (!context) return;
  auto& canvas = *context->cgContext();
  canvas.beginPath();
  canvas.addPath(*path_);
  canvas.fillPath(fillRule());
}

void NSBezierPath::stroke() const {
  const auto context = NSGraphicsContext::current();
  if (!context) return;
  auto& canvas = *context->cgContext();
  canvas.saveGState();
  canvas.setLineWidth(lineWidth_);
  canvas.setLineCap(static_cast<CGLineCap>(lineCapStyle_));
  canvas.setLineJoin(static_cast<CGLineJoin>(lineJoinStyle_));
  canvas.setMiterLimit(miterLimit_);
  canvas.setLineDash(dashPhase_, dashLengths_);
  canvas.beginPath();
  canvas.addPath(*path_);
  canvas.strokePath();
  canvas.restoreGState();
}

void NSBezierPath::addClip() const {
  const auto context = NSGraphicsContext::current();
  if (!context) return;
  auto& canvas = *context->cgContext();
  canvas.beginPath();
  canvas.addPath(*path_);
  canvas.clip(fillRule());
}

}  // namespace bkuk
