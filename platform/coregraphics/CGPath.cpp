#include "platform/coregraphics/CGPath.h"

#include <algorithm>
#include <cmath>

#include "host/Drawing.h"
#include "host/Host.h"
#include "platform/coregraphics/CGMutablePath.h"
#include "platform/coregraphics/HostConversions.h"
#include "platform/coregraphics/PathDasher.h"
#include "platform/coregraphics/PathDots.h"
#include "platform/coregraphics/PathWinding.h"
#include "platform/coregraphics/PointBox.h"
#include "platform/coregraphics/SubpathWalk.h"
#include "platform/foundation/Fatal.h"

namespace bkuk {

namespace {

// Also turns what is no number into 0.
CGFloat unit(CGFloat value) { return value > 0 ? std::min(value, 1.0) : 0; }

}  // namespace

template <typename Build>
Ref<CGPath> CGPath::built(Build build) {
  auto path = make<CGMutablePath>();
  build(*path);
  return Ref<CGPath>::adopt(new CGPath(std::move(path->elements_)));
}

Ref<CGPath> CGPath::rect(const CGRect& rect) {
  return built([&](CGMutablePath& path) { path.addRect(rect); });
}

Ref<CGPath> CGPath::ellipse(const CGRect& rect) {
  return built([&](CGMutablePath& path) { path.addEllipse(rect); });
}

Ref<CGPath> CGPath::roundedRect(const CGRect& rect, CGFloat cornerWidth, CGFloat cornerHeight) {
  return built([&](CGMutablePath& path) { path.addRoundedRect(rect, cornerWidth, cornerHeight); });
}

std::optional<CGPoint> CGPath::currentPoint() const {
  if (elements_.empty()) return std::nullopt;
  auto last = elements_.rbegin();
  if (last->type != CGPathElementType::closeSubpath) return last->points[pointCount(last->type) - 1];
  const auto moves = [](const CGPathElement& e) { return e.type == CGPathElementType::moveToPoint; };
  return std::find_if(last, elements_.rend(), moves)->points[0];
}

CGRect CGPath::boundingBox() const {
  PointBox box;
  for (const CGPathElement& element : elements_) {
    for (int index = 0; index < pointCount(element.type); ++index) box.include(element.points[index]);
  }
  return box.rect();
}

CGRect CGPath::boundingBoxOfPath() const {
  PointBox box;
  SubpathPen pen;
  for (const CGPathElement& element : elements_) {
    switch (element.type) {
      case CGPathElementType::moveToPoint:
      case CGPathElementType::addLineToPoint:
        box.include(element.points[0]);
        break;
      case CGPathElementType::addQuadCurveToPoint:
      case CGPathElementType::addCurveToPoint:
        box.include(CubicCurve::from(pen.current(), element).box());
        break;
      case CGPathElementType::closeSubpath:
        break;
    }
    pen.advance(element);
  }
  return box.rect();
}

bool CGPath::contains(CGPoint point, CGPathFillRule rule, const CGAffineTransform& transform) const {
  const int winding = windingNumber(elements_, transform.apply(point));
  return rule == CGPathFillRule::evenOdd ? winding % 2 != 0 : winding != 0;
}

void CGPath::applyWithBlock(const std::function<void(const CGPathElement&)>& block) const {
  required(block, "CGPath: applyWithBlock without a block");
  const Ref<CGPath> unchanged = copy();
  for (const CGPathElement& element : unchanged->elements_) block(element);
}

Ref<CGPath> CGPath::copy() const {
  if (isMutable()) return Ref<CGPath>::adopt(new CGPath(elements_));
  return Ref<CGPath>(const_cast<CGPath*>(this));
}

Ref<CGPath> CGPath::copy(const CGAffineTransform& transform) const {
  return built([&](CGMutablePath& path) { path.addPath(*this, transform); });
}

Ref<CGMutablePath> CGPath::mutableCopy() const { return make<CGMutablePath>(*this); }

Ref<CGPath> CGPath::copyDashingWithPhase(CGFloat phase, std::span<const CGFloat> lengths) const {
  const auto pattern = DashPattern::make(phase, lengths);
  if (!pattern) return copy();
  return built([&](CGMutablePath& path) { appendDashes(path, elements_, *pattern); });
}

Ref<CGPath> CGPath::copyStrokingWithWidth(CGFloat width, CGLineCap cap, CGLineJoin join, CGFloat miterLimit,
                                          const CGAffineTransform& transform) const {
  constexpr CGFloat dotLength = 1e-3;
  const auto opened = make<CGMutablePath>();
  const auto mapped = copy(transform);
  appendWithOpenedDots(*opened, mapped->elements(), cap == CGLineCap::butt ? 0 : width * dotLength);
  std::vector<host::PathElement> line;
  if (!(width > 0) || !appendHostPath(line, opened->elements())) return make<CGPath>();
  host::Bitmap scratch({1, 1});
  const auto canvas = host::current().drawing().makeCanvas(scratch);
  const auto outline = canvas->outline(line, {width, toHost(cap), toHost(join), miterLimit, 0, {}});
  std::vector<CGPathElement> elements;
  std::ranges::transform(outline, std::back_inserter(elements), fromHost);
  return Ref<CGPath>::adopt(new CGPath(std::move(elements)));
}

Ref<CGPath> CGPath::copyTrimming(CGFloat startFraction, CGFloat endFraction) const {
  const CGFloat from = unit(startFraction);
  const CGFloat to = unit(endFraction);
  if (from == 0 && to == 1) return copy();
  const PathSpans spans(elements_);
  if (!(from < to) || !std::isfinite(spans.length())) return make<CGPath>();
  const CGFloat length = spans.length();
  return built([&](CGMutablePath& path) {
    appendPortion(path, elements_, spans, from * length, to == 1 ? length : to * length);
  });
}

CGFloat CGPath::length() const { return PathSpans(elements_).length(); }

bool CGPath::isEqual(const NSObject* other) const {
  const auto* path = dynamic_cast<const CGPath*>(other);
  return path && *this == *path;
}

std::size_t CGPath::hash() const {
  std::size_t result = elements_.size();
  const auto mix = [&result](std::size_t value) { result = result * 31 + value; };
  for (const CGPathElement& element : elements_) {
    mix(static_cast<std::size_t>(element.type));
    for (const auto& [x, y] : element.points) {
      mix(std::hash<CGFloat>{}(x));
      mix(std::hash<CGFloat>{}(y));
    }
  }
  return result;
}

}  // namespace bkuk
