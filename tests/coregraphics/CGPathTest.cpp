#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <numbers>
#include <random>

#include "platform/coregraphics/CGMutablePath.h"
#include "testing/VirtualHostScope.h"
#include "tests/support/StopLine.h"

namespace bkuk {
namespace {

constexpr double pi = std::numbers::pi;
constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

std::vector<int> kinds(const CGPath& path) {
  std::vector<int> result;
  path.applyWithBlock([&](const CGPathElement& e) { result.push_back(static_cast<int>(e.type)); });
  return result;
}

TEST(CGPath, LineWithoutCurrentPointStops) {
  EXPECT_TRUE(stopLine([] { make<CGMutablePath>()->addLine({1, 1}); }));
  EXPECT_TRUE(stopLine([] { make<CGMutablePath>()->addCurve({1, 1}, {}, {}); }));
  EXPECT_FALSE(stopLine([] { make<CGMutablePath>()->closeSubpath(); }));
}

TEST(CGPath, CloseGoesBackToTheStart) {
  auto path = make<CGMutablePath>();
  EXPECT_FALSE(path->currentPoint());
  path->move({1, 2});
  path->addLine({5, 2});
  path->closeSubpath();
  EXPECT_EQ(path->currentPoint(), (CGPoint{1, 2}));
  path->addLine({1, 9});
  EXPECT_EQ(kinds(*path), (std::vector<int>{0, 1, 4, 1}));
  EXPECT_EQ(path->length(), 4 + 4 + 7);
}

TEST(CGPath, FullClockwiseCircleIsOneMoveAndFourCurves) {
  auto path = make<CGMutablePath>();
  path->addArc({10, 20}, 5, 0, -2 * pi, true);
  EXPECT_EQ(kinds(*path), (std::vector<int>{0, 3, 3, 3, 3}));
  EXPECT_NEAR(path->elements()[1].points[2].x, 10, 1e-12);
  EXPECT_NEAR(path->elements()[1].points[2].y, 15, 1e-12);
  EXPECT_NEAR(path->length(), 2 * pi * 5, 0.01);
}

TEST(CGPath, ArcsTurnTheWayTheyAreTold) {
  const auto end = [](double from, double to, bool clockwise) {
    auto path = make<CGMutablePath>();
    path->addArc({}, 1, from, to, clockwise);
    return kinds(*path).size() - 1;
  };
  EXPECT_EQ(end(0, pi / 2, false), 1U);
  EXPECT_EQ(end(0, pi / 2, true), 3U);
  EXPECT_EQ(end(0, 3 * pi, true), 2U);
  EXPECT_EQ(end(1, 1, true), 0U);
  EXPECT_EQ(end(0, 1e300, false), 0U);
  EXPECT_EQ(end(nan, 1, false), 0U);
}

TEST(CGPath, ArcIsJoinedByALineUnlessItStartsThere) {
  auto path = make<CGMutablePath>();
  path->move({1, 0});
  path->addArc({}, 1, 0, pi / 2, false);
  path->addArc({5, 5}, -1, 0, pi / 2, false);
  EXPECT_EQ(kinds(*path), (std::vector<int>{0, 3, 1, 3}));
  EXPECT_EQ(path->elements()[2].points[0], (CGPoint{4, 5}));
}

TEST(CGPath, BoxesWithAndWithoutControlPoints) {
  auto path = make<CGMutablePath>();
  path->move({0, 0});
  path->addQuadCurve({10, 0}, {5, 10});
  EXPECT_EQ(path->boundingBox(), CGRect(0, 0, 10, 10));
  EXPECT_EQ(path->boundingBoxOfPath(), CGRect(0, 0, 10, 5));
  const CGRect circle = CGPath::ellipse({10, 10, 20, 40})->boundingBoxOfPath();
  EXPECT_NEAR(circle.minX(), 10, 1e-9);
  EXPECT_NEAR(circle.maxY(), 50, 1e-9);
  EXPECT_TRUE(make<CGPath>()->boundingBox().isNull());
  EXPECT_TRUE(make<CGPath>()->boundingBoxOfPath().isNull());
}

TEST(CGPath, RoundedRectangleCutsItsRadii) {
  const auto path = CGPath::roundedRect({0, 0, 40, 20}, 100, 100);
  EXPECT_TRUE(path->contains({20, 1}));
  EXPECT_FALSE(path->contains({1, 1}));
  EXPECT_EQ(kinds(*CGPath::roundedRect({0, 0, 40, 20}, 5, -1)), kinds(*CGPath::rect({0, 0, 40, 20})));
}

TEST(CGPath, ContainmentFollowsTheRule) {
  auto path = make<CGMutablePath>();
  path->addRect({0, 0, 30, 30});
  path->addRect({10, 10, 10, 10});
  EXPECT_TRUE(path->contains({15, 15}));
  EXPECT_FALSE(path->contains({15, 15}, CGPathFillRule::evenOdd));
  EXPECT_TRUE(path->contains({5, 5}, CGPathFillRule::evenOdd));
  EXPECT_TRUE(path->contains({105, 5}, CGPathFillRule::evenOdd, CGAffineTransform::translation(-100, 0)));
  EXPECT_FALSE(path->contains({nan, 5}));
}

TEST(CGPath, OpenSubpathsContainAsIfClosed) {
  auto path = make<CGMutablePath>();
  path->move({0, 0});
  path->addLine({10, 0});
  path->addLine({0, 10});
  path->move({100, 100});
  EXPECT_TRUE(path->contains({2, 2}));
  EXPECT_FALSE(path->contains({8, 8}));
}

TEST(CGPath, ContainmentInCurvesAgreesWithGeometry) {
  const auto path = CGPath::ellipse({-10, -10, 20, 20});
  std::mt19937 random(7);
  std::uniform_real_distribution<double> coordinate(-12, 12);
  for (int count = 0; count < 2000; ++count) {
    const CGPoint point{coordinate(random), coordinate(random)};
    const double radius = std::hypot(point.x, point.y);
    // The curves leave the circle by less than 3 in 10,000.
    if (std::abs(radius - 10) < 0.01) continue;
    EXPECT_EQ(path->contains(point), radius < 10) << point.x << ' ' << point.y;
  }
}

TEST(CGPath, CopiesOfAGrowingPathStay) {
  auto path = make<CGMutablePath>();
  path->addRect({0, 0, 1, 1});
  const auto copy = path->copy();
  EXPECT_EQ(copy->copy(), copy);
  EXPECT_TRUE(*copy == *path);
  path->addPath(*path, CGAffineTransform::translation(5, 0));
  EXPECT_FALSE(copy->isEqual(path.get()));
  EXPECT_EQ(path->boundingBox(), CGRect(0, 0, 6, 1));
  EXPECT_EQ(copy->hash(), CGPath::rect({0, 0, 1, 1})->hash());
}

TEST(CGPath, WalkSurvivesABlockThatChangesThePath) {
  auto path = make<CGMutablePath>();
  path->addRect({0, 0, 1, 1});
  int steps = 0;
  path->applyWithBlock([&](const CGPathElement&) {
    path->addRect({0, 0, 2, 2});
    ++steps;
  });
  EXPECT_EQ(steps, 5);
}

TEST(CGPath, StrokeOutlineCoversTheStroke) {
  VirtualHostScope host;
  auto path = make<CGMutablePath>();
  path->move({0, 0});
  path->addLine({100, 0});
  const auto butt = path->copyStrokingWithWidth(10, CGLineCap::butt, CGLineJoin::miter, 10);
  EXPECT_TRUE(butt->contains({50, 4.9}));
  EXPECT_FALSE(butt->contains({50, 5.1}));
  EXPECT_FALSE(butt->contains({-1, 0}));
  const auto square = path->copyStrokingWithWidth(10, CGLineCap::square, CGLineJoin::miter, 10,
                                                  CGAffineTransform::translation(0, 50));
  EXPECT_TRUE(square->contains({-4.9, 50}));
  EXPECT_TRUE(path->copyStrokingWithWidth(0, CGLineCap::butt, CGLineJoin::miter, 10)->isEmpty());
  path->addLine({nan, infinity});
  EXPECT_TRUE(path->copyStrokingWithWidth(1, CGLineCap::butt, CGLineJoin::miter, 10)->isEmpty());
}

TEST(CGPath, StrokesOfDotsAreTheirCaps) {
  VirtualHostScope host;
  auto line = make<CGMutablePath>();
  line->move({20, 20});
  line->addLine({20, 20});
  auto closed = make<CGMutablePath>();
  closed->move({20, 20});
  closed->closeSubpath();
  for (const auto& dot : {line, closed}) {
    const auto outline = [&](CGLineCap cap) {
      return dot->copyStrokingWithWidth(10, cap, CGLineJoin::miter, 10);
    };
    EXPECT_TRUE(outline(CGLineCap::round)->contains({20, 24.9}));
    EXPECT_FALSE(outline(CGLineCap::round)->contains({24, 24}));
    EXPECT_TRUE(outline(CGLineCap::square)->contains({24.5, 24.5}));
    EXPECT_FALSE(outline(CGLineCap::square)->contains({20, 25.1}));
    EXPECT_TRUE(outline(CGLineCap::butt)->boundingBoxOfPath().isEmpty());
  }
  auto point = make<CGMutablePath>();
  point->move({20, 20});
  const auto nothing = point->copyStrokingWithWidth(10, CGLineCap::round, CGLineJoin::round, 10);
  EXPECT_TRUE(nothing->boundingBoxOfPath().isEmpty());
}

TEST(CGPath, TrimsByFractionsOfTheWholeLength) {
  auto path = make<CGMutablePath>();
  path->addRect({0, 0, 10, 10});
  path->addEllipse({100, 0, 20, 20});
  const double length = path->length();
  for (const auto& [from, to] : {std::pair(0.1, 0.2), std::pair(0.3, 0.9), std::pair(0.0, 0.5)}) {
    EXPECT_NEAR(path->copyTrimming(from, to)->length(), (to - from) * length, 1e-6);
  }
  EXPECT_TRUE(*path->copyTrimming(-3, 7) == *path);
  EXPECT_TRUE(path->copyTrimming(0.5, 0.5)->isEmpty());
  EXPECT_TRUE(path->copyTrimming(nan, nan)->isEmpty());
  // What is cut is open, what stays whole stays closed.
  EXPECT_EQ(kinds(*path->copyTrimming(0.01, 1)), (std::vector<int>{0, 1, 1, 1, 1, 0, 3, 3, 3, 3, 4}));
}

}  // namespace
}  // namespace bkuk
