#pragma once

#include "platform/quartzcore/raster/PixelMath.h"

namespace bkuk {

// Runs of neighbouring pixels. A count of 0 or less is none.

/// One colour over what is there.
void paintOver(Pixel* pixels, int count, Pixel color);

/// One colour over what is there, each pixel by a coverage of its own.
void paintCovered(Pixel* pixels, const std::uint8_t* coverages, int count, Pixel color);

/// The same of rows, `pitch` pixels and `coveragePitch` bytes from one to the next.
void paintMask(Pixel* pixels, int pitch, const std::uint8_t* coverages, int coveragePitch, int width,
               int height, Pixel color);

/// An image over what is there, every component times `alpha` / 255.
void paintImage(Pixel* pixels, const Pixel* image, int count, std::uint32_t alpha);

/// Each pixel times the alpha of the one in `mask`.
void multiplyByAlpha(Pixel* pixels, const Pixel* mask, int count);

}  // namespace bkuk
