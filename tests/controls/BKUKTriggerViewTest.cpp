#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "BrenvikUIKit/controls/BKUKTriggerView.h"
#include "BrenvikUIKit/interaction/BKUKWindow.h"
#include "testing/VirtualHostScope.h"
#include "testing/VirtualScreenReader.h"

namespace bkuk {
namespace {

using testing::ElementsAre;
using enum BKUKInteractionState;

constexpr std::uint16_t spaceKey = 49;

class Trigger : public BKUKTriggerView {
 public:
  using BKUKTriggerView::BKUKTriggerView;
  void stateChanged(States state) override { states.push_back(state); }
  std::vector<States> states;
};

class BKUKTriggerViewTest : public testing::Test {
 public:
  static constexpr host::Point inside{60, 50};
  static constexpr host::Point outside{5, 5};

  BKUKTriggerViewTest() {
    window->contentView()->addSubview(view);
    view->setActionBlock([this](BKUKTriggerView&) { ++fires; });
    window->makeKeyAndOrderFront();
    host->settle();
    view->states.clear();
  }
  ~BKUKTriggerViewTest() override { window->close(); }

  [[nodiscard]] VirtualWindow& desktop() const { return *host->windows().front(); }

  VirtualHostScope host;
  int fires = 0;
  Ref<BKUKWindow> window = make<BKUKWindow>(NSRect(0, 0, 200, 100));
  Ref<Trigger> view = make<Trigger>(NSRect(50, 20, 100, 50));
};

TEST_F(BKUKTriggerViewTest, APressHeldForASecondFiresTenTimes) {
  desktop().movePointer(inside);
  desktop().press();
  EXPECT_EQ(fires, 1);
  host->advance(0.39);
  EXPECT_EQ(fires, 1);
  host->advance(0.6);
  EXPECT_EQ(fires, 10);
  desktop().release();
  host->advance(1);
  EXPECT_EQ(fires, 10);
  EXPECT_TRUE(view->isSelected());
  EXPECT_THAT(view->states, ElementsAre(hover, pressed, hover));
}

TEST_F(BKUKTriggerViewTest, LeavingOrReleasingOutsideStopsWithoutASelection) {
  desktop().movePointer(inside);
  desktop().press();
  desktop().movePointer(outside);
  EXPECT_FALSE(view->actionTimer());
  host->advance(1);
  desktop().release();
  EXPECT_EQ(fires, 1);
  EXPECT_FALSE(view->isSelected());
  EXPECT_EQ(view->state(), normal);
}

TEST_F(BKUKTriggerViewTest, TheSpaceKeyRepeatsByTheControlsOwnClock) {
  window->makeFirstResponder(view.get());
  desktop().pressKey(spaceKey, " ");
  for (int i = 0; i < 5; ++i) desktop().pressKey(spaceKey, " ", true);
  EXPECT_EQ(fires, 1);
  host->advance(0.48);
  EXPECT_EQ(fires, 3);
  desktop().releaseKey(spaceKey, " ");
  host->advance(1);
  EXPECT_EQ(fires, 3);
}

TEST_F(BKUKTriggerViewTest, DisablingDuringARepeatSilencesItAndALostKeyboardEndsIt) {
  window->makeFirstResponder(view.get());
  desktop().pressKey(spaceKey, " ");
  window->makeFirstResponder(nullptr);
  EXPECT_FALSE(view->actionTimer());
  desktop().movePointer(inside);
  desktop().press();
  EXPECT_EQ(fires, 2);
  view->setEnabled(false);
  host->advance(1);
  EXPECT_EQ(fires, 2);
  EXPECT_EQ(view->state(), disabled);
  EXPECT_FALSE(view->accessibilityPerformPress());
}

TEST_F(BKUKTriggerViewTest, ActionsMayEndThePressOrTheView) {
  view->setActionBlock([&](BKUKTriggerView& sender) {
    if (++fires == 2) sender.mouseUp(*make<NSEvent>(NSEvent::Fields{}));
  });
  desktop().movePointer(inside);
  desktop().press();
  host->advance(1);
  EXPECT_EQ(fires, 2);  // the second fire let go, so nothing repeats
  desktop().release();
  view->setActionBlock([&](BKUKTriggerView&) {
    ++fires;
    view->removeFromSuperview();
    view = nullptr;
  });
  desktop().press();
  host->advance(1);
  EXPECT_EQ(fires, 3);
}

// An action may run a loop of its own, in which the user lets go.
TEST_F(BKUKTriggerViewTest, TheRepeatingEndsAsSoonAsNobodyHolds) {
  const std::function<void()> ends[] = {
      [&] { view->mouseUp(*make<NSEvent>(NSEvent::Fields{})); },
      [&] { desktop().setFocused(false); },
      [&] { view->removeFromSuperview(); },
  };
  for (const auto& end : ends) {
    for (const bool endsInFirstFire : {true, false}) {
      window->contentView()->addSubview(view);
      window->makeKeyAndOrderFront();
      window->makeFirstResponder(view.get());
      fires = 0;
      view->setActionBlock([&](BKUKTriggerView&) {
        if (++fires == 1 && endsInFirstFire) end();
      });
      desktop().pressKey(spaceKey, " ");
      host->settle();
      if (!endsInFirstFire) end();
      EXPECT_FALSE(view->actionTimer());
      host->advance(1);
      EXPECT_EQ(fires, 1);
      desktop().releaseKey(spaceKey, " ");
    }
  }
}

TEST_F(BKUKTriggerViewTest, APressDoesNotReachTheControlAround) {
  class Around : public BKUKStatefulView {
   public:
    using BKUKStatefulView::BKUKStatefulView;
    int entries = 0;
    void mouseEntered(NSEvent&) override { ++entries; }
  };
  const auto around = make<Around>(NSRect(0, 0, 200, 100));
  int outerFires = 0;
  around->setActionBlock([&](BKUKStatefulView&) { ++outerFires; });
  window->contentView()->addSubview(around);
  around->addSubview(view);
  host->settle();
  desktop().click(inside);
  view->setEnabled(false);
  desktop().click(inside);
  EXPECT_EQ(fires, 1);
  EXPECT_EQ(outerFires, 0);
  EXPECT_GT(around->entries, 1) << "entries are passed on";
}

TEST_F(BKUKTriggerViewTest, AnAssistivePressIsAShortClick) {
  VirtualScreenReader reader(*host);
  view->setAccessibilityIdentifier("trigger");
  const auto id = reader.findIdentifier("trigger");
  EXPECT_TRUE(view->accessibilityPerformPress());
  EXPECT_EQ(fires, 1);
  EXPECT_TRUE(view->isSelected());
  EXPECT_EQ(reader.count(VirtualScreenReader::Kind::value, id), 1U);
  EXPECT_EQ(reader.count(VirtualScreenReader::Kind::state, id), 1U);
  host->advance(1);
  EXPECT_EQ(fires, 1);
}

}  // namespace
}  // namespace bkuk
