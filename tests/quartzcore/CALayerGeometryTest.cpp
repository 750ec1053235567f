#include <gtest/gtest.h>
#include <numbers>
#include <random>

#include "platform/quartzcore/CALayer.h"

namespace bkuk {
namespace {

void expectNear(CGPoint a, CGPoint b) {
  EXPECT_NEAR(a.x, b.x, 1e-9);
  EXPECT_NEAR(a.y, b.y, 1e-9);
}

void expectNear(const CGRect& a, const CGRect& b) {
  expectNear(a.origin, b.origin);
  EXPECT_NEAR(a.size.width, b.size.width, 1e-9);
  EXPECT_NEAR(a.size.height, b.size.height, 1e-9);
}

TEST(CALayerGeometry, TheFrameFollowsBoundsPositionAnchorAndTransform) {
  const auto layer = make<CALayer>();
  layer->setBounds({5, 7, 20, 10});
  layer->setPosition({100, 100});
  EXPECT_EQ(layer->frame(), CGRect(90, 95, 20, 10));
  layer->setAnchorPoint({0, 1});
  EXPECT_EQ(layer->frame(), CGRect(100, 90, 20, 10));
  layer->setAffineTransform(CGAffineTransform::rotation(std::numbers::pi / 2));
  expectNear(layer->frame(), {100, 100, 10, 20});
}

TEST(CALayerGeometry, SettingTheFrameKeepsTheOriginOfTheBounds) {
  const auto layer = make<CALayer>();
  layer->setBounds({5, 7, 1, 1});
  layer->setAnchorPoint({0.25, 0.75});
  layer->setFrame({10, 20, 40, 80});
  EXPECT_EQ(layer->frame(), CGRect(10, 20, 40, 80));
  EXPECT_EQ(layer->bounds(), CGRect(5, 7, 40, 80));
  EXPECT_EQ(layer->position(), (CGPoint{20, 80}));
}

TEST(CALayerGeometry, FlippingTurnsTheBoundsSpaceOver) {
  const auto outer = make<CALayer>();
  const auto inner = make<CALayer>();
  outer->setFrame({10, 10, 100, 100});
  outer->setGeometryFlipped(true);
  outer->addSublayer(inner);
  inner->setFrame({20, 0, 10, 30});
  expectNear(inner->convertPointTo({0, 0}, nullptr), {30, 110});
  EXPECT_TRUE(inner->contentsAreFlipped());
  inner->setGeometryFlipped(true);
  EXPECT_FALSE(inner->contentsAreFlipped());
  expectNear(inner->convertPointTo({0, 0}, outer.get()), {20, 30});
}

TEST(CALayerGeometry, ConvertingThereAndBackIsNoChange) {
  std::mt19937 random(3);
  const auto any = [&](double low, double high) { return std::uniform_real_distribution(low, high)(random); };
  for (int round = 0; round < 50; ++round) {
    const auto root = make<CALayer>();
    std::vector<Ref<CALayer>> layers{root};
    for (int i = 0; i < 8; ++i) {
      const auto layer = make<CALayer>();
      layers[static_cast<std::size_t>(any(0, 0.99) * i)]->addSublayer(layer);
      layer->setBounds({any(-9, 9), any(-9, 9), any(1, 90), any(1, 90)});
      layer->setPosition({any(-50, 50), any(-50, 50)});
      layer->setAnchorPoint({any(-1, 2), any(-1, 2)});
      layer->setGeometryFlipped(any(0, 1) < 0.5);
      layer->setAffineTransform(CGAffineTransform::rotation(any(0, 6)).scaledBy(any(0.5, 2), any(0.5, 2)));
      layers.push_back(layer);
    }
    const auto& a = *layers[3];
    const auto& b = *layers[7];
    const CGPoint point{any(-99, 99), any(-99, 99)};
    expectNear(a.convertPointFrom(a.convertPointTo(point, &b), &b), point);
    expectNear(a.convertPointTo(point, &b), b.convertPointFrom(point, &a));
  }
}

TEST(CALayerGeometry, HitTestingGoesFrontToBackAndDescends) {
  const auto root = make<CALayer>();
  const auto back = make<CALayer>();
  const auto front = make<CALayer>();
  const auto child = make<CALayer>();
  root->setFrame({0, 0, 100, 100});
  back->setFrame({10, 10, 50, 50});
  front->setFrame({20, 20, 50, 50});
  child->setFrame({40, 40, 50, 50});
  root->setSublayers({back, front});
  front->addSublayer(child);
  EXPECT_EQ(root->hitTest({15, 15}), back);
  EXPECT_EQ(root->hitTest({30, 30}), front);
  EXPECT_EQ(root->hitTest({65, 65}), child);
  EXPECT_EQ(root->hitTest({85, 85}), root) << "outside its superlayer the child is not asked";
  EXPECT_EQ(root->hitTest({100, 50}), nullptr);
  front->setHidden(true);
  EXPECT_EQ(root->hitTest({30, 30}), back);
  front->setHidden(false);
  back->setZPosition(1);
  EXPECT_EQ(root->hitTest({30, 30}), back);
}

struct CALayerAutoresizing : testing::Test {
  // The frame that a sublayer at (20, 30), 40 × 50 has after its superlayer went from 100 × 100 to 200 × 160.
  static CGRect resized(unsigned mask, CGAffineTransform transform = {}) {
    const auto outer = make<CALayer>();
    const auto inner = make<CALayer>();
    outer->setFrame({0, 0, 100, 100});
    outer->addSublayer(inner);
    inner->setFrame({20, 30, 40, 50});
    inner->setAutoresizingMask(mask);
    inner->setAffineTransform(transform);
    outer->setBounds({0, 0, 200, 160});
    inner->setAffineTransform({});
    return inner->frame();
  }
};

TEST_F(CALayerAutoresizing, FlexiblePiecesShareTheGrowthInProportion) {
  expectNear(resized(CALayerNotSizable), CGRect(20, 30, 40, 50));
  expectNear(resized(CALayerWidthSizable | CALayerHeightSizable), CGRect(20, 30, 140, 110));
  expectNear(resized(CALayerMinXMargin | CALayerMaxYMargin), CGRect(120, 30, 40, 50));
  expectNear(resized(CALayerMinXMargin | CALayerMaxXMargin), CGRect(20 + 100 / 3.0, 30, 40, 50));
  expectNear(resized(CALayerMinYMargin | CALayerHeightSizable), CGRect(20, 30 + 22.5, 40, 50 + 37.5));
}

TEST_F(CALayerAutoresizing, TheTransformDoesNotMatter) {
  expectNear(resized(CALayerWidthSizable, CGAffineTransform::rotation(1)), CGRect(20, 30, 140, 50));
}

TEST_F(CALayerAutoresizing, PiecesWithoutLengthShareEqually) {
  const auto outer = make<CALayer>();
  const auto inner = make<CALayer>();
  outer->addSublayer(inner);
  inner->setAutoresizingMask(CALayerMinXMargin | CALayerWidthSizable);
  outer->setBounds({0, 0, 100, 0});
  EXPECT_EQ(inner->frame(), CGRect(50, 0, 50, 0));
}

}  // namespace
}  // namespace bkuk
