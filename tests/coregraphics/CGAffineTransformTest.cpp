#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <numbers>

#include "platform/coregraphics/CGAffineTransform.h"

namespace bkuk {
namespace {

void expectNear(CGPoint actual, CGPoint expected) {
  EXPECT_NEAR(actual.x, expected.x, 1e-12);
  EXPECT_NEAR(actual.y, expected.y, 1e-12);
}

TEST(CGAffineTransform, ConcatenatingAppliesTheReceiverFirst) {
  const auto moved = CGAffineTransform::translation(10, 0);
  const auto doubled = CGAffineTransform::scale(2, 2);
  expectNear(moved.concatenating(doubled).apply(CGPoint{1, 1}), {22, 2});
  expectNear(doubled.concatenating(moved).apply(CGPoint{1, 1}), {12, 2});
}

TEST(CGAffineTransform, NamedOperationsComeBeforeTheReceiver) {
  const auto moved = CGAffineTransform::translation(10, 0);
  expectNear(moved.scaledBy(2, 3).apply(CGPoint{1, 1}), {12, 3});
  expectNear(moved.rotatedBy(std::numbers::pi / 2).apply(CGPoint{1, 0}), {10, 1});
  expectNear(CGAffineTransform::scale(2, 2).translatedBy(5, 0).apply(CGPoint{}), {10, 0});
}

TEST(CGAffineTransform, InverseUndoes) {
  const CGAffineTransform transform{2, 0.5, -1, 3, 7, -4};
  const CGPoint point{3, 11};
  expectNear(transform.inverted().apply(transform.apply(point)), point);
  const CGAffineTransform flat{1, 2, 2, 4, 5, 6};
  EXPECT_EQ(flat.inverted(), flat);
}

TEST(CGAffineTransform, RectanglesBecomeTheBoxAroundThem) {
  const auto turned = CGAffineTransform::rotation(std::numbers::pi / 4);
  const CGRect box = turned.apply(CGRect(0, 0, 1, 1));
  EXPECT_NEAR(box.width(), std::numbers::sqrt2, 1e-12);
  EXPECT_NEAR(box.minX(), -std::numbers::sqrt2 / 2, 1e-12);
  EXPECT_TRUE(turned.apply(CGRect::null).isNull());
}

}  // namespace
}  // namespace bkuk
