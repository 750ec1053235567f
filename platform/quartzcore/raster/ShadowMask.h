#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "platform/coregraphics/CGPath.h"
#include "platform/quartzcore/raster/PixelTarget.h"
#include "platform/quartzcore/raster/RoundedBox.h"

namespace bkuk {

/// The blurred coverage of a shape. Masks of boxes and paths are kept for their next use, by what determines
/// them; a box that is longer than its blur reaches shares the mask of a shorter one, whose middle repeats.
class ShadowMask {
 public:
  /// A mask and where it lies on the device for the shape it was asked for.
  struct Placed {
    std::shared_ptr<const ShadowMask> mask;
    PixelRect rect;
  };

  /// How many pixels a shadow spreads beyond its shape.
  [[nodiscard]] static int reach(double sigma);

  [[nodiscard]] static Placed ofBox(const RoundedBox& box, double sigma);
  /// Of the part of the filled path that lies in `area`, in device pixels.
  [[nodiscard]] static Placed ofPath(const Ref<CGPath>& path, const CGAffineTransform& toDevice, double sigma,
                                     const PixelRect& area);
  /// Of an image's alpha, whose first pixel is the device pixel (`x`, `y`). Not kept.
  [[nodiscard]] static Placed ofImage(const host::Bitmap& image, int x, int y, double sigma);

  /// Paints the shadow in `rect`, where the mask was placed or moved to, but for the pixels of `covers`, over
  /// which something opaque will be painted.
  void paint(const PixelTarget& target, const PixelRect& clip, const PixelRect& rect,
             std::span<const PixelRect> covers, Pixel color) const;

  [[nodiscard]] std::size_t byteCount() const { return plane_.size(); }

 private:
  /// The blurred alpha of an image.
  ShadowMask(const host::Bitmap& image, double sigma);

  void paintPart(Pixel* row, const std::uint8_t* cells, const PixelRect& rect, int minX, int maxX,
                 Pixel color) const;

  PixelSize size_;
  std::vector<std::uint8_t> plane_;
};

}  // namespace bkuk
