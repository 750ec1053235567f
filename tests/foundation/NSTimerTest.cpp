#include <limits>

#include "platform/foundation/NSRunLoop.h"
#include "platform/foundation/NSTimer.h"
#include "tests/foundation/LoopTest.h"

namespace bkuk {
namespace {

struct Clock : NSObject {
  std::vector<double> ticks;
  void tick(NSTimer* timer) { ticks.push_back(timer->fireDate()); }

 protected:
  const SelectorTable& selectors() const override {
    static const auto& table =
        SelectorTable::make(NSObject::selectors(), {{"tick", memberAction<&Clock::tick>}});
    return table;
  }
};

class NSTimerTest : public LoopTest {
 protected:
  Ref<NSTimer> after(double seconds, std::string name) {
    return NSTimer::scheduledTimer(seconds, false, [=, this](NSTimer&) { log.push_back(name); });
  }
  Ref<NSTimer> every(double seconds, NSTimer::Block block) {
    return NSTimer::scheduledTimer(seconds, true, std::move(block));
  }
  std::vector<double> dates;
};

TEST_F(NSTimerTest, OneShotFiresOnceAtItsDateThenIsInvalid) {
  const auto clock = make<Clock>();
  const auto timer = NSTimer::scheduledTimer(0.5, clock, "tick", {}, false);
  host->advance(0.49);
  EXPECT_TRUE(clock->ticks.empty());
  EXPECT_TRUE(timer->isValid());
  host->advance(5);
  EXPECT_EQ(clock->ticks, std::vector<double>{1000.5});
  EXPECT_FALSE(timer->isValid());
  EXPECT_EQ(NSRunLoop::main().nextFireDate(), std::nullopt);
}

TEST_F(NSTimerTest, TheFireDateCountsFromCreationNotFromAdding) {
  const auto timer = make<NSTimer>(1, false, [this](NSTimer&) { dates.push_back(host->now()); });
  host->advance(0.75);
  NSRunLoop::main().add(timer, NSDefaultRunLoopMode);
  NSRunLoop::main().add(timer, NSDefaultRunLoopMode);
  host->advance(1);
  EXPECT_EQ(dates, std::vector<double>{1001});
}

TEST_F(NSTimerTest, DueTimersFireInOrderOfDateThenOfScheduling) {
  after(0.2, "late"), after(0.1, "first"), after(0.1, "second");
  host->advance(1);
  EXPECT_EQ(log, (Log{"first", "second", "late"}));
}

TEST_F(NSTimerTest, RepeatingDatesDoNotDrift) {
  int fired = 0;
  const auto timer = every(1.0 / 60, [&](NSTimer&) { ++fired; });
  host->advance(10);
  EXPECT_EQ(fired, 600);
  timer->invalidate();
}

TEST_F(NSTimerTest, MissedDatesAreSkippedAndTheGridIsKept) {
  const auto timer = every(1, [&](NSTimer&) {
    dates.push_back(host->now());
    if (dates.size() == 1) host->advance(2.5);
  });
  host->advance(4);
  EXPECT_EQ(dates, (std::vector<double>{1001, 1004})) << "the first callback returned at 1003.5";
  timer->invalidate();
}

TEST_F(NSTimerTest, IntervalsThatAreNoTimeOrNoNumberCountAsTheShortest) {
  const NSTimer::Block nothing = [](NSTimer&) {};
  for (const double interval : {0.0, -3.0, std::numeric_limits<double>::quiet_NaN()})
    EXPECT_EQ(make<NSTimer>(interval, false, nothing)->timeInterval(), 0.0001);
  const auto never = make<NSTimer>(std::numeric_limits<double>::infinity(), false, nothing);
  NSRunLoop::main().add(never, NSDefaultRunLoopMode);
  EXPECT_EQ(NSRunLoop::main().nextFireDate(), std::nullopt);
  never->invalidate();
}

TEST_F(NSTimerTest, ATimerWhoseCallbackRunsALoopDoesNotFireInIt) {
  int fired = 0;
  const auto timer = every(0.1, [&](NSTimer&) {
    ++fired;
    after(0.3, "inner");
    NSRunLoop::main().run(NSDefaultRunLoopMode, host->now() + 1);
  });
  host->advance(0.1);
  EXPECT_EQ(fired, 1);
  EXPECT_EQ(log, Log{"inner"});
  timer->invalidate();
}

TEST_F(NSTimerTest, CallbacksMayInvalidateThemselvesAndThoseThatAreDueWithThem) {
  Ref<NSTimer> victim;
  const auto killer = every(0.1, [&](NSTimer& self) {
    log.push_back("killer");
    self.invalidate();
    self.invalidate();
    victim->invalidate();
  });
  victim = after(0.1, "victim");
  host->advance(1);
  EXPECT_EQ(log, Log{"killer"});
  NSRunLoop::main().add(victim, NSDefaultRunLoopMode);
  host->advance(1);
  EXPECT_EQ(log.size(), 1u) << "an invalid timer can never be used again";
}

TEST_F(NSTimerTest, TheTargetIsHeldUntilTheTimerIsInvalid) {
  auto clock = make<Clock>();
  const Weak<Clock> weak(clock);
  const auto timer = NSTimer::scheduledTimer(1, std::exchange(clock, nullptr), "tick", {}, true);
  host->advance(1);
  EXPECT_EQ(weak.lock()->ticks.size(), 1u);
  timer->invalidate();
  EXPECT_FALSE(weak.isAlive());
}

TEST_F(NSTimerTest, AWeakTargetMayGoWhileItsTimerRuns) {
  auto clock = make<Clock>();
  const auto timer = NSTimer::scheduledTimerWithWeakTarget(1, clock.get(), "tick", {}, true);
  host->advance(2);
  EXPECT_EQ(clock->ticks.size(), 2u);
  clock = nullptr;
  EXPECT_FALSE(timer->isValid());
  host->advance(1);
  EXPECT_EQ(NSRunLoop::main().nextFireDate(), std::nullopt);
}

TEST_F(NSTimerTest, FiringByHandEndsAOneShotAndKeepsTheDatesOfARepeatingOne) {
  const auto once = after(5, "once");
  once->fire();
  once->fire();
  EXPECT_EQ(log.size(), 1u);
  EXPECT_FALSE(once->isValid());
  const auto again = every(5, [&](NSTimer& self) { self.fire(), log.push_back("again"); });
  again->fire();
  EXPECT_EQ(log.size(), 2u) << "not again inside its own callback";
  EXPECT_EQ(again->fireDate(), 1005);
  again->invalidate();
}

TEST_F(NSTimerTest, LaterDatesFollowFromAMovedFireDate) {
  const auto timer = every(1, [this](NSTimer&) { dates.push_back(host->now()); });
  timer->setFireDate(1000.25);
  host->advance(1.5);
  EXPECT_EQ(dates, (std::vector<double>{1000.25, 1001.25}));
  timer->setFireDate(std::numeric_limits<double>::quiet_NaN());
  host->advance(10);
  EXPECT_EQ(dates.size(), 2u);
  timer->invalidate();
}

TEST_F(NSTimerTest, AFireDateSetInTheCallbackCounts) {
  const auto timer = every(1, [this](NSTimer& self) {
    dates.push_back(host->now());
    self.setFireDate(host->now() + 0.25);
  });
  host->advance(1.5);
  EXPECT_EQ(dates, (std::vector<double>{1001, 1001.25, 1001.5}));
  timer->invalidate();
}

}  // namespace
}  // namespace bkuk
