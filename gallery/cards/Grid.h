#pragma once

#include <cstddef>

#include "BrenvikUIKit/BrenvikUIKit.h"

namespace bkuk::gallery {

/// Cells in rows, in as many columns as fit or a few less, equal but for the point that rounding gives or
/// takes, from edge to edge. Measured from the leading upper corner, in points.
struct Grid {
  CGFloat width = 0;      ///< of all columns together
  CGFloat narrowest = 0;  ///< the least width of a cell
  CGFloat cellHeight = 0;
  CGFloat gap = 0;
  std::size_t maxColumns = 1;  ///< at least one

  [[nodiscard]] std::size_t columns() const;
  [[nodiscard]] NSRect cell(std::size_t index) const;
  [[nodiscard]] CGFloat heightOf(std::size_t cells) const;
};

}  // namespace bkuk::gallery
