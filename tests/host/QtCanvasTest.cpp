#include <cmath>
#include <gtest/gtest.h>
#include <limits>

#include "host/qt/drawing/QtCanvas.h"

namespace bkuk::host {
namespace {

using Kind = PathElement::Kind;

constexpr Rgba black{0, 0, 0, 1};
constexpr Rgba red{1, 0, 0, 1};
constexpr Rgba blue{0, 0, 1, 1};
constexpr std::uint32_t opaqueBlack = 0xFF000000;
constexpr std::uint32_t opaqueRed = 0xFFFF0000;
constexpr std::uint32_t opaqueBlue = 0xFF0000FF;

std::vector<PathElement> rect(double x, double y, double width, double height) {
  return {{Kind::move, {{x, y}}},
          {Kind::line, {{x + width, y}}},
          {Kind::line, {{x + width, y + height}}},
          {Kind::line, {{x, y + height}}},
          {Kind::close, {}}};
}

std::vector<PathElement> lines(std::initializer_list<Point> points) {
  std::vector<PathElement> path;
  for (const auto& point : points) path.push_back({path.empty() ? Kind::move : Kind::line, {point}});
  return path;
}

class QtCanvasTest : public ::testing::Test {
 protected:
  std::uint32_t pixel(int x, int y) const { return bitmap.row(y)[static_cast<std::size_t>(x)]; }
  int alpha(int x, int y) const { return static_cast<int>(pixel(x, y) >> 24); }
  int redAt(int x, int y) const { return static_cast<int>(pixel(x, y) >> 16 & 0xFF); }
  void fill(double x, double y, double width, double height, const Rgba& color = black) {
    canvas.fill(rect(x, y, width, height), FillRule::winding, color);
  }
  void clip(double x, double y, double width, double height) {
    canvas.clip(rect(x, y, width, height), FillRule::winding);
  }
  int paintedPixels() const {
    int count = 0;
    for (int y = 0; y < bitmap.size().height; ++y) {
      for (const auto value : bitmap.row(y)) count += value != 0;
    }
    return count;
  }

