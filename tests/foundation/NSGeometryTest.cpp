#include <gtest/gtest.h>

#include "platform/foundation/CGRoundedUp.h"
#include "platform/foundation/NSGeometry.h"

namespace bkuk {
namespace {

TEST(NSGeometry, OnlyTheVisuallyUpperHorizontalEdgeIsInside) {
  const NSRect rect(10, 20, 30, 40);
  EXPECT_FALSE(NSMouseInRect({10, 20}, rect, false));
  EXPECT_TRUE(NSMouseInRect({10, 60}, rect, false));
  EXPECT_TRUE(NSMouseInRect({10, 20}, rect, true));
  EXPECT_FALSE(NSMouseInRect({10, 60}, rect, true));
  EXPECT_FALSE(NSMouseInRect({40, 30}, rect, false));
  EXPECT_TRUE(NSPointInRect({10, 20}, rect));
}

TEST(NSGeometry, EmptyRectanglesAddNothingAndAreNeverContained) {
  const NSRect rect(0, 0, 10, 10);
  const NSRect empty(50, 50, 0, 5);
  EXPECT_EQ(NSUnionRect(rect, empty), rect);
  EXPECT_FALSE(NSContainsRect(rect, NSRect(5, 5, 0, 0)));
  EXPECT_EQ(NSIntersectionRect(rect, NSRect(20, 20, 5, 5)), NSZeroRect);
  EXPECT_EQ(NSInsetRect(rect, 6, 6).size, (NSSize{-2, -2}));
}

TEST(CGRoundedUp, ForgivesWhatCalculatingAdds) {
  EXPECT_EQ(CGRoundedUp(14.000000000000002), 14);
  EXPECT_EQ(CGRoundedUp(14.001), 15);
  EXPECT_FALSE(std::signbit(CGRoundedUp(0)));
}

TEST(CGGeometry, NegativeExtentsAreTurnedOver) {
  const CGRect rect(10, 10, -4, -6);
  EXPECT_EQ(rect.standardized(), CGRect(6, 4, 4, 6));
  EXPECT_TRUE(rect.contains(CGPoint{7, 5}));
  EXPECT_EQ(rect.insetBy(3, 0), CGRect::null);
  EXPECT_EQ(CGRect::null.united(rect), rect.standardized());
  EXPECT_EQ(CGRect(0.5, -0.5, 1, 1).integral(), CGRect(0, -1, 2, 2));
}

}  // namespace
}  // namespace bkuk
