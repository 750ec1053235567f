#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <numbers>

#include "host/Host.h"
#include "platform/coregraphics/CGContext.h"
#include "tests/coregraphics/Picture.h"

namespace bkuk {
namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr std::uint32_t red = 0xFFFF0000;
constexpr std::uint32_t green = 0xFF00FF00;

Ref<CGColor> redColor() { return CGColor::srgb(1, 0, 0); }
Ref<CGColor> greenColor() { return CGColor::srgb(0, 1, 0); }

TEST(CGContext, UserSpaceHasYUp) {
  Picture picture(20, 10, 2);
  picture->setFillColor(redColor());
  picture->fill({0, 0, 5, 1});
  EXPECT_EQ(picture.pixel(0, 19), red);
  EXPECT_EQ(picture.pixel(9, 18), red);
  EXPECT_DOUBLE_EQ(picture.coverage(), 10 * 2);
}

TEST(CGContext, TransformsApplyInnermostFirst) {
  Picture picture(100, 100);
  picture->translateBy(10, 0);
  picture->scaleBy(2, 3);
  EXPECT_EQ(picture->ctm(), (CGAffineTransform{2, 0, 0, 3, 10, 0}));
  picture->fill({1, 0, 1, 1});
  EXPECT_EQ(picture.alpha(12, 99), 255);
  EXPECT_EQ(picture.alpha(11, 99), 0);
  EXPECT_DOUBLE_EQ(picture.coverage(), 6);
}

TEST(CGContext, SavedStateComesBackAndThePathStays) {
  Picture picture(20, 20);
  picture->setFillColor(redColor());
  picture->saveGState();
  picture->setFillColor(greenColor());
  picture->translateBy(100, 100);
  picture->setAlpha(0.1);
  picture->clip(CGRect(0, 0, 1, 1));
  picture->restoreGState();
  picture->restoreGState();
  picture->addRect({0, 0, 10, 10});
  picture->saveGState();
  picture->restoreGState();
  picture->fillPath();
  EXPECT_EQ(picture.pixel(5, 15), red);
  EXPECT_EQ(picture.coverage(), 100);
  picture->fillPath();
  EXPECT_EQ(picture.coverage(), 100) << "painting consumes the path";
}

TEST(CGContext, PointsStayWhereTheTransformPutThem) {
  Picture picture(20, 20);
  picture->move({0, 0});
  picture->addLine({10, 0});
  picture->scaleBy(100, 100);
  picture->addLine({0.1, 0.1});
  picture->closePath();
  picture->fillPath();
  EXPECT_NEAR(picture.coverage(), 50, 0.5);
}

TEST(CGContext, FillRulesAndOpenSubpaths) {
  Picture picture(40, 40);
  picture->addRect({0, 0, 30, 30});
  picture->addRect({10, 10, 10, 10});
  picture->drawPath(CGPathDrawingMode::eoFill);
  EXPECT_EQ(picture.coverage(), 800);
  EXPECT_TRUE(picture->isPathEmpty());
  picture->move({30, 30});
  picture->addLine({40, 30});
  picture->addLine({30, 40});
  picture->fillPath();
  EXPECT_NEAR(picture.coverage(), 850, 0.5);
}

TEST(CGContext, EdgesBetweenPixelsAreBlendedUnlessTold) {
  Picture picture(20, 20);
  picture->fill({0.5, 0.5, 10, 10});
  EXPECT_NEAR(picture.coverage(), 100, 0.5);
  EXPECT_NEAR(picture.alpha(0, 19), 64, 2);
  Picture hard(20, 20);
  hard->setShouldAntialias(false);
  hard->fill({0.25, 0.25, 10, 10});
  EXPECT_EQ(hard.coverage(), 100);
}

TEST(CGContext, ClipsIntersect) {
  Picture picture(40, 40);
  picture->clip(CGRect(0, 0, 20, 20));
  picture->addEllipse({10, 10, 20, 20});
  picture->clip();
  EXPECT_EQ(picture->boundingBoxOfClipPath(), CGRect(10, 10, 10, 10));
  picture->fill({-100, -100, 1000, 1000});
  EXPECT_NEAR(picture.coverage(), std::numbers::pi * 100 / 4, 1);
  picture->clip(CGRect(35, 35, 1, 1));
  EXPECT_TRUE(picture->boundingBoxOfClipPath().isNull());
}

TEST(CGContext, StrokesCoverTheirWidth) {
  Picture picture(100, 40, 2);
  picture->setLineWidth(4);
  picture->move({10, 10});
  picture->addLine({90, 10});
  picture->strokePath();
  EXPECT_NEAR(picture.coverage(), 4 * 80 * 4, 1);
  picture->setLineCap(CGLineCap::square);
  picture->move({10, 30});
  picture->addLine({90, 30});
  picture->strokePath();
  EXPECT_NEAR(picture.coverage(), 4 * (80 * 4 + 84 * 4), 2);
}

TEST(CGContext, DotsAreStrokedAsTheirCapsAlsoWhenDashedOrStretched) {
  const auto coverage = [](CGLineCap cap, double stretch, bool isDashed) {
    Picture picture(60, 60, 2);
    picture->scaleBy(stretch, 1);
    picture->setLineWidth(10);
    picture->setLineCap(cap);
    if (isDashed) picture->setLineDash(0, std::array{3.0, 3.0});
    picture->move({15, 20});
    picture->addLine({15, 20});
    picture->strokePath();
    return picture.coverage() / 4 / stretch;
  };
  for (const bool isDashed : {false, true}) {
    EXPECT_NEAR(coverage(CGLineCap::square, 1, isDashed), 100, 0.5);
    EXPECT_NEAR(coverage(CGLineCap::round, 2, isDashed), std::numbers::pi * 25, 0.5);
    EXPECT_EQ(coverage(CGLineCap::butt, 1, isDashed), 0);
  }
}

TEST(CGContext, StrokesStretchWithAnUnevenTransform) {
  Picture picture(100, 100);
  picture->scaleBy(10, 1);
  picture->setLineWidth(2);
  picture->move({5, 10});
  picture->addLine({5, 90});
  picture->strokePath();
  EXPECT_NEAR(picture.coverage(), 20 * 80, 1);
}

TEST(CGContext, DashesAreCutInUserSpace) {
  for (const double scale : {1.0, 2.0}) {
    Picture picture(100, 20, scale);
    picture->setLineWidth(2);
    const double lengths[] = {6, 4};
    picture->setLineDash(0, lengths);
    picture->move({0, 10});
    picture->addLine({100, 10});
    picture->strokePath();
    EXPECT_NEAR(picture.coverage(), 60 * 2 * scale * scale, 1);
    EXPECT_EQ(picture.alpha(static_cast<int>(8 * scale), static_cast<int>(10 * scale)), 0);
  }
}

TEST(CGContext, EmptyDashesShowOnlyTheirCaps) {
  const auto dots = [](CGLineCap cap) {
    Picture picture(100, 20);
    picture->setLineWidth(6);
    picture->setLineCap(cap);
    const double lengths[] = {0, 20};
    picture->setLineDash(-10, lengths);
    picture->move({0, 10});
    picture->addLine({100, 10});
    picture->strokePath();
    return picture.coverage();
  };
  EXPECT_EQ(dots(CGLineCap::butt), 0);
  EXPECT_NEAR(dots(CGLineCap::square), 5 * 36, 5);
  EXPECT_NEAR(dots(CGLineCap::round), 5 * 9 * std::numbers::pi, 5);
}

TEST(CGContext, DashesFarOutsideCostNothing) {
  Picture picture(100, 20);
  picture->setLineWidth(2);
  const double lengths[] = {1, 1};
  picture->setLineDash(0, lengths);
  picture->move({-1e9, 10});
  picture->addLine({1e9, 10});
  picture->strokePath();
  EXPECT_NEAR(picture.coverage(), 100, 4);
  const double fine[] = {1e-6, 1e-6};
  picture->setLineDash(0, fine);
  picture->addEllipse({-1e7, -1e7, 2e7, 2e7});
  picture->strokePath();
}

TEST(CGContext, AlphaReplacesAndMultiplies) {
  Picture picture(10, 10);
  picture->setAlpha(0.2);
  picture->setAlpha(0.5);
  picture->setFillColor(CGColor::gray(0, 0.5));
  picture->fill({0, 0, 10, 10});
  EXPECT_NEAR(picture.alpha(5, 5), 64, 1);
  picture->setAlpha(7);
  picture->setFillColor(CGColor::black());
  picture->fill({0, 0, 10, 10});
  EXPECT_EQ(picture.alpha(5, 5), 255);
}

TEST(CGContext, BlendModesMeetWhatIsThere) {
  const auto middle = [](CGBlendMode mode, double sourceAlpha, bool hasBackdrop) {
    Picture picture(10, 10);
    picture->setFillColor(redColor());
    if (hasBackdrop) picture->fill({0, 0, 10, 10});
    picture->setBlendMode(mode);
    picture->setFillColor(greenColor()->copy(sourceAlpha));
    picture->fill({2, 2, 6, 6});
    return picture.pixel(5, 5);
  };
  EXPECT_EQ(middle(CGBlendMode::clear, 0, true), 0U);
  EXPECT_EQ(middle(CGBlendMode::copy, 0, true), 0U);
  EXPECT_EQ(middle(CGBlendMode::sourceIn, 1, false), 0U);
  EXPECT_EQ(middle(CGBlendMode::sourceIn, 1, true), green);
  EXPECT_EQ(middle(CGBlendMode::sourceOut, 1, true), 0U);
  EXPECT_EQ(middle(CGBlendMode::sourceAtop, 1, false), 0U);
  EXPECT_EQ(middle(CGBlendMode::destinationOver, 1, true), red);
  EXPECT_EQ(middle(CGBlendMode::destinationIn, 1, true), red);
  EXPECT_EQ(middle(CGBlendMode::destinationOut, 1, true), 0U);
  EXPECT_EQ(middle(CGBlendMode::destinationAtop, 1, false), green);
  EXPECT_EQ(middle(CGBlendMode::XOR, 1, true), 0U);
}

TEST(CGContext, ClearIsWeightedByCoverage) {
  Picture picture(10, 10);
  picture->fill({0, 0, 10, 10});
  picture->setBlendMode(CGBlendMode::clear);
  picture->fill({0, 0, 4.5, 10});
  EXPECT_EQ(picture.alpha(3, 5), 0);
  EXPECT_NEAR(picture.alpha(4, 5), 128, 2);
  EXPECT_EQ(picture.alpha(5, 5), 255);
}

TEST(CGContext, ShadowsLiveInBaseSpace) {
  Picture picture(60, 60, 2);
  picture->setShadow({10, -20}, 0, redColor());
  picture->rotate(1);
  picture->scaleBy(0.1, 0.1);
  picture->concatenate(picture->ctm().inverted());
  picture->scaleBy(5, 5);
  picture->fill({2, 8, 2, 2});
  EXPECT_EQ(picture.pixel(30, 30), 0xFF000000);
  EXPECT_EQ(picture.pixel(50, 70), red) << "right of the shape and below it";
  EXPECT_NEAR(picture.coverage(), 2 * 400, 1);
}

TEST(CGContext, ShadowBlursByHalfOfItsBlur) {
  Picture picture(200, 100);
  picture->setShadow({100, 0}, 10, CGColor::black());
  picture->fill({-100, -1000, 150, 3000});
  const auto at = [&](int x) { return (picture.alpha(x - 1, 50) + picture.alpha(x, 50)) / 510.0; };
  EXPECT_NEAR(at(150), 0.5, 0.01) << "half on the edge";
  EXPECT_NEAR(at(155), 0.1587, 0.015) << "one standard deviation away";
}

TEST(CGContext, ShadowsAreClippedAndFallUnderTheObject) {
  Picture picture(40, 40);
  picture->clip(CGRect(0, 0, 20, 40));
  picture->setShadow({4, 0}, 4, redColor());
  picture->setFillColor(greenColor());
  picture->fill({0, 0, 16, 40});
  EXPECT_EQ(picture.pixel(15, 20), green);
  EXPECT_GT(picture.alpha(18, 20), 50);
  EXPECT_EQ(picture.alpha(21, 20), 0);
}

TEST(CGContext, ObjectsOutsideTheClipCastShadowsIntoIt) {
  Picture picture(40, 40);
  picture->setShadow({50, 0}, 0, redColor());
  picture->fill({-40, 10, 10, 10});
  EXPECT_EQ(picture.pixel(15, 25), red);
  EXPECT_EQ(picture.coverage(), 100);
}

TEST(CGContext, GroupsTakeAlphaOnce) {
  Picture picture(20, 20);
  picture->setAlpha(0.5);
  picture->beginTransparencyLayer();
  picture->fill({0, 0, 10, 10});
  picture->fill({5, 0, 10, 10});
  picture->endTransparencyLayer();
  EXPECT_NEAR(picture.alpha(2, 15), 128, 1);
  EXPECT_NEAR(picture.alpha(7, 15), 128, 1);
  picture->fill({0, 10, 10, 10});
  EXPECT_NEAR(picture.alpha(2, 5), 128, 1) << "the alpha of outside is back";
}

TEST(CGContext, GroupsCastOneShadow) {
  Picture picture(60, 20);
  picture->clip(CGRect(0, 0, 60, 15));
  picture->setShadow({30, 0}, 0, redColor()->copy(0.5));
  picture->beginTransparencyLayer();
  picture->clip(CGRect(0, 0, 12, 20));
  picture->fill({0, 0, 10, 20});
  picture->fill({5, 0, 10, 20});
  picture->endTransparencyLayer();
  EXPECT_EQ(picture.pixel(7, 10), 0xFF000000);
  EXPECT_NEAR(picture.alpha(37, 10), 128, 1);
  EXPECT_EQ(picture.alpha(43, 10), 0) << "clipped inside the group";
  EXPECT_EQ(picture.alpha(37, 3), 0) << "clipped outside the group";
}

TEST(CGContext, VeryDeepGroupsAreBoundedAndStillPaint) {
  Picture picture(100, 100);
  constexpr int depth = 10000;
  for (int level = 0; level < depth; ++level) {
    if (level % 2) picture->setShadow({2, 0}, 0, CGColor::black());
    picture->beginTransparencyLayer();
  }
  picture->fill({0, 0, 10, 10});
  for (int level = 0; level < depth; ++level) picture->endTransparencyLayer();
  EXPECT_EQ(picture.coverage(), (10 + 2 * 17) * 10) << "each second image and the rectangle cast shadows";
}

TEST(CGContext, UnbalancedCallsAreIgnored) {
  Picture picture(10, 10);
  picture->endTransparencyLayer();
  picture->beginTransparencyLayer();
  picture->saveGState();
  picture->clip(CGRect(0, 0, 5, 5));
  picture->restoreGState();
  picture->restoreGState();
  picture->saveGState();
  picture->clip(CGRect(0, 0, 5, 5));
  picture->endTransparencyLayer();
  picture->fill({0, 0, 10, 10});
  EXPECT_EQ(picture.coverage(), 100);
}

TEST(CGContext, LinearGradientsEndWhereTheyAreTold) {
  const Ref<CGColor> colors[] = {CGColor::white(), CGColor::black()};
  const auto gradient = CGGradient::create(CGColorSpace::sRGB(), colors);
  Picture picture(100, 10);
  picture->drawLinearGradient(*gradient, {20, 0}, {80, 0}, CGGradientDrawsAfterEndLocation);
  EXPECT_EQ(picture.alpha(10, 5), 0);
  EXPECT_NEAR(static_cast<int>(picture.pixel(50, 5) & 0xFF), 127, 4);
  EXPECT_EQ(picture.pixel(90, 5), 0xFF000000);
}

TEST(CGContext, RadialGradientsEndWhereTheyAreTold) {
  const Ref<CGColor> colors[] = {redColor(), greenColor()};
  const auto gradient = CGGradient::create(CGColorSpace::sRGB(), colors);
  Picture picture(100, 100);
  picture->scaleBy(1, 0.5);
  picture->drawRadialGradient(*gradient, {50, 100}, 0, {50, 100}, 40, CGGradientDrawsNothingOutside);
  EXPECT_NEAR(picture.coverage(), std::numbers::pi * 40 * 20, 30);
  EXPECT_EQ(picture.alpha(50, 20), 0);
  EXPECT_EQ(picture.alpha(15, 50), 255);
}

TEST(CGContext, ImagesStandUpright) {
  host::Bitmap image({2, 2});
  image.fill({0, 0, 2, 1}, red);
  image.fill({0, 1, 2, 1}, green);
  Picture picture(20, 20);
  picture->drawBitmap(image, {0, 0, 10, 10});
  EXPECT_EQ(picture.pixel(5, 11), red) << "the first row is at the top";
  EXPECT_EQ(picture.pixel(5, 18), green);
  picture->translateBy(0, 20);
  picture->scaleBy(1, -1);
  picture->drawBitmap(image, {10, 10, 10, 10});
  EXPECT_EQ(picture.pixel(15, 11), green) << "upside down where y runs down";
}

TEST(CGContext, MakesNoBitmapForNothing) {
  VirtualHostScope host;
  host::Bitmap bitmap;
  int requests = 0;
  const auto provide = [&] {
    ++requests;
    bitmap = host::Bitmap({20, 20});
    return &bitmap;
  };
  auto context = make<CGContext>(host::PixelSize{20, 20}, provide, CGAffineTransform{1, 0, 0, -1, 0, 20});
  context->saveGState();
  context->clip(CGRect(0, 0, 15, 15));
  context->setFillColor(nullptr);
  context->fill({0, 0, 10, 10});
  context->setFillColor(CGColor::clear());
  context->fill({0, 0, 10, 10});
  context->setFillColor(CGColor::black());
  context->fill({100, 0, 10, 10});
  context->fillPath();
  context->beginTransparencyLayer();
  context->clip(CGRect(0, 0, 1, 1));
  context->endTransparencyLayer();
  EXPECT_FALSE(context->hasPainted());
  context->saveGState();
  context->clip(CGRect(10, 0, 10, 10));
  context->fill({0, 0, 20, 20});
  EXPECT_TRUE(context->hasPainted());
  context->restoreGState();
  context->restoreGState();
  context->fill({0, 19, 1, 1});
  EXPECT_EQ(requests, 1);
  EXPECT_EQ(bitmap.row(15)[12], 0xFF000000) << "clips from before are in force";
  EXPECT_EQ(bitmap.row(15)[9], 0U);
  EXPECT_EQ(bitmap.row(15)[16], 0U);
  EXPECT_EQ(bitmap.row(0)[0], 0xFF000000) << "and are taken back";
}

TEST(CGContext, ABitmapThatCannotBeMadeDropsEverything) {
  VirtualHostScope host;
  auto context = make<CGContext>(
      host::PixelSize{20, 20}, [] { return nullptr; }, CGAffineTransform{});
  context->saveGState();
  context->clip(CGRect(0, 0, 5, 5));
  context->setShadow({1, 1}, 3, CGColor::black());
  context->fill({0, 0, 10, 10});
  context->beginTransparencyLayer();
  context->clip(CGRect(0, 0, 3, 3));
  context->fill({0, 0, 10, 10});
  context->endTransparencyLayer();
  context->restoreGState();
  EXPECT_TRUE(context->hasPainted());
}

TEST(CGContext, FontFlagsKeepWhatIsAllowedOutOfTheState) {
  Picture picture(1, 1);
  picture->saveGState();
  picture->setAllowsFontSmoothing(false);
  picture->setShouldSmoothFonts(false);
  picture->setShouldSubpixelPositionFonts(false);
  picture->setAllowsFontSubpixelQuantization(false);
  picture->restoreGState();
  EXPECT_FALSE(picture->allowsFontSmoothing());
  EXPECT_TRUE(picture->shouldSmoothFonts());
  EXPECT_TRUE(picture->shouldSubpixelPositionFonts());
  EXPECT_FALSE(picture->allowsFontSubpixelQuantization());
}

class BadNumbers : public ::testing::TestWithParam<double> {};

TEST_P(BadNumbers, PaintNothingOrEverythingButNeverCrash) {
  const double bad = GetParam();
  Picture picture(50, 50);
  const Ref<CGColor> colors[] = {redColor(), greenColor()};
  const auto gradient = CGGradient::create(CGColorSpace::sRGB(), colors);
  const double lengths[] = {bad, 2, 0, -1};
  picture->setLineDash(bad, lengths);
  picture->setLineWidth(2);
  for (const CGRect& rect : {CGRect(bad, 0, 10, 10), CGRect(0, 0, bad, 10), CGRect(0, bad, 10, -bad)}) {
    picture->fill(rect);
    picture->addEllipse(rect);
    picture->drawPath(CGPathDrawingMode::fillStroke);
    picture->saveGState();
    picture->clip(rect);
    picture->setShadow({bad, 1}, bad, redColor());
    picture->setMiterLimit(bad);
    picture->setLineWidth(bad);
    picture->addRect({10, 10, 20, 20});
    picture->strokePath();
    picture->beginTransparencyLayer();
    picture->drawLinearGradient(*gradient, rect.origin, {10, 10}, 3);
    picture->drawRadialGradient(*gradient, {5, 5}, bad, rect.origin, 10, 3);
    picture->endTransparencyLayer();
    picture->concatenate({bad, 0, 0, bad, 1, bad});
    picture->fill({0, 0, 1, 1});
    picture->restoreGState();
  }
  picture->setAlpha(bad);
  picture->setLineDash(0, {});
  picture->scaleBy(0, 1);
  picture->addRect({0, 0, 1, 1});
  picture->strokePath();
}

INSTANTIATE_TEST_SUITE_P(CGContext, BadNumbers,
                         ::testing::Values(nan, infinity, -infinity, 1e300, -1e300, 1e9, 1e-300));

}  // namespace
}  // namespace bkuk
