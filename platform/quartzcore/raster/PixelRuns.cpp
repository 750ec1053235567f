#include "platform/quartzcore/raster/PixelRuns.h"

#include <algorithm>
#include <cstddef>

#include "platform/quartzcore/raster/PixelQuad.h"

namespace bkuk {

namespace {

constexpr int quad = PixelQuad::length;

using Factors = PixelQuad::Factors;

// Calls `paint` with eight pixels and their factors at a time, but for those that nothing covers.
void forEachEight(Pixel* pixels, const std::uint8_t* coverages, int count, std::uint32_t alpha,
                  auto&& paint) {
  constexpr int eight = 2 * quad;
  const auto paintEight = [&](Pixel* some, const std::uint8_t* theirs) {
    const auto factors = alpha == 255 ? Factors::load(theirs) : Factors::load(theirs).scaledBy(alpha);
    if (!factors.areAllZero()) paint(some, factors);
  };
  int i = 0;
  for (; i + eight <= count; i += eight) paintEight(pixels + i, coverages + i);
  if (i >= count) return;
  Pixel rest[eight] = {};
  std::uint8_t theirs[eight] = {};
  for (int k = i; k < count; ++k) rest[k - i] = pixels[k];
  for (int k = i; k < count; ++k) theirs[k - i] = coverages[k];
  paintEight(rest, theirs);
  for (int k = i; k < count; ++k) pixels[k] = rest[k - i];
}

// What `paintCovered` does at less cost: black pixels are nothing but alpha, and most shadows are black.
void paintBlackCovered(Pixel* pixels, const std::uint8_t* coverages, int count, std::uint32_t alpha) {
  forEachEight(pixels, coverages, count, alpha, [](Pixel* eight, const Factors& alphas) {
    PixelQuad::load(eight).darkenedByFirst(alphas).store(eight);
    PixelQuad::load(eight + quad).darkenedBySecond(alphas).store(eight + quad);
  });
}

// Of four pixels.
bool areTransparent(const Pixel* four) { return (four[0] | four[1] | four[2] | four[3]) == 0; }
bool areOpaque(const Pixel* four) { return alphaOf(four[0] & four[1] & four[2] & four[3]) == 255; }

// Calls `paint` with four pixels and their factors at a time, but for those that nothing covers.
void forEachFour(Pixel* pixels, const std::uint8_t* coverages, int count, auto&& paint) {
  const auto paintFour = [&](Pixel* some, const std::uint8_t* theirs) {
    const auto factors = PixelQuad::FourFactors::load(theirs);
    if (!factors.areAllZero()) paint(some, factors);
  };
  int i = 0;
  for (; i + quad <= count; i += quad) paintFour(pixels + i, coverages + i);
  if (i >= count) return;
  Pixel rest[quad] = {};
  std::uint8_t theirs[quad] = {};
  std::copy_n(pixels + i, count - i, rest);
  std::copy_n(coverages + i, count - i, theirs);
  paintFour(rest, theirs);
  std::copy_n(rest, count - i, pixels + i);
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
  const bool isBlack = color << 8 == 0;
  if (isBlack) return paintBlackCovered(pixels, coverages, count, alphaOf(color));
  const auto four = PixelQuad::of(color);
  forEachEight(pixels, coverages, count, 255, [&](Pixel* eight, const Factors& factors) {
    four.scaledByFirst(factors).over(PixelQuad::load(eight)).store(eight);
    four.scaledBySecond(factors).over(PixelQuad::load(eight + quad)).store(eight + quad);
  });
}

void paintMask(Pixel* pixels, int pitch, const std::uint8_t* coverages, int coveragePitch, int width,
               int height, Pixel color) {
  const auto forEachRow = [&](auto&& paint) {
    for (int y = 0; y < height; ++y) {
      forEachFour(pixels + std::ptrdiff_t{y} * pitch, coverages + std::ptrdiff_t{y} * coveragePitch, width,
                  paint);
    }
  };
  const auto four = PixelQuad::of(color);
  if (alphaOf(color) == 255) {
    return forEachRow([&](Pixel* some, const auto& factors) {
      PixelQuad::load(some).mixedWith(four, factors).store(some);
    });
  }
  forEachRow([&](Pixel* some, const auto& factors) {
    four.scaledBy(factors).over(PixelQuad::load(some)).store(some);
  });
}

void paintImage(Pixel* pixels, const Pixel* image, int count, std::uint32_t alpha) {
  int i = 0;
  for (; i + quad <= count; i += quad) {
    if (areTransparent(image + i)) continue;
    if (alpha == 255 && areOpaque(image + i)) {
      std::copy_n(image + i, quad, pixels + i);
      continue;
    }
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
