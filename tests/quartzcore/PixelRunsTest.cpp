#include <gtest/gtest.h>
#include <random>
#include <vector>

#include "platform/quartzcore/raster/PixelRuns.h"

namespace bkuk {
namespace {

// Runs of every length up to a few times what is calculated with side by side, against one pixel at a time.
TEST(PixelRuns, EqualOnePixelAtATime) {
  std::mt19937 random(3);
  const auto any = [&](int most) { return std::uniform_int_distribution(0, most)(random); };
  const auto pixel = [&] {
    const auto alpha = any(255);
    const auto part = [&] { return static_cast<Pixel>(any(alpha)); };
    return static_cast<Pixel>(alpha) << 24 | part() << 16 | part() << 8 | part();
  };
  for (int round = 0; round < 600; ++round) {
    const int count = round % 40;
    std::vector<Pixel> below(50);
    std::vector<Pixel> image(50);
    std::vector<std::uint8_t> coverages(50);
    for (auto& each : below) each = pixel();
    for (auto& each : image) each = pixel();
    for (auto& each : coverages) each = static_cast<std::uint8_t>(any(2) == 0 ? any(1) * 255 : any(255));
    const auto color = round % 3 == 0 ? pixel() & 0xff000000 : pixel();
    const auto alpha = static_cast<std::uint32_t>(any(3) == 0 ? 255 : any(255));
    auto filled = below, covered = below, painted = below;
    paintOver(filled.data(), count, color);
    paintCovered(covered.data(), coverages.data(), count, color);
    paintImage(painted.data(), image.data(), count, alpha);
    for (std::size_t i = 0; i < below.size(); ++i) {
      const bool isInside = i < static_cast<std::size_t>(count);
      ASSERT_EQ(filled[i], isInside ? over(color, below[i]) : below[i]);
      ASSERT_EQ(covered[i], isInside ? over(scaled(color, coverages[i]), below[i]) : below[i]);
      ASSERT_EQ(painted[i], isInside ? over(scaled(image[i], alpha), below[i]) : below[i]);
    }
  }
}

}  // namespace
}  // namespace bkuk
