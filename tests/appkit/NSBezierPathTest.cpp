#include <array>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>

#include "platform/appkit/drawing/NSBezierPath.h"
#include "platform/appkit/drawing/NSColor.h"
#include "platform/appkit/drawing/NSGraphicsContext.h"
#include "tests/coregraphics/Picture.h"
#include "tests/support/StopLine.h"

namespace bkuk {
namespace {

using testing::HasSubstr;
using testing::Optional;

// One letter per element.
std::string shapeOf(const NSBezierPath& path) {
  std::string shape;
  for (std::size_t i = 0; i < path.elementCount(); ++i) {
    shape += "mlcz"[static_cast<std::size_t>(path.element(i))];
  }
  return shape;
}

bool isNear(NSPoint a, NSPoint b) { return std::abs(a.x - b.x) < 1e-9 && std::abs(a.y - b.y) < 1e-9; }

Ref<NSBezierPath> arc(CGFloat start, CGFloat end, bool clockwise) {
  auto path = make<NSBezierPath>();
  path->appendArc({0, 0}, 10, start, end, clockwise);
  return path;
}

TEST(NSBezierPath, ReadyMadeShapesAreClosed) {
  EXPECT_EQ(shapeOf(*NSBezierPath::rect({0, 0, 4, 2})), "mlllz");
  EXPECT_EQ(shapeOf(*NSBezierPath::ovalIn({0, 0, 4, 2})), "mccccz");
  const auto pill = NSBezierPath::roundedRect({0, 0, 40, 20}, 100, 100);
  EXPECT_EQ(pill->bounds(), (NSRect{0, 0, 40, 20}));
  EXPECT_TRUE(pill->contains({20, 1}));
  EXPECT_FALSE(pill->contains({6, 1})) << "radii are cut to half the side";
}

TEST(NSBezierPath, AClosedSubpathGoesOnWhereItStarted) {
  const auto path = make<NSBezierPath>();
  path->close();
  EXPECT_TRUE(path->isEmpty());
  path->move({1, 2});
  path->line({5, 2});
  path->curve({9, 2}, {6, 4}, {7, 5});
  path->close();
  EXPECT_EQ(path->currentPoint(), (NSPoint{1, 2}));
  path->line({1, 8});
  EXPECT_EQ(shapeOf(*path), "mlczl");
  std::array<NSPoint, 3> points;
  EXPECT_EQ(path->element(2, points), NSBezierPathElement::curveTo);
  EXPECT_EQ(points, (std::array<NSPoint, 3>{{{6, 4}, {7, 5}, {9, 2}}}));
}

TEST(NSBezierPath, AnArcRunsTheWayItIsToldAndMeetsItsEnd) {
  const auto rising = arc(90, 0, false);
  EXPECT_EQ(shapeOf(*rising), "mccc");
  EXPECT_TRUE(isNear(rising->currentPoint(), {10, 0}));
  EXPECT_EQ(shapeOf(*arc(90, 0, true)), "mc");
  EXPECT_EQ(shapeOf(*arc(0, 360, false)), "mcccc");
  EXPECT_EQ(shapeOf(*arc(30, -330, false)), "m") << "a whole turn back is where it starts";
  EXPECT_EQ(shapeOf(*arc(10, 370, true)), "m");
  EXPECT_EQ(shapeOf(*arc(0, -1e300, false)).front(), 'm') << "absurd angles take no time";
  EXPECT_EQ(shapeOf(*arc(0, std::numeric_limits<double>::infinity(), false)), "m");
  const auto behindLine = make<NSBezierPath>();
  behindLine->move({0, 0});
  behindLine->appendArc({0, 0}, 10, 0, 90);
  EXPECT_EQ(shapeOf(*behindLine), "mlc");
}

TEST(NSBezierPath, MeasuresWhatItIsAndWhatItsControlPointsSpan) {
  const auto path = make<NSBezierPath>();
  EXPECT_EQ(path->bounds(), NSZeroRect);
  EXPECT_EQ(path->controlPointBounds(), NSZeroRect);
  path->move({0, 0});
  path->curve({10, 0}, {0, 8}, {10, 8});
  EXPECT_EQ(path->controlPointBounds(), (NSRect{0, 0, 10, 8}));
  EXPECT_NEAR(path->bounds().height(), 6, 1e-9);
  path->append(*path);
  path->transform(CGAffineTransform{2, 0, 0, 2, 100, 0});
  EXPECT_EQ(shapeOf(*path), "mcmc");
  EXPECT_EQ(path->controlPointBounds(), (NSRect{100, 0, 20, 16}));
}

TEST(NSBezierPath, StopsTheProcessWithoutAPointToStartFrom) {
  const auto path = make<NSBezierPath>();
  const auto unit = HasSubstr("file platform/appkit/NSBezierPath");
  EXPECT_THAT(stopLine([&] { path->line({1, 1}); }), Optional(unit));
  EXPECT_THAT(stopLine([&] { path->curve({1, 1}, {}, {}); }), Optional(unit));
  EXPECT_THAT(stopLine([&] { (void)path->currentPoint(); }), Optional(unit));
  EXPECT_THAT(stopLine([&] { (void)path->element(0); }), Optional(unit));
}

/// A picture of 40 × 40 points that is the current context, with opaque colours.
class NSBezierPathDrawing : public testing::Test {
 protected:
  NSBezierPathDrawing() { NSColor::black()->set(); }

  const Picture picture{40, 40};
  const NSGraphicsContextScope scope{make<NSGraphicsContext>(picture.context, false)};
};

TEST_F(NSBezierPathDrawing, FillsAndClipsByItsOwnRule) {
  const auto ring = NSBezierPath::rect({0, 0, 40, 40});
  ring->append(*NSBezierPath::rect({10, 10, 20, 20}));
  EXPECT_TRUE(ring->contains({20, 20}));
  ring->setWindingRule(NSWindingRule::evenOdd);
  EXPECT_FALSE(ring->contains({20, 20}));
  ring->fill();
  EXPECT_DOUBLE_EQ(picture.coverage(), 1200);

  NSGraphicsContext::saveGraphicsState();
  ring->addClip();
  NSColor::red()->set();
  NSBezierPath::rect({0, 0, 40, 40})->fill();
  NSGraphicsContext::restoreGraphicsState();
  EXPECT_DOUBLE_EQ(picture.coverage(), 1200);
}

TEST_F(NSBezierPathDrawing, StrokesWithItsOwnStyleAndLeavesTheContextsAlone) {
  const auto line = make<NSBezierPath>();
  line->move({10, 20});
  line->line({30, 20});
  line->setLineWidth(4);
  line->setLineCapStyle(NSLineCapStyle::square);
  line->stroke();
  EXPECT_DOUBLE_EQ(picture.coverage(), 24 * 4);

  const CGFloat dashes[] = {4, 6};
  line->transform({1, 0, 0, 1, 0, -15});
  line->setLineCapStyle(NSLineCapStyle::butt);
  line->setLineDash(dashes, 2);
  line->stroke();
  EXPECT_DOUBLE_EQ(picture.coverage(), 24 * 4 + (2 + 4 + 2) * 4);

  const double before = picture.coverage();
  picture.context->move({0, 30.5});
  picture.context->addLine({40, 30.5});
  picture.context->strokePath();
  EXPECT_DOUBLE_EQ(picture.coverage(), before + 40);
}

}  // namespace
}  // namespace bkuk
