#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <thread>

#include "platform/appkit/NSAnimationContext.h"
#include "platform/foundation/NSThread.h"
#include "platform/quartzcore/CAAnimation.h"
#include "platform/quartzcore/CAMediaTimingFunction.h"
#include "platform/quartzcore/CATransaction.h"
#include "testing/VirtualHostScope.h"
#include "tests/appkit/ShownView.h"

namespace bkuk {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Context = NSAnimationContext;

class NSAnimationContextTest : public testing::Test {
 protected:
  std::function<void()> note(std::string what) {
    return [this, what] { log.push_back(what); };
  }
  void fade(CGFloat opacity) { shown.view->setAlphaValue(opacity); }
  [[nodiscard]] Ref<CAAnimation> fading() const { return shown.view->layer()->animation("opacity"); }

  VirtualHostScope host;
  ShownView shown;
  std::vector<std::string> log;
};

TEST_F(NSAnimationContextTest, ALevelStartsAsACopyAndEndsWithItsBlock) {
  auto& base = Context::current();
  EXPECT_EQ(base.duration(), 0.25);
  EXPECT_FALSE(base.timingFunction());
  EXPECT_FALSE(base.allowsImplicitAnimation());
  const auto curve = make<CAMediaTimingFunction>(kCAMediaTimingFunctionLinear);
  Context::runAnimationGroup([&](Context& outer) {
    EXPECT_EQ(&Context::current(), &outer);
    outer.setDuration(3);
    outer.setTimingFunction(curve);
    outer.setAllowsImplicitAnimation(true);
    Context::runAnimationGroup([&](Context& inner) {
      EXPECT_EQ(inner.duration(), 3);
      EXPECT_EQ(inner.timingFunction(), curve);
      EXPECT_TRUE(inner.allowsImplicitAnimation());
      inner.setDuration(1);
      inner.setTimingFunction(nullptr);
      EXPECT_EQ(CATransaction::animationDuration(), 1);
    });
    EXPECT_EQ(outer.duration(), 3);
    EXPECT_EQ(CATransaction::animationDuration(), 3);
    EXPECT_EQ(CATransaction::animationTimingFunction(), curve);
  });
  EXPECT_EQ(&Context::current(), &base);
  EXPECT_EQ(CATransaction::animationDuration(), 0.25);
}

TEST_F(NSAnimationContextTest, EveryThreadHasLevelsOfItsOwn) {
  Context::runAnimationGroup([&](Context& here) {
    here.setDuration(3);
    std::thread([&] {
      EXPECT_EQ(Context::current().duration(), 0.25);
      Context::runAnimationGroup(
          [](Context& there) { there.setDuration(5); },
          [this] { log.push_back(NSThread::isMainThread() ? "on the main thread" : "elsewhere"); });
    }).join();
    EXPECT_EQ(CATransaction::animationDuration(), 3);
  });
  EXPECT_THAT(log, IsEmpty());
  host->settle();
  EXPECT_THAT(log, ElementsAre("on the main thread"));
}

TEST_F(NSAnimationContextTest, AViewsOwnLayerAnimatesOnlyWhereTheContextAllowsIt) {
  fade(0.5);
  EXPECT_FALSE(fading());
  Context::runAnimationGroup([&](Context& context) {
    fade(0.25);
    EXPECT_FALSE(fading());
    context.setAllowsImplicitAnimation(true);
    fade(0.75);
    EXPECT_TRUE(fading());
  });
  host->advance(1);
  EXPECT_FALSE(fading());
}

TEST_F(NSAnimationContextTest, WhatTheBaseLevelSaysHoldsForTheGroups) {
  Context::current().setDuration(4);
  host->settle();
  Context::runAnimationGroup([](Context&) { EXPECT_EQ(CATransaction::animationDuration(), 4); });
  Context::current().setDuration(0.25);
}

TEST_F(NSAnimationContextTest, AGroupWithoutAnimationsCompletesInALaterTurn) {
  Context::runAnimationGroup([](Context&) {}, note("done"));
  EXPECT_THAT(log, IsEmpty());
  host->settle();
  EXPECT_THAT(log, ElementsAre("done"));
}

TEST_F(NSAnimationContextTest, AGroupWaitsForItsAnimationsAndThoseOfInnerGroups) {
  const auto fadeSlowly = [&](Context& inner) {
    inner.setDuration(2);
    inner.setAllowsImplicitAnimation(true);
    fade(0.5);
  };
  const auto changes = [&](Context& outer) {
    CATransaction::setCompletionBlock(note("the block's own"));
    Context::runAnimationGroup([](Context& inner) { EXPECT_FALSE(inner.completionHandler()); });
    Context::runAnimationGroup([](Context&) {}, note("empty"));
    Context::runAnimationGroup(fadeSlowly, note("inner"));
    outer.setCompletionHandler(note("outer, as replaced"));
  };
  Context::runAnimationGroup(changes, note("outer"));
  host->advance(1.9);
  EXPECT_THAT(log, ElementsAre("empty"));
  host->advance(0.2);
  EXPECT_THAT(log, ElementsAre("empty", "the block's own", "inner", "outer, as replaced"));
}

}  // namespace
}  // namespace bkuk
