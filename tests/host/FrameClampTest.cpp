#include <cmath>
#include <gtest/gtest.h>
#include <limits>

#include "host/FrameClamp.h"
#include "host/Window.h"

namespace bkuk::host {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

TEST(FrameClamp, LeavesOrdinaryFramesAlone) {
  constexpr Rect frame{-20, 30.5, 640, 480.25};
  EXPECT_EQ(clampedFrame(frame), frame);
}

TEST(FrameClamp, MakesEverySizeOneThatAWindowCanHave) {
  for (const double side : {-infinity, -1e9, -1.0, 0.0, 0.3, 1e9, infinity, std::nan("")}) {
    const auto [width, height] = clampedSize({side, side});
    EXPECT_GE(width, 1) << side;
    EXPECT_LE(height, Window::maxSide) << side;
  }
}

TEST(FrameClamp, KeepsTheOriginFinite) {
  EXPECT_EQ(clampedFrame({std::nan(""), infinity, 10, 10}), (Rect{0, Window::maxSide, 10, 10}));
}

}  // namespace
}  // namespace bkuk::host
