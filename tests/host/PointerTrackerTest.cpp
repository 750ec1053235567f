#include <gtest/gtest.h>

#include "host/support/PointerTracker.h"

namespace bkuk::host {
namespace {

using Kind = PointerEvent::Kind;

PointerSample at(double x, double time) { return {{x, 0}, {}, time}; }

class PointerTrackerTest : public ::testing::Test {
 protected:
  // The click count that a press gets.
  int click(double x, double time, PointerButton button = PointerButton::left) {
    const auto press = tracker.press(button, at(x, time));
    const auto release = tracker.release(button, at(x, time + 0.01));
    if (!press || !release) return 0;
    EXPECT_EQ(press->clickCount, release->clickCount);
    return press->clickCount;
  }

  PointerTracker tracker{0.4};
};

TEST_F(PointerTrackerTest, CountsPressesInQuickSuccession) {
  EXPECT_EQ(click(10, 0), 1);
  EXPECT_EQ(click(12, 0.3), 2);
  EXPECT_EQ(click(10, 0.6), 3);
  EXPECT_EQ(click(10, 1.1), 1);
}

TEST_F(PointerTrackerTest, StartsAnewElsewhereAndWithAnotherButton) {
  EXPECT_EQ(click(10, 0), 1);
  EXPECT_EQ(click(20, 0.1), 1);
  EXPECT_EQ(click(20, 0.2, PointerButton::right), 1);
  EXPECT_EQ(click(20, 0.3), 1);
}

TEST_F(PointerTrackerTest, MovesTellTheHeldButton) {
  EXPECT_EQ(tracker.move(at(1, 0)).button, PointerButton::none);
  EXPECT_TRUE(tracker.press(PointerButton::right, at(1, 0)));
  EXPECT_EQ(tracker.move(at(2, 0)).button, PointerButton::right);
  EXPECT_TRUE(tracker.press(PointerButton::left, at(2, 0)));
  EXPECT_EQ(tracker.move(at(3, 0)).button, PointerButton::left);
}

TEST_F(PointerTrackerTest, ACancelledPressHasNoRelease) {
  EXPECT_TRUE(tracker.press(PointerButton::left, at(7, 0)));
  const auto cancel = tracker.cancel(1);
  ASSERT_TRUE(cancel);
  EXPECT_EQ(cancel->kind, Kind::cancel);
  EXPECT_EQ(cancel->button, PointerButton::left);
  EXPECT_EQ(cancel->position, (Point{7, 0}));
  EXPECT_FALSE(tracker.release(PointerButton::left, at(7, 1)));
  EXPECT_FALSE(tracker.cancel(1));
}

TEST_F(PointerTrackerTest, IgnoresAPressOfAHeldButtonAndButtonsItDoesNotKnow) {
  EXPECT_TRUE(tracker.press(PointerButton::left, at(0, 0)));
  EXPECT_FALSE(tracker.press(PointerButton::left, at(0, 0.1)));
  EXPECT_FALSE(tracker.press(PointerButton::none, at(0, 0.1)));
}

}  // namespace
}  // namespace bkuk::host
