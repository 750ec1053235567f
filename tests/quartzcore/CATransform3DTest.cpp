#include <gtest/gtest.h>
#include <numbers>

#include "platform/quartzcore/CAMediaTimingFunction.h"
#include "platform/quartzcore/CATransform3D.h"

namespace bkuk {
namespace {

TEST(CATransform3D, ConcatAppliesTheFirstArgumentFirst) {
  const auto moveThenScale =
      CATransform3DConcat(CATransform3DMakeTranslation(3, 4, 0), CATransform3DMakeScale(2, 10, 1));
  EXPECT_EQ(CATransform3DGetAffineTransform(moveThenScale).apply(CGPoint{1, 1}), (CGPoint{8, 50}));
}

TEST(CATransform3D, TurningAboutZIsTheAffineRotation) {
  const auto turned =
      CATransform3DGetAffineTransform(CATransform3DMakeRotation(std::numbers::pi / 6, 0, 0, 5));
  const auto expected = CGAffineTransform::rotation(std::numbers::pi / 6);
  EXPECT_NEAR(turned.a, expected.a, 1e-12);
  EXPECT_NEAR(turned.b, expected.b, 1e-12);
  EXPECT_NEAR(turned.c, expected.c, 1e-12);
  EXPECT_TRUE(CATransform3DIsIdentity(CATransform3DMakeRotation(1, 0, 0, 0))) << "no axis, no turn";
}

TEST(CAMediaTimingFunction, RunsFromEndToEndAndNeverBackInTime) {
  for (const auto name :
       {kCAMediaTimingFunctionLinear, kCAMediaTimingFunctionEaseIn, kCAMediaTimingFunctionEaseOut,
        kCAMediaTimingFunctionEaseInEaseOut, kCAMediaTimingFunctionDefault}) {
    const auto function = make<CAMediaTimingFunction>(name);
    EXPECT_EQ(function->evaluate(-1), 0);
    EXPECT_EQ(function->evaluate(2), 1);
    for (double time = 0; time < 1; time += 0.01)
      EXPECT_LT(function->evaluate(time), function->evaluate(time + 0.01));
  }
}

TEST(CAMediaTimingFunction, NamedCurvesHaveTheirShape) {
  EXPECT_NEAR(make<CAMediaTimingFunction>(kCAMediaTimingFunctionLinear)->evaluate(0.3), 0.3, 1e-9);
  EXPECT_NEAR(make<CAMediaTimingFunction>(kCAMediaTimingFunctionEaseInEaseOut)->evaluate(0.5), 0.5, 1e-9);
  EXPECT_LT(make<CAMediaTimingFunction>(kCAMediaTimingFunctionEaseIn)->evaluate(0.5), 0.4);
  EXPECT_NEAR(make<CAMediaTimingFunction>(kCAMediaTimingFunctionDefault)->evaluate(0.5), 0.8024, 1e-3);
}

TEST(CAMediaTimingFunction, ControlPointsOutsideTimeAreCut) {
  const auto function = make<CAMediaTimingFunction>(-3, 0, 9, 1);
  EXPECT_EQ(function->controlPoint1().x, 0);
  EXPECT_EQ(function->controlPoint2().x, 1);
  EXPECT_TRUE(function->isEqual(make<CAMediaTimingFunction>(0, 0, 1, 1).get()));
}

}  // namespace
}  // namespace bkuk
