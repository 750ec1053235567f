#include <gmock/gmock.h>
#include <limits>

#include "BrenvikUIKit/animation/BKUKAnimate.h"
#include "BrenvikUIKit/drawing/BKUKShape.h"
#include "BrenvikUIKit/drawing/BKUKShapeComputable.h"
#include "BrenvikUIKit/drawing/BKUKShapeLayer.h"
#include "platform/coregraphics/CGMutablePath.h"
#include "platform/quartzcore/CABasicAnimation.h"
#include "tests/drawing/WindowFixture.h"
#include "tests/support/StopLine.h"

namespace bkuk {
namespace {

using Modification = BKUKLinePatternModification;
using testing::DoubleNear;
using testing::ElementsAre;
using testing::Optional;
using testing::StartsWith;

constexpr CGFloat infinity = std::numeric_limits<CGFloat>::infinity();

Ref<CGPath> middleLine(BKUKShape& shape) {
  auto path = make<CGMutablePath>();
  path->move({shape.bounds().minX(), shape.bounds().midY()});
  path->addLine({shape.bounds().maxX(), shape.bounds().midY()});
  return path;
}

CGFloat lengthOfMiddleLine(BKUKShape& shape) { return shape.bounds().width(); }

class BKUKShapeTest : public WindowFixture {
 public:
  BKUKShapeTest() { layer->setFrame({0, 0, 100, 20}); }

  /// A shape that draws a white line of 4 points across the layer.
  void drawLine(std::vector<CGFloat> pattern = {}) {
    shape->setPath(middleLine);
    shape->setPathLength(lengthOfMiddleLine);
    shape->setStroke(NSColor::white(), 4, CGLineCap::butt, CGLineJoin::miter, std::move(pattern), 0);
  }

