#pragma once

#include "host/Bitmap.h"
#include "platform/quartzcore/PixelGeometry.h"
#include "platform/quartzcore/raster/PixelMath.h"

namespace bkuk {

/// A bitmap that shows a part of the device's pixels, addressed by their device coordinates.
class PixelTarget {
 public:
  /// `x`, `y`: the device pixel that the bitmap's first one stands for.
  PixelTarget(host::Bitmap& bitmap, int x, int y)
      : pixels_(bitmap.pixels()), area_{x, y, bitmap.size().width, bitmap.size().height} {}

  /// The device pixels that it has.
  [[nodiscard]] const PixelRect& area() const { return area_; }
  [[nodiscard]] Pixel* at(int x, int y) const {
    return pixels_ + static_cast<std::ptrdiff_t>(y - area_.y) * area_.width + (x - area_.x);
  }

 private:
  Pixel* pixels_;
  PixelRect area_;
};

}  // namespace bkuk
