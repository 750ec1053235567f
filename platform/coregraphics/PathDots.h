#pragma once

#include <span>

#include "platform/coregraphics/CGMutablePath.h"

namespace bkuk {

// Dots are subpaths that lead nowhere: a point with lines or curves to itself, or one that is closed. A
// stroke shows nothing of them but its caps, and butt caps show nothing.

[[nodiscard]] bool hasDots(std::span<const CGPathElement> path);

/// Appends the path with every dot drawn out to a line along x, so short that it only gives its caps a
/// direction.
void appendWithOpenedDots(CGMutablePath& target, std::span<const CGPathElement> path, CGFloat length);

}  // namespace bkuk
