#pragma once

#include "platform/quartzcore/raster/PixelTarget.h"
#include "platform/quartzcore/raster/RoundedBox.h"

namespace bkuk {

/// Paints rounded boxes and rings straight into pixels: what a user interface has most of. It looks like the
/// same shape filled as a path, at the cost of writing the pixels.
class RoundedBoxRaster {
 public:
  /// Paints nothing outside `clip`.
  RoundedBoxRaster(const PixelTarget& target, const PixelRect& clip)
      : target_(target), clip_(intersect(clip, target.area())) {}

  /// Whether it can paint the box and a ring of that width in it.
  [[nodiscard]] static bool canPaint(const RoundedBox& box, int ringWidth = 0);

  /// `box` is `fitted`.
  void fill(const RoundedBox& box, Pixel color) const;
  /// The part of the box within `width` pixels of its edge.
  void ring(const RoundedBox& box, int width, Pixel color) const;
  /// Paints the pixels of `image`, whose first one is the device pixel (`x`, `y`), inside the box; every
  /// component times `alpha` / 255.
  void image(const RoundedBox& box, const host::Bitmap& image, int x, int y, std::uint32_t alpha) const;

 private:
  const PixelTarget& target_;
  PixelRect clip_;
};

}  // namespace bkuk
