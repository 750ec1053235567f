#include "platform/foundation/DispatchQueue.h"
#include "platform/foundation/NSRunLoop.h"
#include "platform/foundation/NSTimer.h"
#include "tests/foundation/LoopTest.h"

namespace bkuk {
namespace {

class NSRunLoopTest : public LoopTest {
 protected:
  NSRunLoop& loop = NSRunLoop::main();
  Ref<NSTimer> repeat(double seconds, NSRunLoopMode mode, std::string name) {
    auto timer = make<NSTimer>(seconds, true, [=, this](NSTimer&) { log.push_back(name); });
    loop.add(timer, mode);
    return timer;
  }
};

TEST_F(NSRunLoopTest, ATurnRunsBlocksTimersOneEventAndTurnEndObserversInThisOrder) {
  const auto last = loop.addTurnEndObserver(2, note("last"));
  const auto commit = loop.addTurnEndObserver(1, note("commit"));
  host->settings().setAppearanceHandler(note("event"));
  const auto timer = NSTimer::scheduledTimer(1, false, [&](NSTimer&) { log.push_back("timer"); });
  timer->setFireDate(host->now());
  DispatchQueue::main().async(note("block"));
  host->setAppearance({host::ColorScheme::dark, false, false, {}});
  EXPECT_EQ(log, (Log{"block", "timer", "event", "commit", "last"}));
  last->invalidate();
  loop.step();
  EXPECT_EQ(log.back(), "commit");
  commit->invalidate();
}

TEST_F(NSRunLoopTest, ABlockQueuedByABlockWaitsForTheNextTurn) {
  DispatchQueue::main().async([&] {
    DispatchQueue::main().async(note("later"));
    log.push_back("now");
  });
  EXPECT_TRUE(log.empty()) << "never inline";
  loop.step();
  EXPECT_EQ(log, Log{"now"});
  host->settle();
  EXPECT_EQ(log.back(), "later");
}

TEST_F(NSRunLoopTest, TimersFireOnlyInModesThatTheyWereAddedTo) {
  const auto tracking = repeat(0.1, NSEventTrackingRunLoopMode, "tracking");
  const auto common = repeat(0.1, NSRunLoopCommonModes, "common");
  const auto plain = repeat(0.1, NSDefaultRunLoopMode, "default");
  loop.run(NSModalPanelRunLoopMode, host->now() + 0.15);
  EXPECT_EQ(log, Log{"common"});
  loop.run(NSEventTrackingRunLoopMode, host->now() + 0.001);
  EXPECT_EQ(log, (Log{"common", "tracking"})) << "a late timer fires at once, once";
  log.clear();
  loop.step();
  EXPECT_EQ(log, Log{"default"});
  for (const auto& timer : {tracking, common, plain}) timer->invalidate();
}

TEST_F(NSRunLoopTest, RunsNestAndEndOneByOne) {
  DispatchQueue::main().async([&] {
    DispatchQueue::main().async([&] { loop.stop(); });
    loop.run(NSModalPanelRunLoopMode, [] { return true; });
    log.push_back("inner ended");
    EXPECT_EQ(loop.currentMode(), NSDefaultRunLoopMode);
    DispatchQueue::main().async([&] { loop.stop(); });
  });
  loop.run();
  EXPECT_EQ(log, Log{"inner ended"});
}

TEST_F(NSRunLoopTest, BlocksStayInOrderWhenOneOfThemRunsALoop) {
  bool done = false;
  DispatchQueue::main().async([&] { loop.run(NSModalPanelRunLoopMode, [&] { return !done; }); });
  DispatchQueue::main().async(note("second"));
  DispatchQueue::main().async([&] { done = true; });
  loop.step();
  EXPECT_EQ(log, Log{"second"});
}

TEST_F(NSRunLoopTest, ItSleepsUntilTheNextDueDateAndNotWhileWorkWaits) {
  DispatchQueue::main().async([&] { DispatchQueue::main().async([&] { EXPECT_EQ(host->now(), 1000); }); });
  const auto timer = NSTimer::scheduledTimer(3, false, [&](NSTimer&) { loop.stop(); });
  loop.run();
  EXPECT_EQ(host->now(), 1003);
}

TEST_F(NSRunLoopTest, ATimerAddedWhileTheLoopSleepsWakesIt) {
  host->setIdleHandler([&] {
    NSTimer::scheduledTimer(2, false, [&](NSTimer&) { loop.stop(); });
    host->setIdleHandler({});
  });
  loop.run();
  EXPECT_EQ(host->now(), 1002);
}

TEST_F(NSRunLoopTest, WorkLeftToTheCommitHasATurn) {
  int commits = 0;
  const auto commit = loop.addTurnEndObserver(0, [&] {
    if (++commits < 3) loop.setNeedsTurn();
  });
  loop.run(NSDefaultRunLoopMode, host->now());
  EXPECT_EQ(commits, 1);
  host->settle();
  EXPECT_EQ(commits, 3) << "what a commit itself leaves over has a turn of its own";
  commit->invalidate();
}

TEST_F(NSRunLoopTest, WorkThatTheCommitHasServedItselfHasNone) {
  int commits = 0;
  int left = 2;
  const auto commit = loop.addTurnEndObserver(
      0,
      [&] {
        ++commits;
        loop.setNeedsTurn();
      },
      [&] { return left-- > 0; });
  host->settle();
  EXPECT_EQ(commits, 3);
  commit->invalidate();
}

TEST_F(NSRunLoopTest, AHostThatComesLaterIsToldWhatIsDue) {
  const auto timer = NSTimer::scheduledTimer(2, false, [&](NSTimer&) { log.push_back("fired"); });
  const VirtualHostScope later;
  later->advance(2);
  EXPECT_EQ(log, Log{"fired"});
}

TEST_F(NSRunLoopTest, TurnEndObserversMayComeAndGoInTheWalk) {
  Ref<NSRunLoopObserver> first, second, third;
  first = loop.addTurnEndObserver(0, [&] {
    log.push_back("first");
    first->invalidate();
    second->invalidate();
    third = loop.addTurnEndObserver(9, note("third"));
  });
  second = loop.addTurnEndObserver(1, note("second"));
  loop.step();
  EXPECT_EQ(log, Log{"first"});
  loop.step();
  EXPECT_EQ(log, (Log{"first", "third"}));
  third->invalidate();
}

}  // namespace
}  // namespace bkuk
