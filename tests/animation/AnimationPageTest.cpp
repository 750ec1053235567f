#include <gtest/gtest.h>

#include "gallery/brand/Brand.h"
#include "gallery/pages/animation/AnimationPage.h"
#include "testing/VirtualHostScope.h"

namespace bkuk::gallery {
namespace {

/// The page in a window of its own, with the keyboard on its switch.
class AnimationPageTest : public testing::Test {
 protected:
  AnimationPageTest() {
    installBrand();
    window->contentView()->addSubview(page);
    page->setFrame(window->contentView()->bounds());
    window->makeKeyAndOrderFront();
    window->makeFirstResponder(modeChoice.get());
    host->settle();
  }
  ~AnimationPageTest() override { window->close(); }

  void pressRight() { host->windows().front()->typeKey(124); }
  /// What the desktop was given to show within a second.
  int presentsOfASecond() {
    host->windows().front()->forgetPresents();
    host->advance(1);
    return host->windows().front()->presentCount();
  }

  VirtualHostScope host;
  Ref<NSWindow> window = make<NSWindow>(NSRect(0, 0, 900, 1000));
  Ref<AnimationPage> page = make<AnimationPage>();
  Ref<Choice> modeChoice = as<Choice>(Ref<NSView>(page->keyViews().front()));
};

TEST_F(AnimationPageTest, RunsOnceAndStopsByItself) {
  EXPECT_EQ(presentsOfASecond(), 0);
  pressRight();
  EXPECT_GE(presentsOfASecond(), 59);
  host->advance(1.5);
  EXPECT_EQ(modeChoice->selected(), 0U);
  EXPECT_EQ(presentsOfASecond(), 0);
}

TEST_F(AnimationPageTest, LoopsUntilThePageIsGone) {
  pressRight();
  pressRight();
  host->advance(2.2);
  EXPECT_GE(presentsOfASecond(), 59);
  page->removeFromSuperview();
  page = nullptr;
  modeChoice = nullptr;
  host->advance(0.1);
  EXPECT_EQ(presentsOfASecond(), 0);
  EXPECT_TRUE(BKUKLinearAnimator::sharedInstance().animations().empty());
}

}  // namespace
}  // namespace bkuk::gallery
