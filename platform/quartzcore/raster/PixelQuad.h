#pragma once

#include <bit>
#include <cstdint>
#include <cstring>

#include "platform/quartzcore/raster/PixelMath.h"

namespace bkuk {

/// Four neighbouring pixels, calculated with side by side. The results are those of `scaled` and `over`.
class PixelQuad {
  using Words = std::uint16_t __attribute__((vector_size(16)));

 public:
  static constexpr int length = 4;

  /// Four bytes, factors for the pixels of one quad.
  class FourFactors {
   public:
    [[nodiscard]] static FourFactors load(const std::uint8_t* bytes) {
      std::uint32_t four;
      std::memcpy(&four, bytes, sizeof four);
      return FourFactors(four);
    }
    [[nodiscard]] bool areAllZero() const { return bytes_ == 0; }

   private:
    friend PixelQuad;
    using Bytes = std::uint8_t __attribute__((vector_size(8)));

    explicit FourFactors(std::uint32_t bytes) : bytes_(bytes) {}
    // Each in both halves of its pixel.
    [[nodiscard]] Words each() const {
      const auto bytes = std::bit_cast<Bytes>(std::uint64_t{bytes_});
      return __builtin_convertvector(__builtin_shufflevector(bytes, bytes, 0, 0, 1, 1, 2, 2, 3, 3), Words);
    }

    std::uint32_t bytes_;
  };

  /// Eight bytes, factors for the pixels of two quads.
  class Factors {
   public:
    [[nodiscard]] static Factors load(const std::uint8_t* bytes) {
      Bytes eight;
      std::memcpy(&eight, bytes, sizeof eight);
      return Factors(__builtin_convertvector(eight, Words));
    }
    [[nodiscard]] Factors scaledBy(std::uint32_t factor) const {
      return Factors(divided(words_ * static_cast<std::uint16_t>(factor)));
    }
    [[nodiscard]] bool areAllZero() const {
      using Halves = std::uint64_t __attribute__((vector_size(16)));
      const auto halves = std::bit_cast<Halves>(words_);
      return (halves[0] | halves[1]) == 0;
    }

   private:
    friend PixelQuad;
    using Bytes = std::uint8_t __attribute__((vector_size(8)));

    explicit Factors(Words words) : words_(words) {}
    // Each in both halves of its pixel.
    [[nodiscard]] Words first() const {
      return __builtin_shufflevector(words_, words_, 0, 0, 1, 1, 2, 2, 3, 3);
    }
    [[nodiscard]] Words second() const {
      return __builtin_shufflevector(words_, words_, 4, 4, 5, 5, 6, 6, 7, 7);
    }

    Words words_;
  };

  [[nodiscard]] static PixelQuad load(const Pixel* pixels) {
    Words words;
    std::memcpy(&words, pixels, sizeof words);
    return {words & 0xff, words >> 8};
  }
  [[nodiscard]] static PixelQuad of(Pixel pixel) {
    const Pixel pixels[length] = {pixel, pixel, pixel, pixel};
    return load(pixels);
  }
  void store(Pixel* pixels) const {
    const Words words = even_ | (odd_ << 8);
    std::memcpy(pixels, &words, sizeof words);
  }

  [[nodiscard]] PixelQuad scaledBy(std::uint32_t factor) const {
    const auto word = static_cast<std::uint16_t>(factor);
    return {divided(even_ * word), divided(odd_ * word)};
  }
  [[nodiscard]] PixelQuad scaledByFirst(const Factors& each) const { return scaledByEach(each.first()); }
  [[nodiscard]] PixelQuad scaledBySecond(const Factors& each) const { return scaledByEach(each.second()); }

  [[nodiscard]] PixelQuad scaledBy(const FourFactors& four) const { return scaledByEach(four.each()); }

  /// Painted over `below`.
  [[nodiscard]] PixelQuad over(const PixelQuad& below) const {
    const Words rest = 255 - __builtin_shufflevector(odd_, odd_, 1, 1, 3, 3, 5, 5, 7, 7);
    return {even_ + divided(below.even_ * rest), odd_ + divided(below.odd_ * rest)};
  }

  /// Black painted over this, each pixel with an alpha of its own.
  [[nodiscard]] PixelQuad darkenedByFirst(const Factors& alphas) const {
    return darkenedByEach(alphas.first());
  }
  [[nodiscard]] PixelQuad darkenedBySecond(const Factors& alphas) const {
    return darkenedByEach(alphas.second());
  }

  /// An opaque colour painted over this, each pixel by a coverage of its own.
  [[nodiscard]] PixelQuad mixedWith(const PixelQuad& color, const FourFactors& coverages) const {
    const Words each = coverages.each();
    const Words rest = 255 - each;
    return {divided(even_ * rest + color.even_ * each), divided(odd_ * rest + color.odd_ * each)};
  }

 private:
  PixelQuad(const Words& even, const Words& odd) : even_(even), odd_(odd) {}

  [[nodiscard]] PixelQuad scaledByEach(Words each) const {
    return {divided(even_ * each), divided(odd_ * each)};
  }
  [[nodiscard]] PixelQuad darkenedByEach(Words each) const {
    constexpr Words alphaOnly{0, 0xff, 0, 0xff, 0, 0xff, 0, 0xff};
    const Words rest = 255 - each;
    return {divided(even_ * rest), divided(odd_ * rest) + (each & alphaOnly)};
  }
  // By 255, rounded to the nearest.
  static Words divided(Words words) { return (words + (words >> 8) + 0x80) >> 8; }

  // Of each pixel two components in the halves of 32 bits: blue and red, and green and alpha.
  Words even_;
  Words odd_;
};

}  // namespace bkuk
