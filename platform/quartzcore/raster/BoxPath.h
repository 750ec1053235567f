#pragma once

#include "platform/coregraphics/CGMutablePath.h"
#include "platform/quartzcore/raster/RoundedBox.h"

namespace bkuk {

/// The corners of a box that has its own directions: which of them are round, from the one with the lowest x
/// and y on, against the clock where y points up.
struct BoxCorners {
  CGSize radius;
  bool isRound[4] = {};
};

/// The outline of a box of any space. Radii are cut to half its sides, both by the same factor.
void addBox(CGMutablePath& path, const CGRect& rect, const BoxCorners& corners);
/// The same the other way around.
void addBoxReversed(CGMutablePath& path, const CGRect& rect, const BoxCorners& corners);

/// The outline of a box on the device.
[[nodiscard]] Ref<CGPath> boxPath(const RoundedBox& box);
/// What `width` pixels along its edge cover, to be filled by the winding rule: both edges the same way around
/// would count pixels twice that both of them cross.
[[nodiscard]] Ref<CGPath> ringPath(const RoundedBox& box, int width);

}  // namespace bkuk
