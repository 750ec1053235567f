#pragma once

#include <cstdint>

namespace bkuk {

/// What of an item a constraint speaks of. Edges are those of the alignment rectangle; top and bottom are
/// meant as seen, so that a greater top lies lower in flipped and in unflipped views alike. Leading is left
/// unless the view around both items runs from right to left.
enum class NSLayoutAttribute : std::uint8_t {
  none = 0,
  left = 1,
  right = 2,
  top = 3,
  bottom = 4,
  leading = 5,
  trailing = 6,
  width = 7,
  height = 8,
  centerX = 9,
  centerY = 10,
  lastBaseline = 11,
  firstBaseline = 12,
};

enum class NSLayoutRelation : std::int8_t { lessThanOrEqual = -1, equal = 0, greaterThanOrEqual = 1 };

/// Above 0 to 1000. Constraints below 1000 may be broken, those of higher priority last.
using NSLayoutPriority = float;
inline constexpr NSLayoutPriority NSLayoutPriorityRequired = 1000;
inline constexpr NSLayoutPriority NSLayoutPriorityDefaultHigh = 750;
inline constexpr NSLayoutPriority NSLayoutPriorityDefaultLow = 250;
inline constexpr NSLayoutPriority NSLayoutPriorityFittingSize = 50;

enum class NSLayoutConstraintOrientation { horizontal = 0, vertical = 1 };

/// Distances from the edges, in points.
struct NSEdgeInsets {
  double top = 0;
  double left = 0;
  double bottom = 0;
  double right = 0;
  bool operator==(const NSEdgeInsets&) const = default;
};

}  // namespace bkuk
