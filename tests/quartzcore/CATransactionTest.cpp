#include <gtest/gtest.h>

#include "platform/quartzcore/CABasicAnimation.h"
#include "platform/quartzcore/CATransaction.h"
#include "tests/quartzcore/LayerWindow.h"
#include "tests/support/StopLine.h"

namespace bkuk {
namespace {

struct CATransactionLevels : testing::Test {
  CATransactionLevels() { CATransaction::flush(); }
  ~CATransactionLevels() override { CATransaction::flush(); }
};

TEST_F(CATransactionLevels, ReadingLooksOutwardsAndEndsAtTheDefaults) {
  EXPECT_EQ(CATransaction::animationDuration(), 0.25);
  EXPECT_FALSE(CATransaction::disableActions());
  CATransaction::begin();
  CATransaction::setAnimationDuration(2);
  CATransaction::setDisableActions(true);
  CATransaction::begin();
  EXPECT_EQ(CATransaction::animationDuration(), 2);
  EXPECT_TRUE(CATransaction::disableActions());
  CATransaction::setDisableActions(false);
  EXPECT_FALSE(CATransaction::disableActions());
  CATransaction::commit();
  EXPECT_TRUE(CATransaction::disableActions());
  CATransaction::commit();
  EXPECT_EQ(CATransaction::animationDuration(), 0.25);
}

TEST_F(CATransactionLevels, CommitWithoutBeginCommitsTheImplicitOneElseStops) {
  EXPECT_TRUE(stopLine([] { CATransaction::commit(); }));
  make<CALayer>()->setOpacity(0.5);
  EXPECT_TRUE(CATransaction::needsFlush());
  CATransaction::commit();
  EXPECT_FALSE(CATransaction::needsFlush());
}

TEST_F(CATransactionLevels, WithoutAnimationsTheCompletionComesAtTheCommit) {
  int completed = 0;
  CATransaction::begin();
  CATransaction::setCompletionBlock([&] { ++completed; });
  EXPECT_EQ(completed, 0);
  CATransaction::commit();
  EXPECT_EQ(completed, 1);
  CATransaction::setCompletionBlock([&] { ++completed; });
  CATransaction::flush();
  EXPECT_EQ(completed, 2) << "the implicit transaction's";
}

TEST_F(CATransactionLevels, AnExplicitLevelHoldsAFlushBack) {
  LayerWindow window(20, 20, 1, true);
  CATransaction::begin();
  window.root->setNeedsDisplay();
  CATransaction::flush();
  EXPECT_TRUE(window.root->needsDisplay());
  CATransaction::commit();
  CATransaction::flush();
  EXPECT_FALSE(window.root->needsDisplay());
}

struct CATransactionCompletion : testing::Test {
  CATransactionCompletion() { window.update(); }

  void animate(double duration) {
    const auto animation = make<CABasicAnimation>("cornerRadius");
    animation->setToValue(5.0);
    animation->setDuration(duration);
    layer->add(*animation, std::to_string(duration));
  }

  LayerWindow window{40, 40, 1, true};
  Ref<CALayer> layer = window.add({0, 0, 20, 20}, red());
  int completed = 0;
};

TEST_F(CATransactionCompletion, WaitsForTheAnimationsAddedAfterItAlsoInLevelsInside) {
  CATransaction::begin();
  animate(5);
  CATransaction::setCompletionBlock([&] { ++completed; });
  animate(0.5);
  CATransaction::begin();
  animate(1);
  CATransaction::commit();
  CATransaction::commit();
  window.update();
  window.host->advance(0.9);
  EXPECT_EQ(completed, 0);
  window.host->advance(0.2);
  EXPECT_EQ(completed, 1);
}

TEST_F(CATransactionCompletion, RemovedAndNeverStartedAnimationsCountAsEnded) {
  CATransaction::begin();
  CATransaction::setCompletionBlock([&] { ++completed; });
  animate(100);
  CATransaction::commit();
  window.update();
  layer->removeAllAnimations();
  window.update();
  EXPECT_EQ(completed, 1);
  layer->removeFromSuperlayer();
  CATransaction::begin();
  CATransaction::setCompletionBlock([&] { ++completed; });
  animate(100);
  CATransaction::commit();
  window.update();
  EXPECT_EQ(completed, 2) << "outside a window";
}

TEST_F(CATransactionCompletion, MayStartTheNextTransaction) {
  std::function<void()> again = [&] {
    if (++completed == 3) return;
    CATransaction::begin();
    CATransaction::setCompletionBlock(again);
    animate(0.5);
    CATransaction::commit();
    CATransaction::flush();
  };
  again();
  window.host->advance(5);
  EXPECT_EQ(completed, 3);
}

}  // namespace
}  // namespace bkuk
