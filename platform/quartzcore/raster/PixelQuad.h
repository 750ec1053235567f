#pragma once

#include <bit>
#include <cstdint>
#include <cstring>

#include "platform/quartzcore/raster/PixelMath.h"

namespace bkuk {

static_assert(std::endian::native == std::endian::little,
              "the halves are taken apart and joined by their low bytes");

/// Four neighbouring pixels, calculated with side by side. The results are those of `scaled` and `over`.
class PixelQuad {
 public:
  static constexpr int length = 4;

  [[nodiscard]] static PixelQuad load(const Pixel* pixels) {
    Bytes bytes;
    std::memcpy(&bytes, pixels, sizeof bytes);
    return widened(bytes);
  }
  [[nodiscard]] static PixelQuad of(Pixel pixel) {
    const Pixel pixels[length] = {pixel, pixel, pixel, pixel};
    return load(pixels);
  }
  void store(Pixel* pixels) const {
    const auto bytes = __builtin_shufflevector(std::bit_cast<Bytes>(low_), std::bit_cast<Bytes>(high_), 0, 2,
                                               4, 6, 8, 10, 12, 14, 16, 18, 20, 22, 24, 26, 28, 30);
    std::memcpy(pixels, &bytes, sizeof bytes);
  }

  [[nodiscard]] PixelQuad scaledBy(std::uint32_t factor) const {
    const auto word = static_cast<std::uint16_t>(factor);
    return {divided(low_ * word), divided(high_ * word)};
  }
  /// Each pixel by a factor of its own.
  [[nodiscard]] PixelQuad scaledByEach(const std::uint8_t* factors) const {
    std::uint32_t four = 0;
    std::memcpy(&four, factors, sizeof four);
    const Integers integers{four};
    const auto bytes = std::bit_cast<Bytes>(integers);
    const auto twice = std::bit_cast<Words>(interleaved(bytes, bytes));
    const auto fourTimes = __builtin_shufflevector(twice, twice, 0, 8, 1, 9, 2, 10, 3, 11);
    const auto each = widened(std::bit_cast<Bytes>(fourTimes));
    return {divided(low_ * each.low_), divided(high_ * each.high_)};
  }
  /// Painted over `below`.
  [[nodiscard]] PixelQuad over(const PixelQuad& below) const {
    return {low_ + divided(below.low_ * (255 - alphas(low_))),
            high_ + divided(below.high_ * (255 - alphas(high_)))};
  }

 private:
  using Bytes = std::uint8_t __attribute__((vector_size(16)));
  using Words = std::uint16_t __attribute__((vector_size(16)));
  using Integers = std::uint32_t __attribute__((vector_size(16)));

  PixelQuad(const Words& low, const Words& high) : low_(low), high_(high) {}

  static PixelQuad widened(Bytes bytes) {
    constexpr Bytes zero{};
    const auto high =
        __builtin_shufflevector(bytes, zero, 8, 24, 9, 25, 10, 26, 11, 27, 12, 28, 13, 29, 14, 30, 15, 31);
    return {std::bit_cast<Words>(interleaved(bytes, zero)), std::bit_cast<Words>(high)};
  }
  // The lower halves' bytes in turn.
  static Bytes interleaved(Bytes a, Bytes b) {
    return __builtin_shufflevector(a, b, 0, 16, 1, 17, 2, 18, 3, 19, 4, 20, 5, 21, 6, 22, 7, 23);
  }
  // By 255, rounded to the nearest.
  static Words divided(Words words) { return (words + (words >> 8) + 0x80) >> 8; }
  // The alpha of each pixel in the place of each of its components.
  static Words alphas(Words words) { return __builtin_shufflevector(words, words, 3, 3, 3, 3, 7, 7, 7, 7); }

  Words low_;
  Words high_;
};

}  // namespace bkuk