  Ref<BKUKShapeLayer> layer = make<BKUKShapeLayer>();
  Ref<BKUKShape> shape = layer->shape();
};

// Updating

TEST_F(BKUKShapeTest, ComputesTheFrameFirstFromTheBoundsOfBefore) {
  std::vector<CGRect> seen;
  shape->setFrame([&](BKUKShape& each) {
    seen.push_back(each.bounds());
    return CGRect(10, 10, 60, 30);
  });
  shape->setCornerRadius([&](BKUKShape& each) {
    seen.push_back(each.bounds());
    return 7.0;
  });
  shape->updateComputables();
  EXPECT_THAT(seen, ElementsAre(CGRect(), CGRect(0, 0, 60, 30)));
  EXPECT_EQ(layer->frame(), CGRect(10, 10, 60, 30));
  EXPECT_EQ(layer->cornerRadius(), 7);
}

TEST_F(BKUKShapeTest, OnlyTheFrameIsComputedWhileNothingElseChanged) {
  int pathCalls = 0;
  CGRect frame(0, 0, 50, 50);
  shape->setFrame([&](BKUKShape&) { return frame; });
  shape->setPath([&](BKUKShape& each) {
    ++pathCalls;
    return middleLine(each);
  });
  shape->updateComputables();
  frame.origin.x = 30;
  shape->updateComputables();
  EXPECT_EQ(pathCalls, 1);
  EXPECT_EQ(layer->frame().minX(), 30);
  frame.size.width = 60;
  shape->updateComputables();
  EXPECT_EQ(pathCalls, 2) << "another size";
  shape->setPathLoops(true);
  shape->updateComputables();
  EXPECT_EQ(pathCalls, 3) << "marked";
}

TEST_F(BKUKShapeTest, WhatAComputableMarksIsDealtWithWhenTheUpdateEnds) {
  shape->setPath([](BKUKShape& each) {
    each.setPath({});
    return middleLine(each);
  });
  shape->updateComputables();
  EXPECT_TRUE(layer->path());
  EXPECT_FALSE(shape->needsUpdateComputable());
}

TEST_F(BKUKShapeTest, AComputableMayDropTheLayerAndTheShape) {
  shape->setCornerRadius([this](BKUKShape&) {
    layer = nullptr;
    shape = nullptr;
    return 3.0;
  });
  const Ref<BKUKShapeLayer> lastOwner = layer;
  lastOwner->display();
  EXPECT_EQ(lastOwner->cornerRadius(), 3);
}

TEST_F(BKUKShapeTest, GeometryMarksAndTheLineWidthDoesNot) {
  const auto marks = [this](auto change) {
    shape->updateComputables();
    layer->displayIfNeeded();
    change();
    return shape->needsUpdateComputable() && layer->needsDisplay();
  };
  EXPECT_FALSE(marks([this] { shape->setLineWidth(5); }));
  EXPECT_FALSE(marks([this] { shape->setStrokeColor(NSColor::red()); }));
  EXPECT_TRUE(marks([this] { drawLine(); }));
  EXPECT_TRUE(marks([this] { shape->setLinePatternCount(3); }));
  EXPECT_TRUE(marks([this] { shape->setLinePatternModification(Modification::none); }));
  EXPECT_TRUE(marks([this] { shape->apply({.width = 1}); }));
}

// Dashes

TEST_F(BKUKShapeTest, FitsThePatternToTheComputedLength) {
  drawLine({4, 2});
  shape->updateComputables();
  EXPECT_THAT(layer->lineDashPattern(), Optional(ElementsAre(4, DoubleNear(2.4, 1e-9))));
  shape->setLinePattern({});
  shape->updateComputables();
  EXPECT_EQ(layer->lineDashPattern(), std::nullopt);
}

TEST_F(BKUKShapeTest, AsksForNoLengthThatItDoesNotNeed) {
  drawLine({4, 2});
  int calls = 0;
  shape->setPathLength([&](BKUKShape&) { return ++calls, 100.0; });
  shape->setLinePatternModification(Modification::none);
  shape->updateComputables();
  EXPECT_EQ(calls, 0);
  EXPECT_THAT(layer->lineDashPattern(), Optional(ElementsAre(4, 2)));
}

TEST_F(BKUKShapeTest, WithoutAComputedPathNeitherPathNorDashesReachTheLayer) {
  const auto own = CGPath::rect({0, 0, 5, 5});
  layer->setPath(own);
  shape->setLinePattern({{4, 2}});
  shape->setPath([](BKUKShape&) { return nullptr; });
  shape->updateComputables();
  EXPECT_TRUE(layer->path()->isEqual(own.get()));
  EXPECT_EQ(layer->lineDashPattern(), std::nullopt);
}

/// Where the middle line turns from black to white and back, as seen in the window.
std::vector<bool> litPixels(const std::function<int(int x)>& red, int count) {
  std::vector<bool> lit;
  lit.reserve(static_cast<std::size_t>(count));
  for (int x = 0; x < count; ++x) lit.push_back(red(x) > 127);
  return lit;
}

TEST_F(BKUKShapeTest, EndsWithADashAtEverySizeOfTheWindow) {
  layer->setFrame({0, 0, width, 20});
  drawLine({9, 6});
  show(layer);
  for (CGFloat size = 60; size <= 200; size += 7) {
    window->contentView()->layer()->setBounds({0, 0, size, height});
    layer->setFrame({0, 0, size, 20});
    const int end = static_cast<int>(size);
    const auto lit = litPixels([this](int x) { return red(x, 10); }, end);
    EXPECT_TRUE(lit.front());
    int lastDash = 0;
    while (lastDash < end && lit[static_cast<std::size_t>(end - 1 - lastDash)]) ++lastDash;
    EXPECT_NEAR(lastDash, 9, 1) << "a whole one at " << size;
  }
}

TEST_F(BKUKShapeTest, DrawsPatternsOutOfAnyMeasureWithoutHarm) {
  drawLine({4, 2});
  show(layer);
  shape->setLinePatternCount(1);
  EXPECT_EQ(pixel(2, 10), whitePixel) << "the dash before the infinite space";
  EXPECT_EQ(pixel(50, 10), blackPixel);
  EXPECT_THAT(layer->lineDashPattern(), Optional(ElementsAre(4, infinity)));
  shape->setLinePatternModification(Modification::none);
  for (const CGFloat odd : {std::nan(""), infinity, -3.0, 1e-300, 1e300}) {
    shape->setLinePattern({{odd, odd}});
    host->settle();
    ASSERT_EQ(layer->lineDashPattern()->size(), 2U);
  }
}

// Style

TEST_F(BKUKShapeTest, TakesStrokeAndShadowFromAStyle) {
  shape->setLineJoin(CGLineJoin::bevel);
  shape->apply({.color = NSColor::red(),
                .cap = CGLineCap::square,
                .phase = 5,
                .patternModification = Modification::resizePatternSpaces,
                .patternCount = 7,
                .shadowColor = NSColor::blue(),
                .shadowOpacity = 0.5});
  EXPECT_TRUE(shape->strokeColor()->cgColor()->isEqual(NSColor::red()->cgColor().get()));
  EXPECT_EQ(layer->lineCap(), kCALineCapSquare);
  EXPECT_EQ(shape->lineJoin(), CGLineJoin::miter);
  EXPECT_EQ(layer->lineDashPhase(), 5);
  EXPECT_EQ(shape->linePatternModification(), Modification::resizePatternSpaces);
  EXPECT_EQ(shape->linePatternCount(), 7);
  EXPECT_TRUE(layer->shadowColor()->isEqual(NSColor::blue()->cgColor().get()));
  EXPECT_EQ(layer->shadowOpacity(), 0.5);
  shape->applyStroke({});
  EXPECT_FALSE(shape->strokeColor());
  EXPECT_TRUE(layer->shadowColor()) << "the stroke alone";
  shape->setBorder(nullptr, 2);
  EXPECT_FALSE(layer->borderColor());
}

TEST_F(BKUKShapeTest, RasterizesAtTheGivenScale) {
  shape->setRasterizationScale(1.5);
  EXPECT_TRUE(layer->shouldRasterize());
  EXPECT_EQ(layer->rasterizationScale(), 1.5);
  shape->setRasterizationScale({});
  EXPECT_FALSE(layer->shouldRasterize());
  EXPECT_EQ(layer->rasterizationScale(), 1);
}

TEST_F(BKUKShapeTest, FillRulesAreTheLayersOwn) {
  shape->setPath([](BKUKShape& each) {
    auto path = make<CGMutablePath>();
    path->addRect(each.bounds());
    path->addRect(each.bounds().insetBy(5, 5));
    return path;
  });
  layer->setFillColor(CGColor::white());
  show(layer);
  EXPECT_EQ(pixel(50, 10), whitePixel);
  shape->setFillRule(BKUKFillRule::evenOdd);
  EXPECT_EQ(shape->fillRule(), BKUKFillRule::evenOdd);
  EXPECT_EQ(pixel(50, 10), blackPixel);
}

TEST_F(BKUKShapeTest, AnotherShapeMasksTheLayer) {
  layer->setBackgroundColor(CGColor::white());
  show(layer);
  const auto maskLayer = make<BKUKShapeLayer>();
  maskLayer->setFrame({0, 0, 50, 20});
  maskLayer->setBackgroundColor(CGColor::black());
  shape->setMask(maskLayer->shape());
  EXPECT_EQ(pixel(25, 10), whitePixel);
  EXPECT_EQ(pixel(75, 10), blackPixel);
  shape->setMask(nullptr);
  EXPECT_EQ(pixel(75, 10), whitePixel);
}

TEST_F(BKUKShapeTest, ReadsPresentedValuesFromTheModelWhileThereIsNoPresentation) {
  drawLine();
  layer->setStrokeEnd(0.25);
  EXPECT_EQ(shape->presentedPattern(), std::nullopt);
  EXPECT_FALSE(shape->presentedPath());
  layer->setLineDashPattern(std::vector<CGFloat>{});
  EXPECT_THAT(shape->presentedPattern(), Optional(ElementsAre()));
  shape->updateComputables();
  layer->setLineDashPattern(std::vector<CGFloat>{3, 1});
  EXPECT_THAT(shape->presentedPattern(), Optional(ElementsAre(3, 1)));
  EXPECT_TRUE(shape->presentedPath()->isEqual(layer->path().get()));
  EXPECT_EQ(shape->presentedBounds(), CGRect(0, 0, 100, 20));
  EXPECT_EQ(shape->presentedStrokeEnd() - shape->presentedStrokeStart() + shape->presentedPhase(), 0.25);
  EXPECT_EQ(shape->containerBounds(), CGRect());
  show(layer);
  EXPECT_EQ(shape->containerBounds(), CGRect(0, 0, width, height));
}

// Circles

TEST_F(BKUKShapeTest, CirclesLieInTheMiddleAndHaveTheLengthOfTheirPath) {
  shape->setPath(BKUKShapeComputable::Path::circle());
  shape->updateComputables();
  EXPECT_EQ(layer->path()->elements().size(), 5U) << "a move and four curves, left open";
  EXPECT_EQ(layer->path()->boundingBoxOfPath().midX(), 50);
  EXPECT_NEAR(layer->path()->boundingBoxOfPath().width(), 20, 1e-9);
  EXPECT_NEAR(BKUKShapeComputable::PathLength::circle()(*shape), layer->path()->length(), 0.05);
  shape->setLineWidth(4);
  shape->setPath(BKUKShapeComputable::Path::circleInnerStroke());
  shape->updateComputables();
  EXPECT_NEAR(layer->path()->boundingBoxOfPath().height(), 16, 1e-9) << "the stroke reaches the bounds";
  EXPECT_NEAR(BKUKShapeComputable::PathLength::circleInnerStroke()(*shape), layer->path()->length(), 0.05);
  EXPECT_EQ(BKUKShapeComputable::CornerRadius::ratio(0.25)(*shape), 5);
  EXPECT_EQ(BKUKShapeComputable::CornerRadius::round()(*shape), 10);
  EXPECT_EQ(&BKUKShapeComputable::CornerRadius::round(), &BKUKShapeComputable::CornerRadius::round());
}

// Layer

TEST(BKUKShapeLayer, StaysAPlainShapeLayerUntilItsShapeIsAskedFor) {
  const auto layer = make<BKUKShapeLayer>();
  layer->setNeedsDisplay();
  layer->displayIfNeeded();
  EXPECT_TRUE(layer->fillColor());
  EXPECT_EQ(layer->autoresizingMask(), 0U);
  const auto shape = layer->shape();
  EXPECT_EQ(layer->shape(), shape);
  EXPECT_FALSE(layer->fillColor());
  EXPECT_EQ(layer->autoresizingMask(), 18U);
  EXPECT_TRUE(layer->needsDisplayOnBoundsChange());
}

TEST_F(BKUKShapeTest, MayMoveToAnotherLayer) {
  shape->setCornerRadius(BKUKShapeComputable::CornerRadius::round());
  shape->updateComputables();
  const auto other = make<BKUKShapeLayer>();
  other->setFrame({0, 0, 30, 30});
  other->setShape(shape);
  EXPECT_EQ(shape->layer(), other);
  EXPECT_TRUE(other->needsDisplay());
  other->displayIfNeeded();
  EXPECT_EQ(other->cornerRadius(), 15);
}

TEST_F(BKUKShapeTest, AnimatesPathsInGroupsThatAllowItAndNothingElsewhere) {
  drawLine();
  show(layer);
  layer->setPath(CGPath::rect({0, 0, 10, 10}));
  layer->setLineWidth(9);
  EXPECT_THAT(layer->animationKeys(), ElementsAre());
  BKUKAnimate(1, make<CAMediaTimingFunction>(kCAMediaTimingFunctionLinear), [this] {
    layer->setPath(CGPath::rect({0, 0, 30, 10}));
    layer->setLineWidth(5);
  });
  EXPECT_THAT(layer->animationKeys(), ElementsAre("path", "lineWidth"));
  host->advance(0.5);
  EXPECT_NEAR(shape->presentedWidth(), 7, 0.1);
  EXPECT_NEAR(shape->presentedPath()->boundingBox().width(), 20, 0.5);
}

TEST_F(BKUKShapeTest, BoundsNeverAnimateTheGeometry) {
  drawLine({4, 2});
  show(layer);
  BKUKAnimate(1, nullptr, [this] {
    shape->setLinePattern({{8, 2}});
    layer->displayIfNeeded();
  });
  EXPECT_THAT(layer->animationKeys(), ElementsAre());
}

// Misuse

TEST_F(BKUKShapeTest, StopsWithoutItsLayer) {
  const std::string trapped;
  layer = nullptr;
  EXPECT_EQ(stopLine([this] { shape->updateComputables(); }), trapped);
  EXPECT_EQ(stopLine([this] { shape->setPathLoops(true); }), trapped);
  EXPECT_EQ(stopLine([this] { (void)shape->presentedBounds(); }), trapped);
  EXPECT_FALSE(shape->layer());
}

TEST_F(BKUKShapeTest, StopsAtCapsAndJoinsThatDoNotExist) {
  const auto isFatal = Optional(StartsWith("Fatal error: file BrenvikUIKit/BKUKShape, line "));
  EXPECT_THAT(stopLine([this] { shape->setLineCap(static_cast<CGLineCap>(3)); }), isFatal);
  EXPECT_THAT(
      stopLine([this] { shape->setStroke(nullptr, 1, CGLineCap::butt, static_cast<CGLineJoin>(-1), {}, 0); }),
      isFatal);
}

}  // namespace
}  // namespace bkuk
