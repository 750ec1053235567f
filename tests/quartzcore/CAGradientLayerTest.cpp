#include <gtest/gtest.h>
#include <limits>

#include "platform/quartzcore/CAGradientLayer.h"
#include "tests/quartzcore/LayerWindow.h"

namespace bkuk {
namespace {

struct CAGradientLayerPainting : testing::Test {
  CAGradientLayerPainting() {
    gradient->setFrame({0, 0, 80, 40});
    gradient->setColors({red(), green()});
    window.root->addSublayer(gradient);
    window.update();
  }

  // 0 for the first colour, 1 for the last.
  double way(int x, int y) {
    window.update();
    return window.green(x, y) / 255.0;
  }

  LayerWindow window{80, 40};
  Ref<CAGradientLayer> gradient = make<CAGradientLayer>();
};

TEST_F(CAGradientLayerPainting, RunsUpwardsUnlessSaidOtherwiseAndExtends) {
  EXPECT_NEAR(way(40, 20), 0.5, 0.05);
  EXPECT_LT(way(40, 38), 0.1);
  gradient->setStartPoint({0.25, 0.5});
  gradient->setEndPoint({0.75, 0.5});
  EXPECT_EQ(way(5, 20), 0);
  EXPECT_EQ(way(75, 20), 1);
  EXPECT_NEAR(way(40, 2), 0.5, 0.05);
}

TEST_F(CAGradientLayerPainting, ColoursRunAtRightAnglesToTheAxisInPoints) {
  gradient->setStartPoint({0, 0});
  gradient->setEndPoint({1, 1});
  // The axis goes (80, 40); (20, -40) from the middle is at right angles to it.
  EXPECT_NEAR(way(40 + 9, 20 + 18), way(40, 20), 0.03);
  EXPECT_NEAR(way(40, 20), 0.5, 0.03);
}

TEST_F(CAGradientLayerPainting, TheRadialEllipseEndsWhereItsHalfAxesSay) {
  gradient->setType(kCAGradientLayerRadial);
  gradient->setStartPoint({0.5, 0.5});
  gradient->setEndPoint({1, 0.75});
  EXPECT_LT(way(40, 20), 0.06);
  EXPECT_NEAR(way(60, 20), 0.5, 0.05);
  EXPECT_NEAR(way(40, 15), 0.5, 0.06);
  EXPECT_EQ(way(40, 5), 1);
}

TEST_F(CAGradientLayerPainting, ConicTurnsAboutTheStart) {
  gradient->setType(kCAGradientLayerConic);
  gradient->setStartPoint({0.5, 0.5});
  gradient->setEndPoint({1, 0.5});
  EXPECT_NEAR(way(40, 5), 0.25, 0.02);
  EXPECT_NEAR(way(5, 20), 0.5, 0.02);
  EXPECT_NEAR(way(40, 35), 0.75, 0.02);
}

TEST_F(CAGradientLayerPainting, FewAndNoColours) {
  gradient->setColors({green()});
  EXPECT_EQ(way(3, 3), 1);
  gradient->setColors({});
  EXPECT_EQ((window.update(), window.pixel(3, 3)), whitePixel);
  gradient->setBackgroundColor(red());
  EXPECT_EQ((window.update(), window.pixel(3, 3)), redPixel);
}

TEST_F(CAGradientLayerPainting, IsRoundedLikeABackground) {
  gradient->setCornerRadius(15);
  window.update();
  EXPECT_EQ(window.pixel(0, 0), whitePixel);
  EXPECT_EQ(window.pixel(79, 39), whitePixel);
  EXPECT_NE(window.pixel(40, 0), whitePixel);
}

TEST_F(CAGradientLayerPainting, ThePartThatIsDamagedLooksAsInTheWhole) {
  gradient->setCornerRadius(9);
  const auto cover = window.add({0, 0, 3, 3}, black());
  for (const auto angle : {0.0, 0.7}) {
    gradient->setAffineTransform(CGAffineTransform::rotation(angle));
    for (int i = 0; i < 300; ++i) {
      cover->setFrame({i % 20 * 4.0, i / 20 * 2.6, 3, 3});
      window.update();
    }
    const auto picture = [&] {
      const auto& image = window.renderer.image();
      return std::vector(image.pixels(), image.pixels() + 80 * 40);
    };
    cover->setHidden(true);
    window.update();
    const auto inParts = picture();
    window.renderer.setNeedsRenderAll();
    window.update();
    EXPECT_EQ(inParts, picture());
    cover->setHidden(false);
  }
}

TEST_F(CAGradientLayerPainting, OddLocationsAndPointsDoNoHarm) {
  constexpr auto nan = std::numeric_limits<double>::quiet_NaN();
  constexpr auto infinity = std::numeric_limits<double>::infinity();
  gradient->setColors({red(), green(), red()});
  gradient->setLocations(std::vector<CGFloat>{0.8, 0.2, 0.5});
  window.update();
  gradient->setLocations(std::vector<CGFloat>{nan, infinity});
  window.update();
  for (const auto type : {kCAGradientLayerAxial, kCAGradientLayerRadial, kCAGradientLayerConic}) {
    gradient->setType(type);
    for (const auto number : {nan, infinity, -infinity, 1e12, 0.5}) {
      gradient->setStartPoint({number, 0.5});
      gradient->setEndPoint({0.5, 0.5});
      window.update();
    }
  }
  gradient->setType(kCAGradientLayerAxial);
  gradient->setColors({red(), green()});
  gradient->setLocations(std::nullopt);
  EXPECT_EQ(way(40, 20), 1) << "start and end at one point leave the last colour";
}

}  // namespace
}  // namespace bkuk
