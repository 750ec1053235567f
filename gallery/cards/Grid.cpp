#include "gallery/cards/Grid.h"

#include <algorithm>
#include <cmath>

namespace bkuk::gallery {

// A full row that has to be broken is broken into even parts, so that none of its cells is left alone.
std::size_t Grid::columns() const {
  const auto fitting = static_cast<std::size_t>(std::max(1.0, std::floor((width + gap) / (narrowest + gap))));
  const auto parts = (maxColumns + fitting - 1) / fitting;
  return (maxColumns + parts - 1) / parts;
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
