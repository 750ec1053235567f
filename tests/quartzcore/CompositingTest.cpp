#include <cmath>
#include <gtest/gtest.h>
#include <numbers>

#include "tests/quartzcore/LayerWindow.h"

namespace bkuk {
namespace {

Ref<CALayerContents> solidContents(int width, int height, std::uint32_t pixel, double scale = 1) {
  host::Bitmap bitmap({width, height});
  bitmap.fill({0, 0, width, height}, pixel);
  return make<CALayerContents>(std::move(bitmap), scale);
}

TEST(Compositing, TheBorderLiesAboveContentsAndSublayers) {
  LayerWindow window(40, 40);
  const auto box = window.add({5, 5, 30, 30}, red());
  box->setContents(solidContents(30, 30, greenPixel));
  box->setBorderWidth(2);
  window.add({0, 0, 30, 30}, CGColor::white(), box);
  window.update();
  EXPECT_EQ(window.pixel(5, 20), blackPixel);
  EXPECT_EQ(window.pixel(6, 20), blackPixel);
  EXPECT_EQ(window.pixel(7, 20), whitePixel);
}

TEST(Compositing, CornersRoundTheBackgroundAlwaysAndSublayersOnlyWhenMasked) {
  LayerWindow window(40, 40);
  const auto box = window.add({0, 0, 40, 40}, red());
  box->setCornerRadius(15);
  window.update();
  EXPECT_EQ(window.pixel(0, 0), whitePixel);
  EXPECT_EQ(window.pixel(20, 0), redPixel);
  window.add({0, 0, 40, 40}, green(), box);
  window.update();
  EXPECT_EQ(window.pixel(0, 0), greenPixel);
  box->setMasksToBounds(true);
  window.update();
  EXPECT_EQ(window.pixel(0, 0), whitePixel);
  EXPECT_EQ(window.pixel(39, 39), whitePixel);
  EXPECT_EQ(window.pixel(20, 20), greenPixel);
}

TEST(Compositing, MaskedCornersFollowTheBoundsSpaceThroughFlipsAndTurns) {
  LayerWindow window(20, 20);
  const auto box = window.add({0, 0, 20, 20}, red());
  box->setCornerRadius(10);
  box->setMaskedCorners(CALayerMinXMinYCorner);
  window.update();
  EXPECT_EQ(window.pixel(0, 19), whitePixel) << "lower left where y points up";
  EXPECT_EQ(window.pixel(0, 0), redPixel);
  box->setGeometryFlipped(true);
  window.update();
  EXPECT_EQ(window.pixel(0, 0), whitePixel) << "upper left where y points down";
  EXPECT_EQ(window.pixel(0, 19), redPixel);
  box->setGeometryFlipped(false);
  box->setAffineTransform(CGAffineTransform::rotation(std::numbers::pi / 2));
  window.update();
  EXPECT_EQ(window.pixel(19, 19), whitePixel) << "a quarter turn takes the lower left to the lower right";
  EXPECT_EQ(window.pixel(0, 19), redPixel);
}

TEST(Compositing, AGroupIsFadedAsOne) {
  LayerWindow window(40, 40);
  const auto box = window.add({0, 0, 40, 40}, black());
  window.add({10, 10, 20, 20}, red(), box);
  box->setOpacity(0.5);
  window.update();
  EXPECT_NEAR(window.red(2, 2), 128, 1);
  EXPECT_NEAR(window.green(20, 20), 128, 1) << "black does not shine through red";
  EXPECT_EQ(window.red(20, 20), 255);
}

TEST(Compositing, TheMasksAlphaMultipliesTheLayerWithItsSublayers) {
  LayerWindow window(40, 40);
  const auto box = window.add({0, 0, 40, 40}, black());
  window.add({0, 0, 40, 20}, red(), box);
  const auto mask = make<CALayer>();
  mask->setFrame({0, 0, 20, 40});
  mask->setBackgroundColor(CGColor::srgb(0, 0, 1, 0.5));
  box->setMask(mask);
  window.update();
  EXPECT_EQ(window.pixel(30, 10), whitePixel);
  EXPECT_NEAR(window.red(10, 10), 128, 1);
  EXPECT_NEAR(window.green(10, 30), 128, 1);
  EXPECT_EQ(window.red(10, 30), 255);
}

TEST(Compositing, AChangeInsideAMaskRepaintsItsLayer) {
  LayerWindow window(40, 40);
  const auto box = window.add({0, 0, 30, 30}, red());
  const auto mask = make<CALayer>();
  const auto inner = make<CALayer>();
  mask->addSublayer(inner);
  inner->setBackgroundColor(black());
  box->setMask(mask);
  window.update();
  EXPECT_EQ(window.pixel(10, 30), whitePixel);
  inner->setFrame({0, 0, 20, 20});
  EXPECT_FALSE(window.update().empty());
  EXPECT_EQ(window.pixel(10, 30), redPixel);
  box->setMask(nullptr);
  window.update();
  EXPECT_EQ(window.pixel(25, 15), redPixel);
}

TEST(Compositing, ContentsFillTheBoundsUprightAlsoInFlippedLayers) {
  host::Bitmap bitmap({2, 2});
  bitmap.fill({0, 0, 2, 1}, redPixel);
  bitmap.fill({0, 1, 2, 1}, greenPixel);
  LayerWindow window(40, 40);
  const auto box = window.add({0, 0, 40, 40});
  box->setContents(make<CALayerContents>(std::move(bitmap)));
  for (const bool isFlipped : {false, true}) {
    box->setGeometryFlipped(isFlipped);
    window.update();
    EXPECT_GT(window.red(20, 3), 200);
    EXPECT_GT(window.green(20, 36), 200);
  }
}

TEST(Compositing, BitmapsOfTheDevicesScaleAreCopiedNotResampled) {
  LayerWindow window(40, 40, 1.5);
  host::Bitmap bitmap({15, 15});
  for (int y = 0; y < 15; ++y) {
    for (int x = 0; x < 15; ++x) bitmap.fill({x, y, 1, 1}, (x + y) % 2 ? blackPixel : redPixel);
  }
  const auto box = window.add({7, 9.2, 10, 10});
  box->setContents(make<CALayerContents>(std::move(bitmap), 1.5));
  window.update();
  int crisp = 0;
  for (int y = 0; y < 60; ++y) {
    for (int x = 0; x < 60; ++x) crisp += window.pixel(x, y) == blackPixel || window.pixel(x, y) == redPixel;
  }
  EXPECT_EQ(crisp, 15 * 15);
}

TEST(Compositing, AlignedChildrenOfRoundClipsAwayFromTheCornersNeedNoGroup) {
  LayerWindow window(100, 100);
  const auto box = window.add({0, 0, 100, 100}, red());
  box->setCornerRadius(10);
  box->setMasksToBounds(true);
  const auto inner = window.add({20, 20, 300, 20}, green(), box);
  window.update();
  EXPECT_EQ(window.pixel(99, 70), greenPixel);
  inner->setBackgroundColor(black());
  EXPECT_EQ(window.update(), (std::vector<host::PixelRect>{{20, 60, 80, 20}})) << "clipped to the bounds";
}

TEST(Compositing, TurnedLayersAreCutToTheirTurnedOutline) {
  LayerWindow window(60, 60);
  const auto box = window.add({20, 20, 20, 20}, red());
  box->setMasksToBounds(true);
  window.add({-20, -20, 60, 60}, green(), box);
  box->setAffineTransform(CGAffineTransform::rotation(std::numbers::pi / 4));
  window.update();
  EXPECT_EQ(window.pixel(30, 30), greenPixel);
  EXPECT_EQ(window.pixel(30, 18), greenPixel);
  EXPECT_EQ(window.pixel(21, 21), whitePixel);
}

// Repainting parts must give what painting everything gives.
TEST(Compositing, APartialRepaintLooksLikeAWholeOne) {
  LayerWindow window(80, 80, 1.25);
  const auto panel = window.add({5, 5, 70, 70}, CGColor::srgb(0.9, 0.9, 1));
  panel->setCornerRadius(12);
  panel->setMasksToBounds(true);
  panel->setBorderWidth(1);
  const auto faded = window.add({10, 10, 40, 40}, red(), panel);
  faded->setOpacity(0.6);
  faded->setShadowOpacity(0.7);
  const auto small = window.add({5, 5, 50, 9}, green(), faded);
  small->setCornerRadius(4);
  window.update();
  for (int step = 0; step < 40; ++step) {
    small->setPosition({15.0 + step, 20 + 15 * std::sin(step)});
    panel->setCornerRadius(12 + step % 3);
    window.update();
    std::vector<std::uint32_t> partial(window.renderer.image().pixels(),
                                       window.renderer.image().pixels() + 100 * 100);
    window.renderer.setNeedsRenderAll();
    window.update();
    for (int i = 0; i < 100 * 100; ++i) {
      ASSERT_EQ(partial[static_cast<std::size_t>(i)], window.renderer.image().pixels()[i])
          << step << ": " << i;
    }
  }
}

}  // namespace
}  // namespace bkuk
