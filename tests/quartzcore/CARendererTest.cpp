#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>

#include "tests/quartzcore/LayerWindow.h"

namespace bkuk {
namespace {

using host::PixelRect;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr auto infinity = std::numeric_limits<double>::infinity();
constexpr auto nan = std::numeric_limits<double>::quiet_NaN();

long areaOf(const std::vector<PixelRect>& rects) {
  long sum = 0;
  for (const auto& rect : rects) sum += static_cast<long>(rect.width) * rect.height;
  return sum;
}

TEST(CARenderer, PaintsTheWholeWindowFirstAndNothingWithoutAChange) {
  LayerWindow window(100, 60);
  window.add({10, 10, 20, 20}, red());
  EXPECT_THAT(window.update(), ElementsAre(PixelRect{0, 0, 100, 60}));
  EXPECT_EQ(window.pixel(15, 35), redPixel);
  EXPECT_EQ(window.pixel(5, 35), whitePixel);
  EXPECT_THAT(window.update(), IsEmpty());
  EXPECT_FALSE(window.renderer.hasDamage());
}

TEST(CARenderer, YRunsUpFromTheLowerEdgeUnlessTheRootIsFlipped) {
  LayerWindow window(40, 40);
  window.add({0, 0, 10, 10}, red());
  window.update();
  EXPECT_EQ(window.pixel(5, 35), redPixel);
  window.root->setGeometryFlipped(true);
  window.update();
  EXPECT_EQ(window.pixel(5, 5), redPixel);
  EXPECT_EQ(window.pixel(5, 35), whitePixel);
}

TEST(CARenderer, OneChangedLayerOfAThousandRepaintsItsOwnRectangleOnly) {
  LayerWindow window(1000, 400);
  std::vector<Ref<CALayer>> layers;
  for (int i = 0; i < 1000; ++i) layers.push_back(window.add({i % 40 * 25.0, i / 40 * 16.0, 20, 10}, red()));
  window.update();
  EXPECT_EQ(window.renderer.paintedLayerCount(), 1001U);
  layers[500]->setBackgroundColor(green());
  EXPECT_THAT(window.update(), ElementsAre(PixelRect{500, 400 - 192 - 10, 20, 10}));
  EXPECT_EQ(window.renderer.paintedLayerCount(), 1U);
}

TEST(CARenderer, AMovedLayerRepaintsWhereItWasAndWhereItIs) {
  LayerWindow window(200, 100);
  const auto box = window.add({10, 10, 20, 20}, red());
  window.add({5, 5, 5, 5}, green(), box);
  window.update();
  box->setPosition({150, 50});
  EXPECT_EQ(areaOf(window.update()), 2 * 20 * 20);
  EXPECT_EQ(window.pixel(15, 85), whitePixel);
  EXPECT_EQ(window.pixel(147, 52), greenPixel);
}

TEST(CARenderer, RemovingHidingAndReturningRepaintTheSubtree) {
  LayerWindow window(100, 100);
  const auto box = window.add({10, 10, 30, 30});
  window.add({40, 0, 10, 10}, red(), box);
  window.update();
  box->removeFromSuperlayer();
  EXPECT_THAT(window.update(), ElementsAre(PixelRect{50, 80, 10, 10}));
  window.root->addSublayer(box);
  EXPECT_THAT(window.update(), ElementsAre(PixelRect{50, 80, 10, 10}));
  box->setHidden(true);
  window.update();
  EXPECT_EQ(window.pixel(55, 85), whitePixel);
  box->sublayers()[0]->setPosition({10, 10});
  EXPECT_THAT(window.update(), IsEmpty()) << "nobody sees what moves in a hidden layer";
  box->setHidden(false);
  EXPECT_THAT(window.update(), ElementsAre(PixelRect{15, 75, 10, 10}));
}

TEST(CARenderer, CoveredLayersAreNotPainted) {
  LayerWindow window(100, 100);
  for (int i = 0; i < 10; ++i) window.add({20, 20, 30, 30}, red());
  window.add({10, 10, 80, 80}, green());
  window.update();
  EXPECT_EQ(window.renderer.paintedLayerCount(), 2U) << "the root's edge and the cover";
  window.root->sublayers().back()->setCornerRadius(4);
  window.update();
  EXPECT_EQ(window.renderer.paintedLayerCount(), 2U) << "a small corner still covers what lies inside";
  window.root->sublayers().back()->setOpacity(0.5);
  window.update();
  EXPECT_EQ(window.renderer.paintedLayerCount(), 3U) << "through a translucent cover one red box shows";
}

TEST(CARenderer, ZPositionDecidesBeforeTheOrderOfTheList) {
  LayerWindow window(20, 20);
  const auto lower = window.add({0, 0, 20, 20}, red());
  window.add({0, 0, 20, 20}, green());
  window.update();
  EXPECT_EQ(window.pixel(5, 5), greenPixel);
  lower->setZPosition(1);
  window.update();
  EXPECT_EQ(window.pixel(5, 5), redPixel);
  lower->setZPosition(nan);
  window.update();
  EXPECT_EQ(window.pixel(5, 5), greenPixel);
}

class AtFractionalScale : public testing::TestWithParam<double> {};

TEST_P(AtFractionalScale, EdgesAndBordersAreWholePixels) {
  LayerWindow window(61, 41, GetParam());
  for (int i = 0; i < 4; ++i) {
    const auto box = window.add({3 + i * 14.0, 5 + i / 3.0, 11, 21}, red());
    box->setBorderWidth(1);
  }
  window.update();
  const auto size = window.renderer.size();
  for (int y = 0; y < size.height; ++y) {
    for (int x = 0; x < size.width; ++x) {
      const auto pixel = window.pixel(x, y);
      ASSERT_TRUE(pixel == whitePixel || pixel == redPixel || pixel == blackPixel) << x << ", " << y;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Scales, AtFractionalScale, testing::Values(1, 1.25, 1.5, 1.75, 2));

TEST(CARenderer, ABorderOfOnePointIsEvenAllAround) {
  LayerWindow window(40, 40, 1.5);
  const auto box = window.add({5, 5, 21, 21});
  box->setBorderWidth(1);
  window.update();
  int runs[4] = {};
  for (int i = 0; i < 30; ++i) {
    runs[0] += window.pixel(i, 35) == blackPixel;
    runs[1] += window.pixel(59 - i, 35) == blackPixel;
    runs[2] += window.pixel(20, i) == blackPixel;
    runs[3] += window.pixel(20, 59 - i) == blackPixel;
  }
  EXPECT_THAT(runs, testing::Each(2));
}

TEST(CARenderer, TheFractionOfAPixelLiesBelowTheWindow) {
  LayerWindow window(20, 20);
  window.root->setFrame({0, 0, 301, 151});
  window.renderer.setSize({452, 227}, 1.5);
  window.add({0, 150, 10, 1}, red());
  window.update();
  EXPECT_EQ(window.pixel(0, 0), redPixel);
  EXPECT_EQ(window.pixel(0, 2), whitePixel);
}

TEST(CARenderer, AsksOnceForATurnUntilItWasServed) {
  LayerWindow window(50, 50);
  const auto box = window.add({0, 0, 10, 10}, red());
  window.update();
  int asked = 0;
  window.renderer.setChangeHandler([&] { ++asked; });
  box->setPosition({20, 20});
  box->setPosition({30, 20});
  box->setBackgroundColor(green());
  EXPECT_EQ(asked, 1);
  window.update();
  box->setOpacity(0.5);
  EXPECT_EQ(asked, 2);
}

TEST(CARenderer, NumbersThatMakeNoSensePaintNothingAndHarmNothing) {
  const std::vector<double> numbers{nan, infinity, -infinity, -30, 1e9, -1e9, 1e300, 0, 5e-324};
  LayerWindow window(64, 64);
  const auto box = window.add({10, 10, 20, 20}, red());
  const auto inner = window.add({5, 5, 5, 5}, green(), box);
  inner->setMasksToBounds(true);
  for (const auto number : numbers) {
    box->setBounds({0, number, number, 20});
    box->setCornerRadius(number);
    box->setBorderWidth(number);
    box->setShadowOpacity(number);
    box->setShadowRadius(number);
    box->setShadowOffset({number, 1});
    box->setNeedsDisplay();
    inner->setPosition({number, 4});
    inner->setAffineTransform(CGAffineTransform::scale(number, 1));
    inner->setOpacity(number);
    inner->setContentsScale(number);
    window.update();
    box->setPosition({number, number});
    window.update();
  }
  box->removeFromSuperlayer();
  window.update();
  EXPECT_EQ(window.pixel(20, 40), whitePixel);
  for (const auto number : numbers) window.renderer.setSize({10, 10}, number);
  window.update();
}

TEST(CARenderer, TenThousandNestedLayersNeedNeitherDepthNorMemory) {
  LayerWindow window(64, 64);
  auto innermost = window.root;
  for (int i = 0; i < 10'000; ++i) {
    innermost = window.add({0, 0, 64, 64}, nullptr, innermost);
    innermost->setCornerRadius(8);
    innermost->setMasksToBounds(true);
    innermost->setOpacity(0.9999);
    innermost->setShadowOpacity(0.5);
    innermost->setNeedsLayout();
    innermost->setNeedsDisplay();
  }
  innermost->setBackgroundColor(red());
  window.update();
  EXPECT_EQ(window.root->hitTest({32, 32}).get(), innermost.get());
  innermost->setBackgroundColor(green());
  EXPECT_FALSE(window.update().empty());
}

TEST(CARenderer, ALayerCannotBeTheRootOfTwoWindowsAndLeavesItsWindowWhenAdded) {
  LayerWindow window(20, 20);
  window.update();
  const auto other = make<CALayer>();
  other->addSublayer(window.root);
  EXPECT_EQ(window.renderer.layer(), nullptr);
  window.update();
  EXPECT_EQ(window.pixel(5, 5), 0U);
}

}  // namespace
}  // namespace bkuk
