#pragma once

#include <span>
#include <vector>

#include "host/Canvas.h"
#include "platform/coregraphics/CGAffineTransform.h"
#include "platform/coregraphics/CGBlendMode.h"
#include "platform/coregraphics/CGLineStyle.h"
#include "platform/coregraphics/CGPath.h"

namespace bkuk {

/// Appends the elements as the host takes them. Coordinates beyond what any bitmap can show are cut, so
/// that no rasteriser has to stand them. False, with nothing promised about `target`, when a coordinate is
/// no finite number.
[[nodiscard]] bool appendHostPath(std::vector<host::PathElement>& target,
                                  std::span<const CGPathElement> elements);

[[nodiscard]] CGPathElement fromHost(const host::PathElement& element);

[[nodiscard]] inline host::Transform toHost(const CGAffineTransform& t) {
  return {t.a, t.b, t.c, t.d, t.tx, t.ty};
}
[[nodiscard]] inline host::Point toHost(CGPoint point) { return {point.x, point.y}; }
[[nodiscard]] host::FillRule toHost(CGPathFillRule rule);
[[nodiscard]] host::LineCap toHost(CGLineCap cap);
[[nodiscard]] host::LineJoin toHost(CGLineJoin join);
/// A mode of no known value paints normally.
[[nodiscard]] host::BlendMode toHost(CGBlendMode mode);

}  // namespace bkuk
