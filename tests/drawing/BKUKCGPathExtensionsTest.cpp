#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "BrenvikUIKit/drawing/BKUKAspectFitRect.h"
#include "BrenvikUIKit/drawing/BKUKCGPath+Extensions.h"

namespace bkuk {
namespace {

Ref<CGMutablePath> lineOf100() {
  auto path = make<CGMutablePath>();
  path->move({0, 0});
  path->addLine({100, 0});
  return path;
}

TEST(BKUKCGPathExtensions, AStrokeIsTheOutlineOfTheLineAndItsCaps) {
  const auto line = lineOf100();
  EXPECT_EQ(stroke(*line, 4, CGLineCap::butt, {}, 0)->boundingBoxOfPath(), CGRect(0, -2, 100, 4));
  EXPECT_EQ(stroke(*line, 4, CGLineCap::square, {}, 0)->boundingBoxOfPath(), CGRect(-2, -2, 104, 4));
}

TEST(BKUKCGPathExtensions, AStrokeWithAPatternCoversTheDashesOnly) {
  const BKUKLineStyle style{.width = 4, .pattern = std::vector<CGFloat>{10, 5}, .phase = 5};
  const auto outline = stroke(*lineOf100(), style);
  EXPECT_TRUE(outline->contains({2, 0}));
  EXPECT_FALSE(outline->contains({7, 0})) << "the space after a dash that began 5 before the path";
  EXPECT_TRUE(outline->contains({12, 1.9}));
  EXPECT_FALSE(outline->contains({12, 2.1}));
}

TEST(BKUKCGPathExtensions, BezierPathsKeepElementsAndRaiseQuadraticCurves) {
  const auto path = lineOf100();
  path->addQuadCurve({0, 60}, {100, 60});
  path->addCurve({-50, 0}, {-10, 60}, {-50, 30});
  path->closeSubpath();
  path->addRect({10, 10, 5, 5});
  const auto bezier = bezierPath(*path);
  ASSERT_EQ(bezier->elementCount(), path->elements().size());
  const auto back = cg(*bezier);
  ASSERT_EQ(back->elements().size(), path->elements().size());
  const auto& raised = back->elements()[2];
  EXPECT_EQ(raised.type, CGPathElementType::addCurveToPoint);
  EXPECT_NEAR(raised.points[0].y, 40, 1e-9);
  EXPECT_NEAR(raised.points[1].x, 200.0 / 3, 1e-9);
  EXPECT_NEAR(back->boundingBoxOfPath().maxX(), path->boundingBoxOfPath().maxX(), 1e-9);
  EXPECT_NEAR(back->length(), path->length(), 1e-3) << "the same course";
  EXPECT_TRUE(cg(*bezierPath(*back))->isEqual(back.get())) << "nothing is lost on the way";
}

TEST(BKUKAspectFitRect, FitsIntoTheMiddle) {
  const auto fit = [](const CGRect& frame, CGFloat aspect) {
    return BKUKAspectFitRect::frame(frame, aspect);
  };
  EXPECT_EQ(fit({10, 20, 100, 40}, 1), CGRect(40, 20, 40, 40));
  EXPECT_EQ(fit({10, 20, 100, 400}, 2), CGRect(10, 195, 100, 50));
  EXPECT_EQ(fit({0, 0, 80, 40}, 2), CGRect(0, 0, 80, 40));
}

TEST(BKUKAspectFitRect, LeavesFramesWithoutAnExtentAlone) {
  for (const CGRect& frame : {CGRect(3, 4, 0, 10), CGRect(3, 4, 10, 0), CGRect(3, 4, -8, 10)}) {
    EXPECT_EQ(BKUKAspectFitRect::frame(frame, 2), frame);
  }
}

}  // namespace
}  // namespace bkuk
