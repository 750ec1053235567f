#include "gallery/pages/Grid.h"

#include <algorithm>
#include <cmath>

namespace bkuk::gallery {

std::size_t Grid::columns() const {
  const auto fitting = std::floor((width + gap) / (narrowest + gap));
  return static_cast<std::size_t>(std::clamp(fitting, 1.0, static_cast<CGFloat>(maxColumns)));
}

NSRect Grid::cell(std::size_t index) const {
  const auto count = columns();
  const auto column = static_cast<CGFloat>(index % count);
  const auto row = static_cast<CGFloat>(index / count);
  const CGFloat exactWidth = (width - gap * static_cast<CGFloat>(count - 1)) / static_cast<CGFloat>(count);
  const CGFloat exactStart = column * (exactWidth + gap);
  const CGFloat start = std::round(exactStart);
  return {start, row * (cellHeight + gap), std::round(exactStart + exactWidth) - start, cellHeight};
}

CGFloat Grid::heightOf(std::size_t cells) const {
  const auto rows = static_cast<CGFloat>((cells + columns() - 1) / columns());
  return rows * (cellHeight + gap) - gap;
}

}  // namespace bkuk::gallery
