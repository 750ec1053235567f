#include <array>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <thread>

#include "BrenvikUIKit/animation/BKUKLinearAnimator.h"
#include "platform/foundation/NSRunLoop.h"
#include "platform/foundation/NSTimer.h"
#include "testing/VirtualHostScope.h"
#include "tests/support/StopLine.h"

namespace bkuk {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Context = BKUKLinearAnimationContext;
using Log = std::vector<std::string>;

constexpr auto frameLength = BKUKLinearAnimator::FrameLength;

class BKUKLinearAnimatorTest : public testing::Test {
 protected:
  ~BKUKLinearAnimatorTest() override {
    contexts.clear();
    advanceFrames(2);
    EXPECT_TRUE(animator.animations().empty());
    EXPECT_FALSE(isTicking());
  }

  // Logs its frames' numbers behind its name, and its phases.
  Context& makeContext(std::optional<std::uint32_t> frames, std::uint32_t start, std::uint32_t spacing,
                       const std::string& name = "") {
    const auto context = make<Context>(frames, start, spacing);
    auto* raw = context.get();
    context->setBlock([this, raw, name] { log.push_back(name + std::to_string(raw->currentFrame())); });
    context->setPhaseHandler([this, name](BKUKAnimationPhases phase) {
      log.push_back(name + std::array{"start", "middle", "finish"}[static_cast<std::size_t>(phase)]);
    });
    contexts.push_back(context);
    return *raw;
  }
  Context& start(std::optional<std::uint32_t> frames, std::uint32_t start, std::uint32_t spacing,
                 const std::string& name = "") {
    auto& context = makeContext(frames, start, spacing, name);
    context.startAnimating();
    return context;
  }

  // A little further, so that rounding of dates does not matter.
  void advanceFrames(int count) { host->advance(count * frameLength + 1e-6); }
  Log logAfter(int frames) {
    advanceFrames(frames);
    return std::exchange(log, {});
  }
  [[nodiscard]] bool isTicking() const { return animator.timer() && animator.timer()->isValid(); }
  // Calls for a frame outside the loop, where a trap can be caught.
  std::optional<std::string> stopOfFrame() {
    return stopLine([this] { animator.perform("onFrame"); });
  }

