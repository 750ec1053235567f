#pragma once

#include <span>

#include "platform/coregraphics/CGPathElement.h"

namespace bkuk {

/// How often the path turns round the point, counter-clockwise (with y up) counting as positive. Open
/// subpaths count as closed. An odd number is inside by the even-odd rule, any but 0 by the winding rule.
[[nodiscard]] int windingNumber(std::span<const CGPathElement> path, CGPoint point);

}  // namespace bkuk
