#include "platform/quartzcore/raster/PixelRuns.h"

#include <algorithm>
#include <cstring>

#include "platform/quartzcore/raster/PixelQuad.h"

namespace bkuk {

namespace {

constexpr int quad = PixelQuad::length;

bool areAllZero(const std::uint8_t* coverages) {
  std::uint32_t four = 0;
  std::memcpy(&four, coverages, sizeof four);
  return four == 0;
}

}  // namespace

void paintOver(Pixel* pixels, int count, Pixel color) {
  if (count <= 0 || alphaOf(color) == 0) return;
  if (alphaOf(color) == 255) {
    std::fill_n(pixels, count, color);
    return;
  }
  const auto four = PixelQuad::of(color);
  int i = 0;
  for (; i + quad <= count; i += quad) four.over(PixelQuad::load(pixels + i)).store(pixels + i);
  for (; i < count; ++i) pixels[i] = over(color, pixels[i]);
}

void paintCovered(Pixel* pixels, const std::uint8_t* coverages, int count, Pixel color) {
  const auto four = PixelQuad::of(color);
  int i = 0;
  for (; i + quad <= count; i += quad) {
    if (areAllZero(coverages + i)) continue;
    four.scaledByEach(coverages + i).over(PixelQuad::load(pixels + i)).store(pixels + i);
  }
  for (; i < count; ++i) pixels[i] = over(scaled(color, coverages[i]), pixels[i]);
}

void paintImage(Pixel* pixels, const Pixel* image, int count, std::uint32_t alpha) {
  int i = 0;
  for (; i + quad <= count; i += quad) {
    const auto four = PixelQuad::load(image + i);
    const auto faded = alpha == 255 ? four : four.scaledBy(alpha);
    faded.over(PixelQuad::load(pixels + i)).store(pixels + i);
  }
  for (; i < count; ++i) pixels[i] = over(scaled(image[i], alpha), pixels[i]);
}

void multiplyByAlpha(Pixel* pixels, const Pixel* mask, int count) {
  for (int i = 0; i < count; ++i) pixels[i] = scaled(pixels[i], alphaOf(mask[i]));
}

}  // namespace bkuk