  VirtualHostScope host;
  BKUKLinearAnimator& animator = BKUKLinearAnimator::sharedInstance();
  std::vector<Ref<Context>> contexts;
  Log log;
};

TEST_F(BKUKLinearAnimatorTest, DeliversFramesAndPhasesUntilTheLastFrame) {
  auto& context = start(10, 0, 1);
  EXPECT_TRUE(context.isAnimating());
  EXPECT_THAT(logAfter(9), ElementsAre("1", "2", "3", "4", "middle", "5", "6", "7", "8", "9"));
  EXPECT_TRUE(context.isAnimating());
  EXPECT_THAT(logAfter(1), ElementsAre("10", "finish"));
  EXPECT_FALSE(context.isAnimating());
  EXPECT_THAT(logAfter(5), IsEmpty());

  context.startAnimating();
  EXPECT_EQ(context.currentFrame(), 0U);
  EXPECT_THAT(logAfter(2), ElementsAre("1", "2"));
}

TEST_F(BKUKLinearAnimatorTest, StartingFrameAndSpacingHoldBackAllButTheLastFrame) {
  start(10, 3, 2);
  EXPECT_THAT(logAfter(20), ElementsAre("start", "4", "middle", "6", "8", "10", "finish"));
  start(5, 4, 3);
  EXPECT_THAT(logAfter(20), ElementsAre("middle", "start", "5", "finish"));
  start(3, 100, 100);
  EXPECT_THAT(logAfter(20), ElementsAre("middle", "3", "finish"));
}

TEST_F(BKUKLinearAnimatorTest, ShortestRunsAndCoincidingPhases) {
  start(1, 0, 1);
  EXPECT_THAT(logAfter(5), ElementsAre("1", "finish"));
  start(0, 1, 1);
  EXPECT_THAT(logAfter(5), ElementsAre("1", "finish"));
  start(4, 2, 1);
  EXPECT_THAT(logAfter(5), ElementsAre("start", "2", "3", "4", "finish"));
}

TEST_F(BKUKLinearAnimatorTest, AnEndlessRunHasNeitherMiddleNorEnd) {
  auto& context = start(std::nullopt, 1, 2);
  EXPECT_THAT(logAfter(5), ElementsAre("start", "2", "4"));
  context.stopAnimating();
  EXPECT_TRUE(context.isAnimating()) << "until the next frame";
  EXPECT_THAT(logAfter(1), IsEmpty());
  EXPECT_FALSE(context.isAnimating());
}

TEST_F(BKUKLinearAnimatorTest, AllShareOneTimerThatStopsWithTheLastOne) {
  start(3, 0, 1, "a");
  const auto timer = animator.timer();
  EXPECT_THAT(logAfter(1), ElementsAre("amiddle", "a1"));
  start(3, 0, 1, "b");
  EXPECT_EQ(animator.timer(), timer);
  EXPECT_THAT(logAfter(2), ElementsAre("a2", "bmiddle", "b1", "a3", "afinish", "b2")) << "ends come first";
  EXPECT_TRUE(timer->isValid());
  EXPECT_THAT(logAfter(1), ElementsAre("b3", "bfinish"));
  EXPECT_FALSE(timer->isValid());
  start(1, 0, 1);
  EXPECT_NE(animator.timer(), timer);
}

TEST_F(BKUKLinearAnimatorTest, AFinishHandlerMayStartTheNextRunOnTheSameTimer) {
  auto& next = makeContext(1, 0, 1, "next");
  start(1, 0, 1).setPhaseHandler([&](BKUKAnimationPhases) { next.startAnimating(); });
  const auto timer = animator.timer();
  EXPECT_THAT(logAfter(1), ElementsAre("1"));
  EXPECT_TRUE(timer->isValid());
  EXPECT_EQ(animator.timer(), timer);
  EXPECT_THAT(logAfter(1), ElementsAre("next1", "nextfinish"));
}

TEST_F(BKUKLinearAnimatorTest, RunsStartedByAFrameWaitForTheNextOne) {
  auto& growing = start(std::nullopt, 0, 1, "old");
  growing.setBlock([&] { start(1, 0, 1, "new" + std::to_string(growing.currentFrame()) + " "); });
  EXPECT_THAT(logAfter(3), ElementsAre("new1 1", "new1 finish", "new2 1", "new2 finish"));
}

TEST_F(BKUKLinearAnimatorTest, CancellingSilencesARunAtOnce) {
  auto& first = start(std::nullopt, 0, 1);
  auto& later = start(std::nullopt, 1, 1, "later");
  auto& ending = start(1, 0, 1, "ending");
  first.setBlock([&] { later.stopAnimating(); });
  ending.setBlock([&] { ending.stopAnimating(); });
  EXPECT_THAT(logAfter(1), IsEmpty());
  EXPECT_TRUE(later.isAnimating());
  advanceFrames(1);
  EXPECT_FALSE(later.isAnimating());
  EXPECT_EQ(animator.animations().size(), 1U);

  auto& inPhase = start(std::nullopt, 1, 1, "phase");
  inPhase.setPhaseHandler([&](BKUKAnimationPhases) { inPhase.cancelable()(); });
  EXPECT_THAT(logAfter(2), IsEmpty());
  inPhase.cancelable()();
}

TEST_F(BKUKLinearAnimatorTest, AContextThatGoesAwayIsDroppedWithoutCalls) {
  start(std::nullopt, 0, 1);
  start(2, 0, 1);
  contexts.clear();
  EXPECT_THAT(logAfter(1), IsEmpty());
  EXPECT_FALSE(isTicking());

  auto& owner = start(2, 0, 1, "owner");
  start(std::nullopt, 0, 1, "owned");
  owner.setBlock([this] { contexts.clear(); });
  EXPECT_THAT(logAfter(3), ElementsAre("ownermiddle")) << "the owner itself is alive during its block only";
  EXPECT_FALSE(isTicking());
}

TEST_F(BKUKLinearAnimatorTest, CallbacksMayReplaceThemselves) {
  auto& context = start(4, 1, 1);
  context.setPhaseHandler([&, kept = std::string("changed")](BKUKAnimationPhases) {
    context.setPhaseHandler({});
    context.setBlock([&, kept] {
      context.setBlock([] {});
      log.push_back(kept);
    });
  });
  EXPECT_THAT(logAfter(5), ElementsAre("changed"));
}

TEST_F(BKUKLinearAnimatorTest, ASecondRunAdvancesTheSameContextAfterAllAreJudged) {
  auto& context = start(3, 0, 1);
  context.startAnimating();
  EXPECT_THAT(logAfter(1), ElementsAre("middle", "1", "2"));
  EXPECT_TRUE(context.isAnimating());
  EXPECT_THAT(logAfter(1), ElementsAre("3", "finish", "4", "finish"));
  EXPECT_FALSE(context.isAnimating());

  context.startAnimating();
  const auto firstHandle = context.cancelable();
  context.startAnimating();
  context.stopAnimating();
  EXPECT_THAT(logAfter(1), ElementsAre("middle", "1")) << "only the run started last is stopped";
  firstHandle();
}

TEST_F(BKUKLinearAnimatorTest, StartsAndStopsOnAnotherThread) {
  auto& stopped = makeContext(5, 0, 1, "stopped");
  auto& started = makeContext(1, 0, 1, "started");
  std::thread([&] {
    stopped.startAnimating();
    stopped.stopAnimating();
    started.startAnimating();
  }).join();
  EXPECT_TRUE(animator.animations().empty());
  EXPECT_TRUE(started.isAnimating());
  EXPECT_THAT(logAfter(2), ElementsAre("started1", "startedfinish"));
  EXPECT_FALSE(stopped.isAnimating());
}

TEST_F(BKUKLinearAnimatorTest, ABlockedLoopMissesFramesInsteadOfMakingUpForThem) {
  auto& context = start(std::nullopt, 0, 1);
  context.setBlock([&] {
    if (context.currentFrame() == 2) host->advance(20 * frameLength);
  });
  advanceFrames(2);
  EXPECT_EQ(context.currentFrame(), 2U);
  advanceFrames(3);
  EXPECT_EQ(context.currentFrame(), 5U);
}

TEST_F(BKUKLinearAnimatorTest, GoesOnWhileMenusTrackAndSheetsRun) {
  start(std::nullopt, 0, 1);
  for (const auto mode : {NSEventTrackingRunLoopMode, NSModalPanelRunLoopMode}) {
    NSRunLoop::main().run(mode, host->now() + 1.5 * frameLength);
  }
  EXPECT_GE(log.size(), 2U);
}

TEST_F(BKUKLinearAnimatorTest, StopsTheProcessWhenAMissingBlockIsDue) {
  auto& context = start(4, 3, 1);
  context.setBlock({});
  EXPECT_THAT(logAfter(2), ElementsAre("middle"));
  EXPECT_EQ(stopOfFrame(), "");
  EXPECT_EQ(log, Log{"start"}) << "the phase comes first";
}

TEST_F(BKUKLinearAnimatorTest, StopsTheProcessWhenASpacingOfZeroIsDue) {
  start(2, 2, 0);
  EXPECT_THAT(logAfter(2), ElementsAre("middle", "2", "finish")) << "neither frame asks for the spacing";
  start(4, 2, 0);
  advanceFrames(1);
  EXPECT_EQ(stopOfFrame(), "");
}

TEST_F(BKUKLinearAnimatorTest, StopsTheProcessWhenTheFramesOverflow) {
  constexpr auto last = std::numeric_limits<std::uint32_t>::max();
  auto& context = start(std::nullopt, 0, 1);
  context.setCurrentFrame(last - 1);
  EXPECT_THAT(logAfter(1), ElementsAre("4294967295"));
  EXPECT_EQ(stopOfFrame(), "");
}

}  // namespace
}  // namespace bkuk
