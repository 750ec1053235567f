#include <cmath>
#include <gtest/gtest.h>
#include <limits>

#include "platform/coregraphics/CGMutablePath.h"

namespace bkuk {
namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

Ref<CGPath> line(double length) {
  auto path = make<CGMutablePath>();
  path->move({0, 0});
  path->addLine({length, 0});
  return path;
}

Ref<CGPath> dashed(const Ref<CGPath>& path, std::vector<double> lengths, double phase = 0) {
  return path->copyDashingWithPhase(phase, lengths);
}

// Start and end of every dash of a horizontal line.
std::vector<std::pair<double, double>> intervals(const CGPath& path) {
  std::vector<std::pair<double, double>> result;
  for (const auto& element : path.elements()) {
    const double x = element.points[0].x;
    if (element.type == CGPathElementType::moveToPoint) result.emplace_back(x, x);
    result.back().second = x;
  }
  return result;
}

using Intervals = std::vector<std::pair<double, double>>;

TEST(PathDashing, BeginsWithADashAtThePhase) {
  EXPECT_EQ(intervals(*dashed(line(10), {3, 2})), (Intervals{{0, 3}, {5, 8}}));
  EXPECT_EQ(intervals(*dashed(line(10), {3, 2}, 1)), (Intervals{{0, 2}, {4, 7}, {9, 10}}));
  EXPECT_EQ(intervals(*dashed(line(10), {3, 2}, -1)), (Intervals{{1, 4}, {6, 9}}));
  EXPECT_EQ(intervals(*dashed(line(10), {3, 2}, nan)), (Intervals{{0, 3}, {5, 8}}));
}

TEST(PathDashing, OddPatternsCountTwice) {
  EXPECT_EQ(intervals(*dashed(line(12), {1, 2, 3})), (Intervals{{0, 1}, {3, 6}, {7, 9}}));
}

TEST(PathDashing, InfiniteLengthsRunToTheEnd) {
  EXPECT_EQ(intervals(*dashed(line(10), {2, 1, infinity, 5})), (Intervals{{0, 2}, {3, 10}}));
  EXPECT_EQ(intervals(*dashed(line(10), {2, infinity})), (Intervals{{0, 2}}));
}

TEST(PathDashing, UnusablePatternsLeaveThePathUndashed) {
  const auto path = line(10);
  for (const auto& lengths :
       std::vector<std::vector<double>>{{}, {0, 0}, {nan, 3}, {3, nan}, {-4, 2}, {infinity, -infinity}}) {
    EXPECT_TRUE(*dashed(path, lengths) == *path);
  }
}

TEST(PathDashing, NegativeLengthsCountAsNone) {
  EXPECT_EQ(intervals(*dashed(line(10), {4, -1})), (Intervals{{0, 4}, {4, 8}, {8, 10}}));
}

TEST(PathDashing, EmptyDashesKeepADirection) {
  const auto dots = intervals(*dashed(line(10), {0, 4}));
  ASSERT_EQ(dots.size(), 3U);
  for (const auto& [from, to] : dots) EXPECT_NEAR(to - from, 0.001, 1e-9);
  EXPECT_NEAR(dots[2].first, 8, 1e-9);
}

TEST(PathDashing, EverySubpathStartsAnewAndClosedOnesOpen) {
  auto path = make<CGMutablePath>();
  path->addRect({0, 0, 10, 10});
  path->move({100, 0});
  path->addLine({110, 0});
  const auto dashes = dashed(path, {7, 4});
  int moves = 0;
  for (const auto& element : dashes->elements()) {
    EXPECT_NE(element.type, CGPathElementType::closeSubpath);
    moves += element.type == CGPathElementType::moveToPoint;
  }
  EXPECT_EQ(moves, 4 + 1);
  EXPECT_EQ(dashes->length(), 7 + 7 + 7 + 7 + 7);
}

TEST(PathDashing, LengthsAlongCurvesAreArcLengths) {
  auto path = make<CGMutablePath>();
  path->move({0, 0});
  path->addCurve({300, 0}, {0, 200}, {250, -300});
  const double period = path->length() / 20;
  const auto dashes = dashed(path, {period * 0.4, period * 0.6});
  EXPECT_NEAR(dashes->length(), path->length() * 0.4, 1e-4);
  auto single = make<CGMutablePath>();
  for (const auto& element : dashes->elements()) {
    const bool isMove = element.type == CGPathElementType::moveToPoint;
    if (isMove) single->removeAll();
    single->addElements({&element, 1});
    if (isMove) continue;
    EXPECT_NEAR(single->length(), period * 0.4, 1e-4);
  }
}

TEST(PathDashing, WholePeriodsLeaveNoCrumbAtTheEnd) {
  for (int count = 1; count < 200; ++count) {
    const double length = count * 10.0 / 3;
    EXPECT_EQ(intervals(*dashed(line(length), {2, length / count - 2})).size(),
              static_cast<std::size_t>(count));
  }
}

TEST(PathDashing, FinePatternsOnLongPathsAreBounded) {
  const auto path = line(1e9);
  const auto dashes = dashed(path, {1e-6, 3e-6});
  EXPECT_LE(dashes->elements().size(), 2 * 131073U);
  EXPECT_NEAR(dashes->length(), 0.25e9, 1e5);
  EXPECT_LE(dashed(path, {5e-324, 5e-324})->elements().size(), 2 * 131073U);
}

TEST(PathDashing, PathsThatAreNoNumbersStayAsTheyAre) {
  for (const double bad : {nan, infinity, 1e300}) {
    auto path = make<CGMutablePath>();
    path->move({0, 0});
    path->addLine({bad, 1});
    path->addCurve({bad, 3}, {1, bad}, {2, 2});
    EXPECT_GE(dashed(path, {1, 1})->elements().size(), 2U);
  }
}

}  // namespace
}  // namespace bkuk
