#include "platform/coregraphics/HostConversions.h"

#include <algorithm>
#include <cmath>

namespace bkuk {

bool appendHostPath(std::vector<host::PathElement>& target, std::span<const CGPathElement> elements) {
  // Still exact to a hundredth of a pixel in single precision arithmetic over the length of a bitmap.
  constexpr CGFloat limit = 1 << 23;
  target.reserve(target.size() + elements.size());
  for (const CGPathElement& element : elements) {
    auto& added = target.emplace_back();
    added.kind = static_cast<host::PathElement::Kind>(element.type);
    for (int index = 0; index < pointCount(element.type); ++index) {
      const auto [x, y] = element.points[index];
      if (!std::isfinite(x) || !std::isfinite(y)) return false;
      added.points[index] = {std::clamp(x, -limit, limit), std::clamp(y, -limit, limit)};
    }
  }
  return true;
}

CGPathElement fromHost(const host::PathElement& element) {
  CGPathElement result{static_cast<CGPathElementType>(element.kind), {}};
  for (int index = 0; index < pointCount(result.type); ++index) {
    result.points[index] = {element.points[index].x, element.points[index].y};
  }
  return result;
}

host::FillRule toHost(CGPathFillRule rule) {
  return rule == CGPathFillRule::evenOdd ? host::FillRule::evenOdd : host::FillRule::winding;
}

host::LineCap toHost(CGLineCap cap) {
  switch (cap) {
    case CGLineCap::butt:
      return host::LineCap::butt;
    case CGLineCap::round:
      return host::LineCap::round;
    case CGLineCap::square:
      return host::LineCap::square;
  }
  return host::LineCap::butt;
}

host::LineJoin toHost(CGLineJoin join) {
  switch (join) {
    case CGLineJoin::miter:
      return host::LineJoin::miter;
    case CGLineJoin::round:
      return host::LineJoin::round;
    case CGLineJoin::bevel:
      return host::LineJoin::bevel;
  }
  return host::LineJoin::miter;
}

host::BlendMode toHost(CGBlendMode mode) {
  switch (mode) {
    case CGBlendMode::normal:
      return host::BlendMode::normal;
    case CGBlendMode::clear:
      return host::BlendMode::clear;
    case CGBlendMode::copy:
      return host::BlendMode::copy;
    case CGBlendMode::sourceIn:
      return host::BlendMode::sourceIn;
    case CGBlendMode::sourceOut:
      return host::BlendMode::sourceOut;
    case CGBlendMode::sourceAtop:
      return host::BlendMode::sourceAtop;
    case CGBlendMode::destinationOver:
      return host::BlendMode::destinationOver;
    case CGBlendMode::destinationIn:
      return host::BlendMode::destinationIn;
    case CGBlendMode::destinationOut:
      return host::BlendMode::destinationOut;
    case CGBlendMode::destinationAtop:
      return host::BlendMode::destinationAtop;
    case CGBlendMode::XOR:
      return host::BlendMode::exclusiveOr;
  }
  return host::BlendMode::normal;
}

}  // namespace bkuk