  Bitmap bitmap{{40, 40}};
  QtCanvas canvas{bitmap};
};

// --- fills

TEST_F(QtCanvasTest, FillsWholePixelsExactly) {
  fill(10, 10, 5, 5, red);
  EXPECT_EQ(pixel(10, 10), opaqueRed);
  EXPECT_EQ(pixel(14, 14), opaqueRed);
  EXPECT_EQ(paintedPixels(), 25);
}

TEST_F(QtCanvasTest, EdgesBetweenPixelsAreHalfCovered) {
  fill(10.5, 10, 5, 5);
  EXPECT_NEAR(alpha(10, 12), 128, 2);
  EXPECT_NEAR(alpha(15, 12), 128, 2);
  canvas.setAntialias(false);
  fill(20.4, 10, 5, 5);
  EXPECT_EQ(alpha(20, 12) % 255, 0);
}

TEST_F(QtCanvasTest, TheFillRuleDecidesAboutHoles) {
  auto path = rect(5, 5, 20, 20);
  const auto inner = rect(10, 10, 5, 5);
  path.insert(path.end(), inner.begin(), inner.end());
  canvas.fill(path, FillRule::evenOdd, black);
  EXPECT_EQ(pixel(12, 12), 0U);
  canvas.fill(path, FillRule::winding, black);
  EXPECT_EQ(pixel(12, 12), opaqueBlack);
}

TEST_F(QtCanvasTest, TheNewTransformComesBeforeTheOldOne) {
  canvas.concatenate({2, 0, 0, 2, 0, 0});
  canvas.concatenate({1, 0, 0, 1, 10, 0});
  fill(0, 0, 1, 1);
  EXPECT_EQ(pixel(20, 0), opaqueBlack);
  EXPECT_EQ(paintedPixels(), 4);
}

TEST_F(QtCanvasTest, SaveAndRestoreCoverTheWholeState) {
  canvas.save();
  clip(0, 0, 5, 5);
  canvas.setAlpha(0.5);
  canvas.setBlendMode(BlendMode::clear);
  canvas.concatenate({1, 0, 0, 1, 30, 30});
  canvas.restore();
  canvas.restore();
  fill(20, 20, 1, 1);
  EXPECT_EQ(pixel(20, 20), opaqueBlack);
}

// --- clips

TEST_F(QtCanvasTest, RectangularClipsAreAntialiased) {
  clip(10.5, 10, 5, 5);
  fill(0, 0, 40, 40);
  EXPECT_NEAR(alpha(10, 12), 128, 2);
  EXPECT_EQ(pixel(11, 12), opaqueBlack);
  EXPECT_EQ(pixel(9, 12), 0U);
}

TEST_F(QtCanvasTest, ClipsIntersect) {
  clip(0, 0, 20, 40);
  clip(10, 0, 20, 40);
  canvas.clip(lines({{0, 0}, {40, 0}, {40, 10}, {0, 10}}), FillRule::winding);
  fill(0, 0, 40, 40);
  EXPECT_EQ(paintedPixels(), 100);
  EXPECT_EQ(pixel(15, 5), opaqueBlack);
}

TEST_F(QtCanvasTest, AnEmptyClipLetsNothingThrough) {
  canvas.clip({}, FillRule::winding);
  fill(0, 0, 40, 40);
  canvas.beginGroup();
  fill(0, 0, 40, 40);
  canvas.endGroup();
  EXPECT_EQ(paintedPixels(), 0);
}

// --- strokes

TEST_F(QtCanvasTest, AMiterBeyondItsLimitIsBevelled) {
  // A right angle has a miter of 1.41 times the width.
  const auto corner = lines({{10, 30}, {10, 10}, {30, 10}});
  canvas.stroke(corner, {.width = 8, .miterLimit = 1.5}, black);
  EXPECT_EQ(pixel(6, 6), opaqueBlack);
  bitmap.fill({0, 0, 40, 40}, 0);
  canvas.stroke(corner, {.width = 8, .miterLimit = 1.3}, black);
  EXPECT_EQ(pixel(6, 6), 0U);
}

TEST_F(QtCanvasTest, DashesAreMeasuredInUserSpaceAndOddListsCountTwice) {
  const double dashes[] = {10};
  canvas.stroke(lines({{0, 5}, {40, 5}}), {.width = 2, .dashes = dashes}, black);
  EXPECT_EQ(pixel(5, 5), opaqueBlack);
  EXPECT_EQ(pixel(15, 5), 0U);
  EXPECT_EQ(pixel(25, 5), opaqueBlack);
  canvas.stroke(lines({{0, 15}, {40, 15}}), {.width = 2, .dashPhase = 10, .dashes = dashes}, black);
  EXPECT_EQ(pixel(5, 15), 0U);
  EXPECT_EQ(pixel(15, 15), opaqueBlack);
}

TEST_F(QtCanvasTest, AZeroDashShowsItsRoundCaps) {
  const double dots[] = {0, 10};
  canvas.stroke(lines({{5, 5}, {35, 5}}), {.width = 4, .cap = LineCap::round, .dashes = dots}, black);
  EXPECT_GT(alpha(5, 5), 200);
  EXPECT_EQ(pixel(10, 5), 0U);
  EXPECT_GT(alpha(15, 5), 200);
}

TEST_F(QtCanvasTest, UselessDashesLeaveTheLineSolid) {
  constexpr double nan = std::numeric_limits<double>::quiet_NaN();
  constexpr double infinity = std::numeric_limits<double>::infinity();
  const std::vector<double> lists[] = {{0, 0}, {nan, 3}, {infinity, 3}, {1e-300, 1e-300}, {-3, 2}};
  for (const auto& dashes : lists) {
    bitmap.fill({0, 0, 40, 40}, 0);
    canvas.stroke(lines({{0, 5}, {40, 5}}), {.width = 2, .dashes = dashes}, black);
    EXPECT_EQ(pixel(20, 5), opaqueBlack) << dashes[0] << ", " << dashes[1];
  }
}

TEST_F(QtCanvasTest, AnOutlineFillsWhatTheStrokePaints) {
  const auto zigzag = lines({{5, 30}, {15, 8}, {25, 30}, {35, 8}});
  const Stroke stroke{.width = 5, .cap = LineCap::square};
  canvas.stroke(zigzag, stroke, black);
  Bitmap filled({40, 40});
  QtCanvas(filled).fill(canvas.outline(zigzag, stroke), FillRule::winding, black);
  int worst = 0;
  for (int y = 0; y < 40; ++y) {
    for (int x = 0; x < 40; ++x) {
      const int other = static_cast<int>(filled.row(y)[static_cast<std::size_t>(x)] >> 24);
      worst = std::max(worst, std::abs(alpha(x, y) - other));
    }
  }
  EXPECT_LE(worst, 8);
}

// --- gradients

Gradient linear(std::span<const GradientStop> stops, double from, double to) {
  return {.start = {from, 0}, .end = {to, 0}, .stops = stops};
}

TEST_F(QtCanvasTest, AGradientEndsWhereItIsNotExtended) {
  const GradientStop stops[] = {{0, red}, {1, blue}};
  auto gradient = linear(stops, 10, 30);
  canvas.paint(gradient);
  EXPECT_EQ(pixel(5, 20), 0U);
  EXPECT_EQ(pixel(35, 20), 0U);
  EXPECT_NEAR(redAt(20, 20), 128, 8);
  gradient.extendsAfter = true;
  canvas.paint(gradient);
  EXPECT_EQ(pixel(5, 20), 0U);
  EXPECT_EQ(pixel(35, 20), opaqueBlue);
}

TEST_F(QtCanvasTest, ColoursAreMixedWithoutTheirAlpha) {
  const GradientStop stops[] = {{0, {1, 0, 0, 0}}, {1, blue}};
  canvas.paint(linear(stops, 0, 40));
  // Half of red remains, though it is transparent: premultiplied mixing would leave none.
  EXPECT_NEAR(redAt(20, 20), 64, 6);
  EXPECT_NEAR(alpha(20, 20), 128, 6);
}

TEST_F(QtCanvasTest, TwoStopsInOnePlaceMakeAHardEdge) {
  const GradientStop stops[] = {{0, red}, {0.5, red}, {0.5, blue}, {1, blue}};
  canvas.paint(linear(stops, 0, 40));
  EXPECT_EQ(pixel(18, 20), opaqueRed);
  EXPECT_EQ(pixel(21, 20), opaqueBlue);
}

TEST_F(QtCanvasTest, ARadialGradientKeepsToItsCircles) {
  const GradientStop stops[] = {{0, red}, {1, blue}};
  Gradient gradient{.kind = Gradient::Kind::radial,
                    .start = {20, 20},
                    .end = {20, 20},
                    .startRadius = 5,
                    .endRadius = 15,
                    .stops = stops};
  canvas.paint(gradient);
  EXPECT_EQ(pixel(20, 20), 0U);
  EXPECT_EQ(pixel(2, 2), 0U);
  EXPECT_NEAR(redAt(30, 20), 128, 16);
  gradient.extendsBefore = true;
  canvas.paint(gradient);
  EXPECT_EQ(pixel(20, 20), opaqueRed);
  EXPECT_EQ(pixel(2, 2), 0U);
}

TEST_F(QtCanvasTest, AGradientWithoutLengthPaintsOnlyItsExtension) {
  const GradientStop stops[] = {{0, red}, {1, blue}};
  auto gradient = linear(stops, 20, 20);
  canvas.paint(gradient);
  EXPECT_EQ(paintedPixels(), 0);
  gradient.extendsBefore = true;
  gradient.extendsAfter = true;
  canvas.paint(gradient);
  EXPECT_EQ(pixel(1, 1), opaqueBlue);
}

// --- composition

TEST_F(QtCanvasTest, ClearIsWeightedByCoverage) {
  fill(0, 0, 40, 40);
  canvas.setBlendMode(BlendMode::clear);
  fill(10.5, 10, 5, 5);
  EXPECT_NEAR(alpha(10, 12), 128, 2);
  EXPECT_EQ(pixel(12, 12), 0U);
}

TEST_F(QtCanvasTest, AGroupIsComposedOnce) {
  canvas.setAlpha(0.5);
  canvas.beginGroup();
  fill(0, 0, 20, 20);
  fill(10, 10, 20, 20);
  canvas.endGroup();
  EXPECT_NEAR(alpha(5, 5), 128, 2);
  EXPECT_NEAR(alpha(15, 15), 128, 2);
}

TEST_F(QtCanvasTest, AGroupKeepsTransformAndClipAndForgetsItsOwnState) {
  canvas.concatenate({1, 0, 0, 1, 3, 0});
  clip(7.5, 10, 10, 10);
  canvas.beginGroup();
  canvas.save();
  canvas.setAlpha(0.1);
  canvas.restore();
  canvas.restore();
  fill(0, 0, 40, 40, red);
  canvas.save();
  canvas.concatenate({1, 0, 0, 1, 100, 100});
  canvas.endGroup();
  EXPECT_NEAR(alpha(10, 15), 128, 2);
  EXPECT_EQ(pixel(11, 15), opaqueRed);
  EXPECT_EQ(pixel(21, 15), 0U);
  fill(8, 10, 1, 1, blue);
  EXPECT_EQ(pixel(11, 10), opaqueBlue);
  canvas.endGroup();
}

TEST_F(QtCanvasTest, BitmapsThatFallOnPixelsAreCopied) {
  Bitmap image({2, 1});
  image.row(0)[0] = opaqueRed;
  image.row(0)[1] = opaqueBlue;
  canvas.concatenate({0.5, 0, 0, 0.5, 0, 0});
  canvas.drawBitmap(image, {20, 20, 4, 2});
  EXPECT_EQ(pixel(10, 10), opaqueRed);
  EXPECT_EQ(pixel(11, 10), opaqueBlue);
  EXPECT_EQ(paintedPixels(), 2);
}

TEST_F(QtCanvasTest, BitmapsTurnWithTheSpace) {
  Bitmap image({1, 2});
  image.row(0)[0] = opaqueRed;
  image.row(1)[0] = opaqueBlue;
  canvas.concatenate({1, 0, 0, -1, 0, 40});
  canvas.drawBitmap(image, {10, 10, 10, 20});
  EXPECT_EQ(pixel(15, 28), opaqueRed);
  EXPECT_EQ(pixel(15, 11), opaqueBlue);
}

// --- what must not crash

TEST_F(QtCanvasTest, CoordinatesThatAreNotFinitePaintNothing) {
  for (const double bad :
       {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(), 1e308}) {
    const GradientStop stops[] = {{0, red}, {1, blue}};
    fill(bad, 0, bad, 40);
    canvas.stroke(lines({{0, bad}, {40, bad}}), {.width = bad}, black);
    canvas.paint(linear(stops, bad, std::nan("")));
    canvas.drawBitmap(Bitmap({1, 1}), {bad, 0, bad, 1});
    canvas.save();
    canvas.concatenate({bad, bad, bad, bad, 0, 0});
    fill(0, 0, 40, 40);
    canvas.restore();
  }
  EXPECT_EQ(paintedPixels(), 0);
}

TEST_F(QtCanvasTest, HugeShapesCoverTheBitmap) {
  for (const double huge : {1e6, 1e9, 1e15}) {
    bitmap.fill({0, 0, 40, 40}, 0);
    fill(-huge, -huge, 2 * huge, 2 * huge);
    EXPECT_EQ(pixel(20, 20), opaqueBlack) << huge;
    canvas.stroke(lines({{-huge, 0}, {huge, 40}}), {.width = 3}, red);
    clip(-huge, -huge, 2 * huge, 2 * huge);
    fill(0, 0, 40, 40, blue);
    EXPECT_EQ(pixel(20, 20), opaqueBlue) << huge;
  }
}

TEST_F(QtCanvasTest, ABitmapWithoutPixelsTakesEverything) {
  Bitmap nothing;
  QtCanvas empty(nothing);
  empty.save();
  empty.fill(rect(0, 0, 10, 10), FillRule::winding, black);
  empty.beginGroup();
  EXPECT_TRUE(nothing.isEmpty());
}

}  // namespace
}  // namespace bkuk::host
