#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <numeric>
#include <vector>

#include "platform/coregraphics/GaussianBlur.h"

namespace bkuk {
namespace {

struct Plane {
  Plane(int planeWidth, int planeHeight)
      : width(planeWidth), height(planeHeight), pixels(static_cast<std::size_t>(width) * height) {}
  std::uint8_t& at(int x, int y) { return pixels[static_cast<std::size_t>(y) * width + x]; }
  void fill(int left, int top, int right, int bottom) {
    for (int y = top; y < bottom; ++y) std::fill_n(&at(left, y), right - left, std::uint8_t{255});
  }

  int width;
  int height;
  std::vector<std::uint8_t> pixels;
};

// What a Gaussian makes of a covered interval.
double smoothed(double from, double to, double at, double sigma) {
  const double scale = sigma * std::sqrt(2);
  return (std::erf((to - at) / scale) - std::erf((from - at) / scale)) / 2;
}

TEST(GaussianBlur, StaysCloseToAGaussian) {
  for (const double sigma : {1.0, 2.5, 5.0, 10.0, 31.0}) {
    const int margin = blurReach(sigma);
    Plane plane(60 + 2 * margin, 37 + 2 * margin);
    plane.fill(margin, margin, margin + 60, margin + 37);
    gaussianBlur(plane.pixels, plane.width, plane.height, sigma);
    for (int y = 0; y < plane.height; ++y) {
      for (int x = 0; x < plane.width; ++x) {
        const double expected = 255 * smoothed(margin, margin + 60, x + 0.5, sigma) *
                                smoothed(margin, margin + 37, y + 0.5, sigma);
        ASSERT_NEAR(plane.at(x, y), expected, 6) << sigma << ' ' << x << ' ' << y;
      }
    }
  }
}

TEST(GaussianBlur, KeepsTheAmountThatFits) {
  const double sigma = 4;
  const int margin = blurReach(sigma);
  Plane plane(40 + 2 * margin, 40 + 2 * margin);
  plane.fill(margin, margin, margin + 40, margin + 40);
  const auto sum = [&] { return std::accumulate(plane.pixels.begin(), plane.pixels.end(), 0.0); };
  const double before = sum();
  gaussianBlur(plane.pixels, plane.width, plane.height, sigma);
  EXPECT_NEAR(sum() / before, 1, 0.002);
  EXPECT_EQ(plane.at(0, margin), 0);
}

TEST(GaussianBlur, StandsEverySigma) {
  for (const double sigma : {0.0, -1.0, std::nan(""), 1e-9, 1e300, HUGE_VAL}) {
    Plane plane(3, 5);
    plane.fill(0, 0, 3, 5);
    gaussianBlur(plane.pixels, plane.width, plane.height, sigma);
    EXPECT_EQ(plane.at(1, 2) == 255, !(sigma > 1e-3)) << sigma;
    EXPECT_LT(blurReach(sigma), 1000);
  }
}

}  // namespace
}  // namespace bkuk
