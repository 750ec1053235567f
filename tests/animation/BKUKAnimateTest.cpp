#include <gtest/gtest.h>

#include "BrenvikUIKit/animation/BKUKAnimate.h"
#include "BrenvikUIKit/animation/BKUKDontAnimate.h"
#include "platform/appkit/NSAnimationContext.h"
#include "platform/quartzcore/CAAnimation.h"
#include "platform/quartzcore/CAMediaTimingFunction.h"
#include "testing/VirtualHostScope.h"
#include "tests/appkit/ShownView.h"

namespace bkuk {
namespace {

class BKUKAnimateTest : public testing::Test {
 protected:
  BKUKAnimateTest() {
    shown.view->layer()->addSublayer(added);
    host->settle();
  }

  void change(CGFloat opacity) {
    shown.view->setAlphaValue(opacity);
    added->setOpacity(opacity);
  }
  [[nodiscard]] Ref<CAAnimation> viewAnimation() const { return shown.view->layer()->animation("opacity"); }
  [[nodiscard]] Ref<CAAnimation> addedAnimation() const { return added->animation("opacity"); }

  VirtualHostScope host;
  ShownView shown;
  Ref<CALayer> added = make<CALayer>();
  Ref<CAMediaTimingFunction> curve = make<CAMediaTimingFunction>(kCAMediaTimingFunctionEaseIn);
};

TEST_F(BKUKAnimateTest, AnimatesViewsAndLayersWithDurationAndCurve) {
  int completions = 0;
  BKUKAnimate(
      2, curve, [&] { change(0.5); }, [&] { ++completions; });
  for (const auto& animation : {viewAnimation(), addedAnimation()}) {
    ASSERT_TRUE(animation);
    EXPECT_EQ(animation->duration(), 2);
    EXPECT_EQ(animation->timingFunction(), curve);
  }
  EXPECT_FALSE(NSAnimationContext::current().allowsImplicitAnimation());
  host->advance(1.9);
  EXPECT_EQ(completions, 0);
  EXPECT_GT(shown.view->layer()->presentation()->opacity(), 0.5);
  host->advance(0.2);
  EXPECT_EQ(completions, 1);
  EXPECT_FALSE(viewAnimation());
}

TEST_F(BKUKAnimateTest, DontAnimateHoldsViewsStillAndLayersOnRequest) {
  BKUKAnimate(2, curve, [&] { BKUKDontAnimate(false, [&] { change(0.5); }); });
  EXPECT_FALSE(viewAnimation());
  ASSERT_TRUE(addedAnimation());
  EXPECT_EQ(addedAnimation()->duration(), 2) << "of the group around it";

  added->removeAllAnimations();
  BKUKDontAnimate(true, [&] { change(0.25); });
  EXPECT_FALSE(viewAnimation());
  EXPECT_FALSE(addedAnimation());
  EXPECT_EQ(added->opacity(), 0.25);
  change(1);
  EXPECT_TRUE(addedAnimation()) << "layers animate again after the block";
}

}  // namespace
}  // namespace bkuk
