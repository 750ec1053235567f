#pragma once

#include <cmath>

#include "platform/coregraphics/CGContext.h"
#include "platform/quartzcore/raster/PixelTarget.h"
#include "platform/quartzcore/raster/RoundedBox.h"
#include "platform/quartzcore/raster/RoundedBoxRaster.h"

namespace bkuk {

/// Paints with a context so that a pixel is the same whichever part of a picture is painted: Qt rounds
/// slanted edges, resampled bitmaps and gradients by how far they are from where painting begins, so that
/// always begins at the same places, the corners of tiles.
///
/// Calls `paint` with a context in device space for each tile of `whole` that has something in `clip`. What
/// comes of it is cut to the rounded box.
void paintByTiles(const PixelTarget& target, const PixelRect& clip, const RoundedBox& whole, auto&& paint) {
  constexpr int side = 64;
  const auto area = intersect(intersect(clip, whole.rect), target.area());
  const auto firstOf = [](int position) {
    return static_cast<int>(std::floor(position / double{side})) * side;
  };
  for (int y = firstOf(area.y); y < area.maxY(); y += side) {
    for (int x = firstOf(area.x); x < area.maxX(); x += side) {
      const auto tile = intersect({x, y, side, side}, whole.rect);
      host::Bitmap bitmap({tile.width, tile.height});
      if (bitmap.isEmpty()) continue;
      paint(*make<CGContext>(bitmap, CGAffineTransform::translation(-tile.x, -tile.y)));
      RoundedBoxRaster(target, intersect(area, tile)).image(whole, bitmap, tile.x, tile.y, 255);
    }
  }
}

}  // namespace bkuk
