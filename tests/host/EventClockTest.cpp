#include <gtest/gtest.h>

#include "host/qt/desktop/EventClock.h"

namespace bkuk::host {
namespace {

TEST(EventClock, KeepsTheDistanceOfEventsThatArriveLate) {
  EventClock clock;
  const double first = clock.date(5000, 100);
  // The program was busy for a second, the user was not.
  EXPECT_NEAR(clock.date(5200, 101.2) - first, 0.2, 1e-9);
  EXPECT_LE(clock.date(5200, 101.2), 101.2);
}

TEST(EventClock, LearnsFromAnEventThatArrivesSooner) {
  EventClock clock;
  EXPECT_NEAR(clock.date(5000, 100.5), 100.5, 1e-9);
  EXPECT_NEAR(clock.date(6000, 101), 101, 1e-9);
  EXPECT_NEAR(clock.date(7000, 102.3), 102, 1e-9);
}

TEST(EventClock, StartsAnewWhenTheDesktopsCounterWraps) {
  EventClock clock;
  EXPECT_NEAR(clock.date(4'294'967'000, 100), 100, 1e-6);
  EXPECT_NEAR(clock.date(500, 101), 101, 1e-6);
}

TEST(EventClock, TakesEventsWithoutAStampAsNew) {
  EventClock clock;
  EXPECT_EQ(clock.date(0, 42), 42);
}

}  // namespace
}  // namespace bkuk::host
