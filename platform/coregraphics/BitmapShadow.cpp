#include "platform/coregraphics/BitmapShadow.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <vector>

#include "platform/coregraphics/GaussianBlur.h"

namespace bkuk {

namespace {

using Tints = std::array<std::uint32_t, 256>;

// The premultiplied pixel for each amount of coverage.
Tints tints(const host::Rgba& color) {
  Tints result;
  const auto channel = [](double value) { return static_cast<std::uint32_t>(std::lround(value * 255)); };
  for (std::size_t coverage = 0; coverage < result.size(); ++coverage) {
    const double alpha = color.alpha * static_cast<double>(coverage) / 255;
    result[coverage] = channel(alpha) << 24 | channel(alpha * color.red) << 16 |
                       channel(alpha * color.green) << 8 | channel(alpha * color.blue);
  }
  return result;
}

std::span<std::uint32_t> pixels(host::Bitmap& image) {
  const auto [width, height] = image.size();
  return {image.pixels(), static_cast<std::size_t>(width) * static_cast<std::size_t>(height)};
}

}  // namespace

void turnIntoShadow(host::Bitmap& image, double sigma, const host::Rgba& color) {
  const auto all = pixels(image);
  std::vector<std::uint8_t> coverage(all.size());
  std::ranges::transform(all, coverage.begin(),
                         [](std::uint32_t pixel) { return static_cast<std::uint8_t>(pixel >> 24); });
  gaussianBlur(coverage, image.size().width, image.size().height, sigma);
  const Tints tint = tints(color);
  std::ranges::transform(coverage, all.begin(), [&](std::uint8_t amount) { return tint[amount]; });
}

}  // namespace bkuk
