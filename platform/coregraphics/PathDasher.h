#pragma once

#include <cstddef>
#include <limits>
#include <optional>
#include <span>
#include <vector>

#include "platform/coregraphics/CGMutablePath.h"
#include "platform/coregraphics/PathSpans.h"

namespace bkuk {

/// Dash and gap lengths that can be followed along a path.
class DashPattern {
 public:
  /// Absent when the path is to stay undashed, as `CGPath::copyDashingWithPhase` says.
  [[nodiscard]] static std::optional<DashPattern> make(CGFloat phase, std::span<const CGFloat> lengths);

  /// With every length and the phase multiplied; absent when that leaves the range of numbers.
  [[nodiscard]] std::optional<DashPattern> scaled(CGFloat factor) const;
  /// Dashes of no length take `length` from the gap behind them.
  void openEmptyDashes(CGFloat length);

  /// An even number, dash first; not negative, with a positive sum that may be infinite.
  [[nodiscard]] std::span<const CGFloat> lengths() const { return lengths_; }
  [[nodiscard]] CGFloat period() const { return period_; }
  /// From 0 to below the period.
  [[nodiscard]] CGFloat phase() const { return phase_; }

 private:
  std::vector<CGFloat> lengths_;
  CGFloat period_ = 0;
  CGFloat phase_ = 0;
};

/// What keeps the work of dashing in proportion to what can be seen.
struct DashLimits {
  std::optional<CGRect> visible;  ///< dashes that cannot touch it may be left out
  CGFloat dashesPerUnit = std::numeric_limits<CGFloat>::infinity();
  std::size_t maxDashes = 131072;
  CGFloat emptyDashLength = 0.001;
};

/// Appends the dashes of `path` to `target` as open subpaths. A pattern too fine for the limits is applied in
/// a whole multiple of its size, which keeps the share of the line that it covers.
void appendDashes(CGMutablePath& target, std::span<const CGPathElement> path, const DashPattern& pattern,
                  const DashLimits& limits = {});

/// Appends what lies between two distances along the path; subpaths inside stay as they are.
void appendPortion(CGMutablePath& target, std::span<const CGPathElement> path, const PathSpans& spans,
                   CGFloat from, CGFloat to);

}  // namespace bkuk
