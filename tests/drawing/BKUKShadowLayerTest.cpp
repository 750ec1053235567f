#include <gmock/gmock.h>
#include <limits>

#include "BrenvikUIKit/drawing/BKUKShadowLayer.h"
#include "platform/quartzcore/CABasicAnimation.h"
#include "tests/drawing/WindowFixture.h"

namespace bkuk {
namespace {

/// A red shadow of a plate from (60, 30) to (140, 70).
class BKUKShadowLayerTest : public WindowFixture {
 public:
  BKUKShadowLayerTest() {
    layer->setFrame({0, 0, width, height});
    layer->setClipShadowPath(plate);
    layer->setClipShadowColor(NSColor::red());
    layer->setClipShadowRadius(10);
    layer->setClipShadowOpacity(1);
    show(layer);
  }

  Ref<CGPath> plate = CGPath::rect({60, 30, 80, 40});
  Ref<BKUKShadowLayer> layer = make<BKUKShadowLayer>();
};

TEST_F(BKUKShadowLayerTest, AnOuterShadowLeavesTheShapeFree) {
  EXPECT_GT(red(56, 50), 40);
  EXPECT_EQ(red(62, 50), 0);
  EXPECT_EQ(red(100, 50), 0);
  EXPECT_EQ(red(30, 50), 0);
}

TEST_F(BKUKShadowLayerTest, AnInnerShadowKeepsToTheShape) {
  layer->setClipShadowType(BKUKShadowType::inner);
  EXPECT_EQ(red(57, 50), 0);
  EXPECT_GT(red(62, 50), 40);
  EXPECT_EQ(red(100, 50), 0) << "far from every edge";
}

TEST_F(BKUKShadowLayerTest, TheOffsetMovesItWithYUp) {
  layer->setClipShadowOffset({0, -12});
  EXPECT_GT(red(100, 22), 100);
  EXPECT_EQ(red(100, 78), 0);
  layer->setClipShadowType(BKUKShadowType::inner);
  EXPECT_GT(red(100, 66), 100) << "the upper edge casts it downwards";
  EXPECT_EQ(red(100, 34), 0);
}

TEST_F(BKUKShadowLayerTest, OpacityScalesTheShadow) {
  const int whole = red(56, 50);
  layer->setClipShadowOpacity(0.5);
  EXPECT_NEAR(red(56, 50), whole / 2.0, 2);
}

TEST_F(BKUKShadowLayerTest, DrawsNothingWithoutAllOfItsParts) {
  const auto isDark = [this] { return red(56, 50) == 0; };
  layer->setClipShadowColor(nullptr);
  EXPECT_TRUE(isDark());
  layer->setClipShadowColor(NSColor::red());
  EXPECT_FALSE(isDark());
  layer->setClipShadowOpacity(0);
  EXPECT_TRUE(isDark());
  layer->setClipShadowOpacity(1);
  layer->setClipShadowPath(nullptr);
  EXPECT_TRUE(isDark());
}

TEST_F(BKUKShadowLayerTest, StandsOddValues) {
  for (const auto type : {BKUKShadowType::outer, BKUKShadowType::inner}) {
    layer->setClipShadowType(type);
    for (const CGFloat odd : {std::nan(""), std::numeric_limits<CGFloat>::infinity(), -5.0}) {
      layer->setClipShadowRadius(odd);
      host->settle();
      layer->setClipShadowRadius(3);
      layer->setClipShadowOffset({odd, -1e18});
      host->settle();
      layer->setClipShadowOffset({});
    }
    layer->setClipShadowPath(make<CGPath>());
    layer->setFrame({});
    host->settle();
    layer->setFrame({0, 0, width, height});
    EXPECT_EQ(red(56, 50), 0) << "an empty path";
    layer->setClipShadowPath(plate);
  }
}

TEST_F(BKUKShadowLayerTest, AnimatesUnderItsKeys) {
  for (const char* key : {"_color", "_radius", "_offset", "_opacity"}) EXPECT_TRUE(layer->needsDisplay(key));
  EXPECT_FALSE(layer->needsDisplay("clipShadowRadius"));
  CABasicAnimation fade("_opacity");
  fade.setFromValue(0.0);
  fade.setToValue(1.0);
  fade.setDuration(1);
  fade.setTimingFunction(make<CAMediaTimingFunction>(kCAMediaTimingFunctionLinear));
  const int whole = red(56, 50);
  layer->add(fade, "fade");
  host->settle();
  host->advance(0.5);
  EXPECT_NEAR(red(56, 50), whole / 2.0, 5);
  host->advance(1);
  EXPECT_EQ(red(56, 50), whole);
}

TEST_F(BKUKShadowLayerTest, ThePresentationCopyHasAllOfIt) {
  layer->setShadowFrame({1, 2, 3, 4});
  layer->setRoundedFrame({5, 6, 7, 8});
  layer->setClipShadowType(BKUKShadowType::inner);
  host->settle();
  const auto copy = as<BKUKShadowLayer>(layer->presentation());
  ASSERT_TRUE(copy);
  EXPECT_EQ(copy->clipShadowType(), BKUKShadowType::inner);
  EXPECT_EQ(copy->clipShadowPath(), layer->clipShadowPath());
  EXPECT_EQ(copy->clipShadowColor(), NSColor::red());
  EXPECT_EQ(copy->clipShadowRadius(), 10);
  EXPECT_EQ(copy->shadowFrame(), CGRect(1, 2, 3, 4));
  EXPECT_EQ(copy->roundedFrame(), CGRect(5, 6, 7, 8));
}

}  // namespace
}  // namespace bkuk
