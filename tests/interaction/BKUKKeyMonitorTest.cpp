#include <gmock/gmock.h>

#include "BrenvikUIKit/interaction/BKUKKeyCodes.h"
#include "BrenvikUIKit/interaction/BKUKKeyMonitor.h"
#include "BrenvikUIKit/interaction/BKUKNSWindow+Extensions.h"
#include "BrenvikUIKit/interaction/BKUKPanel.h"
#include "platform/appkit/NSApplication.h"
#include "tests/interaction/ControlFixture.h"
#include "tests/support/StopLine.h"

namespace bkuk {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Options = BKUKKeyMonitor::Options;

constexpr std::uint16_t returnKey = 36;
constexpr std::uint16_t escapeKey = 53;

class KeyMonitors : public ControlFixture {
 public:
  KeyMonitors() {
    lower->activate(*window);
    upper->activate(*window);
  }

  BKUKKeyMonitor::Action heard(std::string name, bool consumes) {
    return [this, name, consumes](NSEvent&) {
      calls.push_back(name);
      return consumes;
    };
  }
  /// Who heard of the key, and "beep" when nobody took it.
  std::vector<std::string> press(std::uint16_t key) {
    calls.clear();
    const int beeps = host->beepCount();
    desktop().typeKey(key);
    if (host->beepCount() > beeps) calls.push_back("beep");
    return calls;
  }

  std::vector<std::string> calls;
  Ref<BKUKKeyMonitor> lower = make<BKUKKeyMonitor>();
  Ref<BKUKKeyMonitor> upper = make<BKUKKeyMonitor>();
};

TEST_F(KeyMonitors, TheTopOneDecidesWhatTheOthersHear) {
  lower->setCancel(heard("lower", true));
  EXPECT_THAT(press(escapeKey), ElementsAre("beep"));  // the upper one has no action and lets nothing pass
  upper->setOptions(Options::passWhenNoAction);
  EXPECT_THAT(press(escapeKey), ElementsAre("lower"));
  upper->setCancel(heard("upper", true));
  EXPECT_THAT(press(escapeKey), ElementsAre("upper"));
  upper->setCancel(heard("upper", false));
  EXPECT_THAT(press(escapeKey), ElementsAre("upper", "beep"));
  upper->setOptions(Options::passWhenNoAction | Options::passWhenNotConsumed);
  EXPECT_THAT(press(escapeKey), ElementsAre("upper", "lower"));
  upper->deactivate();
  lower->removeAction(escapeKey);
  EXPECT_THAT(press(escapeKey), ElementsAre("beep"));
}

TEST_F(KeyMonitors, OnlyKeysOfTheirOwnWindowReachThem) {
  upper->setSubmit(heard("upper", true));
  const auto panel = make<BKUKPanel>(NSRect(0, 0, 50, 50));
  panel->makeKeyAndOrderFront();
  host->settle();
  host->windows().back()->typeKey(returnKey);
  EXPECT_THAT(calls, IsEmpty());
  panel->close();
}

TEST_F(KeyMonitors, TheEventMonitorIsThereWhileTheStackIsNotEmpty) {
  const auto& stack = *window->keyMonitorStack();
  upper->activate(*window);
  EXPECT_EQ(stack.stack().size(), 3U);
  removeKeyMonitor(*window, upper.get());  // the lower of the two
  EXPECT_EQ(stack.stack().back(), upper);
  removeAllKeyMonitors(*window);
  EXPECT_FALSE(stack.monitor());
  upper->activate(*window);
  EXPECT_TRUE(stack.monitor());
  upper->setSubmit([&](NSEvent&) {
    removeAllKeyMonitors(*window);  // also takes this very action
    return true;
  });
  upper = nullptr;
  EXPECT_THAT(press(returnKey), IsEmpty());
  EXPECT_FALSE(stack.monitor());
}

TEST_F(KeyMonitors, AnAliasPressesAControlThatCanBePressed) {
  upper->setSubmit(*view);
  EXPECT_THAT(press(returnKey), IsEmpty());
  EXPECT_THAT(press(76), IsEmpty());
  EXPECT_EQ(actions, 2);
  view->setEnabled(false);
  EXPECT_THAT(press(returnKey), ElementsAre("beep"));
  view->setEnabled(true);
  view->removeFromSuperview();
  EXPECT_THAT(press(returnKey), ElementsAre("beep"));
  view = nullptr;
  EXPECT_THAT(press(returnKey), ElementsAre("beep"));
  EXPECT_EQ(actions, 2);
}

TEST_F(KeyMonitors, AWindowOfAnotherClassIsAnError) {
  const auto plain = make<NSWindow>(NSRect(0, 0, 50, 50));
  const auto line = stopLine([&] { lower->activate(*plain); });
  EXPECT_THAT(line.value_or(""),
              HasSubstr("Fatal error: NSWindow does not support key monitor.: file BrenvikUIKit/BKUKWindow"));
}

TEST(BKUKKeyCodes, KnowTheirKeysAndNoOthers) {
  EXPECT_EQ(BKUKKeyCodesFromRawValue(124), BKUKKeyCodes::arrow_rigt);
  EXPECT_EQ(BKUKKeyCodesFromRawValue(48), std::nullopt);
  EXPECT_EQ(rawValue(BKUKKeyCodes::enter_num), 76);
}

}  // namespace
}  // namespace bkuk
