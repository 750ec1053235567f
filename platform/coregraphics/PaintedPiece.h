#pragma once

#include <memory>
#include <variant>

#include "host/Bitmap.h"
#include "host/GlyphMasks.h"
#include "host/Rgba.h"

namespace bkuk {

/// Text on whole device pixels, y down: each glyph's mask in one colour.
struct PaintedText {
  std::shared_ptr<const host::GlyphMasks> masks;  ///< their x counts from the left edge
  int baseline = 0;                               ///< the pixel that their y counts from
  host::Rgba color{};
};

/// A bitmap whose first pixel falls on that device pixel.
struct PaintedImage {
  std::shared_ptr<const host::Bitmap> image;
  int x = 0;
  int y = 0;
  double alpha = 1;
};

using PaintedPiece = std::variant<PaintedText, PaintedImage>;

}  // namespace bkuk
