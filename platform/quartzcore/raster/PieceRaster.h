#pragma once

#include <span>

#include "platform/coregraphics/PaintedPiece.h"
#include "platform/quartzcore/raster/PixelTarget.h"

namespace bkuk {

/// Paints text and images that fall on whole pixels straight into pixels, as a canvas paints them.
class PieceRaster {
 public:
  /// Paints nothing outside `clip`.
  PieceRaster(const PixelTarget& target, const PixelRect& clip)
      : target_(target), clip_(intersect(clip, target.area())) {}

  /// `x`, `y`: the device pixel where the pieces count from.
  void paint(std::span<const PaintedPiece> pieces, int x, int y) const;

 private:
  void paint(const PaintedText& text, int x, int y) const;
  void paint(const PaintedImage& image, int x, int y) const;
  void paint(const host::GlyphMask& mask, int x, int y, Pixel color) const;

  const PixelTarget& target_;
  PixelRect clip_;
};

}  // namespace bkuk
