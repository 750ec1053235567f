#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "host/Rgba.h"

namespace bkuk {

/// A premultiplied pixel, 0xAARRGGBB.
using Pixel = std::uint32_t;

[[nodiscard]] inline std::uint32_t alphaOf(Pixel pixel) { return pixel >> 24; }

/// Every component times `factor` / 255, rounded to the nearest.
[[nodiscard]] inline Pixel scaled(Pixel pixel, std::uint32_t factor) {
  auto even = (pixel & 0x00ff00ffU) * factor;
  even = ((even + ((even >> 8) & 0x00ff00ffU) + 0x00800080U) >> 8) & 0x00ff00ffU;
  auto odd = ((pixel >> 8) & 0x00ff00ffU) * factor;
  odd = (odd + ((odd >> 8) & 0x00ff00ffU) + 0x00800080U) & 0xff00ff00U;
  return even | odd;
}

/// `source` painted over `below`.
[[nodiscard]] inline Pixel over(Pixel source, Pixel below) {
  return source + scaled(below, 255 - alphaOf(source));
}

[[nodiscard]] inline std::uint32_t toByte(double unit) {
  return static_cast<std::uint32_t>(std::lround(std::clamp(unit, 0.0, 1.0) * 255));
}

[[nodiscard]] inline Pixel premultiplied(const host::Rgba& color, double alpha = 1) {
  const auto coverage = std::clamp(color.alpha * alpha, 0.0, 1.0);
  return toByte(coverage) << 24 | toByte(color.red * coverage) << 16 | toByte(color.green * coverage) << 8 |
         toByte(color.blue * coverage);
}

}  // namespace bkuk
