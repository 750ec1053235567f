#include <gmock/gmock.h>

#include "BrenvikUIKit/interaction/BKUKKeyFocusController.h"
#include "platform/foundation/NSNotificationCenter.h"
#include "tests/interaction/ControlFixture.h"

namespace bkuk {
namespace {

using testing::ElementsAre;
using Preset = BKUKKeyFocusController::Preset;

class FocusLog : public NSObject, public BKUKKeyFocusControllerDelegate {
 public:
  void keyFocusChanged(NSView&, bool isFocused) override { changes.push_back(isFocused); }
  std::vector<bool> changes;
};

class BKUKKeyFocusControllerTest : public ControlFixture {
 public:
  bool canTakeFocus(Preset preset, bool isFullAccess) {
    host->setFullKeyboardAccessEnabled(isFullAccess);
    return make<BKUKKeyFocusController>(view.get(), preset)->canBecomeKeyView();
  }
};

TEST_F(BKUKKeyFocusControllerTest, PresetsFollowTheDesktopsMode) {
  EXPECT_TRUE(canTakeFocus(Preset::textField, false));
  EXPECT_FALSE(canTakeFocus(Preset::button, false));
  EXPECT_TRUE(canTakeFocus(Preset::button, true));
  EXPECT_FALSE(canTakeFocus(Preset::inactive, true));
  window->contentView()->setHidden(true);
  EXPECT_FALSE(canTakeFocus(Preset::textField, true));
}

TEST_F(BKUKKeyFocusControllerTest, TheDelegateHearsOfEachChangeUntilItDies) {
  auto delegate = make<FocusLog>();
  view->focus()->setDelegate(delegate.get());
  window->makeFirstResponder(view.get());
  window->makeFirstResponder(nullptr);
  EXPECT_THAT(delegate->changes, ElementsAre(true, false));
  delegate = nullptr;
  EXPECT_EQ(view->focus()->delegate(), nullptr);
  window->makeFirstResponder(view.get());
  EXPECT_TRUE(view->focus()->focused());
}

TEST_F(BKUKKeyFocusControllerTest, NewControllersAskOnceWhoDrawsTheRing) {
  EXPECT_TRUE(view->focus()->drawFocusRing());
  EXPECT_TRUE(view->focus()->drawFocusRingMask());
  const auto before = std::exchange(BKUKKeyFocusController::defaultDrawFocusRing, [] { return false; });
  const auto controller = make<BKUKKeyFocusController>(view.get(), Preset::button);
  BKUKKeyFocusController::defaultDrawFocusRing = before;
  EXPECT_FALSE(controller->drawFocusRing());
  EXPECT_FALSE(controller->drawFocusRingMask());
  controller->setRingPath([] { return NSBezierPath::rect({0, 0, 5, 5}); });
  EXPECT_TRUE(controller->drawFocusRingMask());
  int drawn = 0;
  controller->setRingImage([&] {
    return make<NSImage>(NSSize{4, 4}, false, [&](NSRect) { return ++drawn > 0; });
  });
  EXPECT_TRUE(controller->drawFocusRingMask());
  EXPECT_EQ(drawn, 0) << "there is nothing to draw into";
  controller->setRingFrame([] { return NSRect(1, 2, 3, 4); });
  EXPECT_EQ(controller->focusRingMaskBounds(), NSRect(1, 2, 3, 4));
}

TEST_F(BKUKKeyFocusControllerTest, WindowsAnnounceEveryCallWithWhatWasPassedIn) {
  std::vector<NSObject*> passed;
  const auto token = NSNotificationCenter::default_().addObserver(
      BKUKWindow::firstResponderChange, nullptr, nullptr,
      [&](const NSNotification& notification) { passed.push_back(notification.object()); });
  window->makeFirstResponder(view.get());
  window->makeFirstResponder(view.get());
  window->makeFirstResponder(nullptr);
  NSNotificationCenter::default_().removeObserver(token.get());
  EXPECT_THAT(passed, ElementsAre(view.get(), view.get(), nullptr));
}

}  // namespace
}  // namespace bkuk
