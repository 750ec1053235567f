#pragma once

#include <cstdint>

namespace bkuk {

/// Which part of a dash pattern takes up the slack, so that a whole number of patterns fits a path.
enum class BKUKLinePatternModification : std::uint8_t {
  none,                       ///< the pattern stays as given
  resizePatternDashes,        ///< the dashes, in proportion to their lengths
  resizePatternSpaces,        ///< the spaces, in proportion to their lengths
  resizeDashAndSpace,         ///< every element, in proportion to its length
  resizeSpaceBetweenPatterns  ///< only the trailing space of the pattern
};

}  // namespace bkuk
