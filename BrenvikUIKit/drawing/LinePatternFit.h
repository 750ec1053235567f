#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "BrenvikUIKit/drawing/BKUKLinePatternModification.h"
#include "platform/coregraphics/CGLineStyle.h"
#include "platform/foundation/CGGeometry.h"

namespace bkuk {

/// What a dash pattern is fitted to.
struct LinePatternFit {
  BKUKLinePatternModification modification = BKUKLinePatternModification::resizeSpaceBetweenPatterns;
  CGFloat pathLength = 0;             ///< points
  bool pathLoops = false;             ///< the end of the last pattern meets the start of the first
  std::optional<std::int64_t> count;  ///< at most so many patterns; never more than fit
  CGLineCap cap = CGLineCap::butt;    ///< what lengthens the dashes of a pattern without a trailing space
  CGFloat lineWidth = 0;              ///< points
};

/// The pattern stretched so that a whole number of patterns fills the path. On a path that does not loop the
/// last pattern goes without its trailing space, so that the path ends with a dash.
///
/// Dashes and spaces alternate, dash first. Elements of 0 become 0.01, for a dash of no length would vanish.
/// An odd number of elements has no trailing space: the room that round and square caps take stands in for
/// it, and stretching the space between patterns appends it. The pattern comes back as given where not one
/// fits, where it has no length, and where `count` is below 1.
///
/// A single pattern on a path that does not loop has no gap to stretch: `resizeSpaceBetweenPatterns` then
/// divides by zero, and the infinity or NaN is part of the result. A number of patterns beyond 64 bits traps;
/// `none` is for the caller to deal with and a fatal error here.
[[nodiscard]] std::vector<CGFloat> fittedLinePattern(std::span<const CGFloat> pattern,
                                                     const LinePatternFit& fit);

}  // namespace bkuk
