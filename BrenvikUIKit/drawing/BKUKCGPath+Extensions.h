#pragma once

#include <optional>
#include <vector>

#include "BrenvikUIKit/drawing/BKUKLineStyle.h"
#include "platform/appkit/drawing/NSBezierPath.h"
#include "platform/coregraphics/CGPath.h"

namespace bkuk {

/// The outline of what a stroke of the path covers, to be filled by the winding rule. With a pattern it is
/// the stroke of the dashes, which start `phase` into it. Joins are mitred up to ten times the width.
[[nodiscard]] Ref<CGPath> stroke(const CGPath& path, CGFloat width, CGLineCap cap,
                                 const std::optional<std::vector<CGFloat>>& pattern, CGFloat phase);
/// The same with the style's width, cap, pattern and phase; the pattern is taken as it is.
[[nodiscard]] Ref<CGPath> stroke(const CGPath& path, const BKUKLineStyle& withStyle);

/// A bezier path of the same elements. Quadratic curves become the cubic ones of the same course.
[[nodiscard]] Ref<NSBezierPath> bezierPath(const CGPath& path);
/// The path of a bezier path, element by element.
[[nodiscard]] Ref<CGPath> cg(const NSBezierPath& path);

}  // namespace bkuk
