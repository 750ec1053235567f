#include "BrenvikUIKit/drawing/BKUKCGPath+Extensions.h"

#include <array>

#include "platform/foundation/Fatal.h"

namespace bkuk {

namespace {

constexpr std::string_view unit = "BrenvikUIKit/BKUKCGPath+Extensions";
constexpr CGFloat miterLimit = 10;

CGPoint twoThirdsOfTheWay(CGPoint from, CGPoint to) {
  return {from.x + 2 * (to.x - from.x) / 3, from.y + 2 * (to.y - from.y) / 3};
}

void appendQuadCurve(NSBezierPath& path, CGPoint control, CGPoint end) {
  const CGPoint start = path.currentPoint();
  path.curve(end, twoThirdsOfTheWay(start, control), twoThirdsOfTheWay(end, control));
}

void append(NSBezierPath& path, const CGPathElement& element) {
  const auto& points = element.points;
  switch (element.type) {
    case CGPathElementType::moveToPoint:
      return path.move(points[0]);
    case CGPathElementType::addLineToPoint:
      return path.line(points[0]);
    case CGPathElementType::addQuadCurveToPoint:
      return appendQuadCurve(path, points[0], points[1]);
    case CGPathElementType::addCurveToPoint:
      return path.curve(points[2], points[0], points[1]);
    case CGPathElementType::closeSubpath:
      return path.close();
  }
  reportMistake("CGPath: an element of no known kind");
  fatal("Fatal error", unit);
}

void append(CGMutablePath& path, NSBezierPathElement type, const std::array<NSPoint, 3>& points) {
  switch (type) {
    case NSBezierPathElement::moveTo:
      return path.move(points[0]);
    case NSBezierPathElement::lineTo:
      return path.addLine(points[0]);
    case NSBezierPathElement::curveTo:
      return path.addCurve(points[2], points[0], points[1]);
    case NSBezierPathElement::closePath:
      return path.closeSubpath();
  }
  reportMistake("CGPath: an element of no known kind");
  fatal("Fatal error", unit);
}

}  // namespace

Ref<CGPath> stroke(const CGPath& path, CGFloat width, CGLineCap cap,
                   const std::optional<std::vector<CGFloat>>& pattern, CGFloat phase) {
  const auto stroked = [&](const CGPath& line) {
    return line.copyStrokingWithWidth(width, cap, CGLineJoin::miter, miterLimit);
  };
  return pattern ? stroked(*path.copyDashingWithPhase(phase, *pattern)) : stroked(path);
}

Ref<CGPath> stroke(const CGPath& path, const BKUKLineStyle& withStyle) {
  return stroke(path, withStyle.width, withStyle.cap, withStyle.pattern, withStyle.phase);
}

Ref<NSBezierPath> bezierPath(const CGPath& path) {
  auto bezier = make<NSBezierPath>();
  for (const auto& element : path.elements()) append(*bezier, element);
  return bezier;
}

Ref<CGPath> cg(const NSBezierPath& path) {
  const auto copied = make<CGMutablePath>();
  std::array<NSPoint, 3> points;
  for (std::size_t i = 0; i < path.elementCount(); ++i) {
    append(*copied, path.element(i, points), points);
  }
  return copied->copy();
}

}  // namespace bkuk
