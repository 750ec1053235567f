#include <gtest/gtest.h>
#include <limits>

#include "platform/coregraphics/CGMutablePath.h"
#include "platform/quartzcore/CAShapeLayer.h"
#include "tests/quartzcore/LayerWindow.h"

namespace bkuk {
namespace {

struct CAShapeLayerPainting : testing::Test {
  CAShapeLayerPainting() {
    shape->setFrame({10, 10, 40, 40});
    shape->setFillColor(nullptr);
    window.root->addSublayer(shape);
  }

  void setLine(CGPoint from, CGPoint to) {
    const auto path = make<CGMutablePath>();
    path->move(from);
    path->addLine(to);
    shape->setPath(path);
  }
  [[nodiscard]] bool isPainted(int x, int y) {
    window.update();
    return window.pixel(x, y) != whitePixel;
  }

  LayerWindow window{60, 60};
  Ref<CAShapeLayer> shape = make<CAShapeLayer>();
};

TEST_F(CAShapeLayerPainting, ThePathIsNotCutToTheBounds) {
  shape->setFillColor(red());
  shape->setPath(CGPath::rect({30, 30, 20, 20}));
  EXPECT_TRUE(isPainted(58, 2));
  shape->setMasksToBounds(true);
  EXPECT_FALSE(isPainted(58, 2));
  EXPECT_TRUE(isPainted(45, 15));
}

TEST_F(CAShapeLayerPainting, TheRuleDecidesAboutHoles) {
  const auto path = make<CGMutablePath>();
  path->addRect({0, 0, 40, 40});
  path->addRect({10, 10, 20, 20});
  shape->setFillColor(red());
  shape->setPath(path);
  EXPECT_TRUE(isPainted(30, 30));
  shape->setFillRule(kCAFillRuleEvenOdd);
  EXPECT_FALSE(isPainted(30, 30));
}

TEST_F(CAShapeLayerPainting, ThePathOfTheSetterIsKept) {
  const auto path = make<CGMutablePath>();
  path->addRect({0, 0, 10, 10});
  shape->setFillColor(red());
  shape->setPath(path);
  path->addRect({20, 20, 10, 10});
  EXPECT_FALSE(isPainted(35, 25));
}

TEST_F(CAShapeLayerPainting, StrokeStartAndEndTrimBeforeTheDashes) {
  setLine({0, 20}, {40, 20});
  shape->setStrokeColor(red());
  shape->setLineWidth(4);
  EXPECT_TRUE(isPainted(12, 30));
  shape->setStrokeStart(0.5);
  EXPECT_FALSE(isPainted(25, 30));
  EXPECT_TRUE(isPainted(31, 30));
  shape->setLineDashPattern(std::vector<CGFloat>{5});
  EXPECT_TRUE(isPainted(32, 30)) << "the first dash begins at the trimmed start";
  EXPECT_FALSE(isPainted(37, 30));
  EXPECT_TRUE(isPainted(42, 30));
}

TEST_F(CAShapeLayerPainting, DamageCoversStrokesAndMiters) {
  const auto path = make<CGMutablePath>();
  path->move({0, 0});
  path->addLine({30, 4});
  path->addLine({0, 8});
  shape->setStrokeColor(red());
  shape->setLineWidth(6);
  shape->setPath(path);
  window.update();
  shape->removeFromSuperlayer();
  window.update();
  for (int y = 0; y < 60; ++y) {
    for (int x = 0; x < 60; ++x) ASSERT_EQ(window.pixel(x, y), whitePixel) << x << ", " << y;
  }
}

TEST_F(CAShapeLayerPainting, OddPatternsAndNumbersAreKeptAndDrawWithoutHarm) {
  constexpr auto infinity = std::numeric_limits<double>::infinity();
  constexpr auto nan = std::numeric_limits<double>::quiet_NaN();
  setLine({-1e6, 20}, {1e6, 20});
  shape->setStrokeColor(red());
  const std::vector<std::vector<CGFloat>> patterns{
      {}, {0}, {0, 0}, {infinity}, {nan, 2}, {-5, 5}, {1e-9, 1e-9}, {0.01, infinity}, {3, -infinity}};
  for (const auto& pattern : patterns) {
    shape->setLineDashPattern(pattern);
    for (const auto number : {0.0, nan, infinity, -1.0}) {
      shape->setLineDashPhase(number);
      shape->setStrokeEnd(number);
      shape->setMiterLimit(number);
      window.update();
    }
    EXPECT_EQ(shape->lineDashPattern()->size(), pattern.size());
  }
  shape->setLineDashPattern(std::nullopt);
  for (const auto number : {nan, infinity, -3.0, 1e12}) {
    shape->setLineWidth(number);
    window.update();
  }
}

}  // namespace
}  // namespace bkuk
