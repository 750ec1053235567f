#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/KeyCodes.h"
#include "platform/appkit/NSApplication.h"
#include "platform/appkit/NSControl.h"
#include "platform/appkit/NSWindow.h"
#include "platform/appkit/drawing/NSColor.h"
#include "platform/appkit/window/ViewOrder.h"
#include "testing/VirtualHostScope.h"

namespace bkuk {
namespace {

using testing::ElementsAre;

using host::keyCode::tab;

class Stop : public NSControl {
 public:
  using NSControl::NSControl;
  NSRect focusRingMaskBounds() override { return masked ? bounds() : NSRect(); }
  bool masked = true;
};

class KeyViewLoop : public testing::Test {
 public:
  KeyViewLoop() {
    window->setBackgroundColor(NSColor::black());
    window->setAutorecalculatesKeyViewLoop(true);
    for (const auto& stop : {lowerRight, upperRight, lowerLeft, upperLeft})
      window->contentView()->addSubview(stop);
    window->makeKeyAndOrderFront();
    host->settle();
  }
  ~KeyViewLoop() override { window->close(); }

  Ref<NSResponder> pressTab(bool withShift = false) {
    auto& desktop = *host->windows().front();
    desktop.setModifiers({.shift = withShift});
    desktop.typeKey(tab, "\t");
    return window->firstResponder();
  }
  [[nodiscard]] std::uint32_t pixel(int x, int yFromBottom) {
    host->settle();
    return host->windows().front()->pixel(x, 99 - yFromBottom);
  }

  VirtualHostScope host;
  Ref<NSWindow> window = make<NSWindow>(NSRect(0, 0, 200, 100), NSWindowStyleMaskTitled);
  Ref<Stop> upperLeft = make<Stop>(NSRect(10, 60, 30, 20));
  Ref<Stop> upperRight = make<Stop>(NSRect(100, 64, 30, 20));  // a little higher, yet the same row
  Ref<Stop> lowerLeft = make<Stop>(NSRect(10, 20, 30, 20));
  Ref<Stop> lowerRight = make<Stop>(NSRect(100, 20, 30, 20));
};

TEST_F(KeyViewLoop, TabGoesInReadingOrderAndAround) {
  EXPECT_EQ(pressTab(), upperLeft);
  EXPECT_EQ(pressTab(), upperRight);
  EXPECT_EQ(pressTab(), lowerLeft);
  lowerRight->setEnabled(false);
  EXPECT_EQ(pressTab(), upperLeft);
  EXPECT_EQ(pressTab(true), lowerLeft);
  lowerLeft->removeFromSuperview();
  EXPECT_EQ(window->firstResponder(), window);
  EXPECT_EQ(pressTab(), upperLeft);
}

TEST_F(KeyViewLoop, RowsStartAtTheLeadingSideAndGroupsStayTogether) {
  const auto group = make<Stop>(NSRect(50, 10, 40, 80));
  const auto inner = make<Stop>(NSRect(5, 5, 10, 10));
  group->addSubview(inner);
  window->contentView()->addSubview(group);
  EXPECT_THAT(viewsInReadingOrder(*window->contentView()),
              ElementsAre(upperLeft, group, inner, upperRight, lowerLeft, lowerRight));
  window->contentView()->setUserInterfaceLayoutDirection(NSUserInterfaceLayoutDirection::rightToLeft);
  EXPECT_THAT(viewsInReadingOrder(*window->contentView()),
              ElementsAre(upperRight, group, inner, upperLeft, lowerRight, lowerLeft));
}

TEST_F(KeyViewLoop, TheRingFollowsTheKeyboardOutsideOfTheMask) {
  constexpr std::uint32_t black = 0xFF000000;
  window->makeFirstResponder(lowerLeft.get());
  EXPECT_NE(pixel(8, 30), black);   // one and a half points left of the view
  EXPECT_EQ(pixel(20, 30), black);  // inside it
  EXPECT_EQ(pixel(4, 30), black);   // beyond the ring
  window->makeFirstResponder(upperLeft.get());
  EXPECT_EQ(pixel(8, 30), black);
  EXPECT_NE(pixel(8, 70), black);
  upperLeft->setFrameOrigin({50, 60});
  EXPECT_EQ(pixel(8, 70), black);
  EXPECT_NE(pixel(48, 70), black);
  upperLeft->masked = false;
  upperLeft->noteFocusRingMaskChanged();
  EXPECT_EQ(pixel(48, 70), black);
  window->makeFirstResponder(lowerLeft.get());
  host->windows().front()->setFocused(false);
  EXPECT_EQ(pixel(8, 30), black);
}

TEST_F(KeyViewLoop, WhatThePointerChoseHasItsRingOnceAKeyIsPressed) {
  constexpr std::uint32_t black = 0xFF000000;
  class Clickable : public Stop {
   public:
    using Stop::Stop;
    bool takesFocusOnClick() const override { return true; }
    bool needsPanelToBecomeKey() const override { return isTypedInto; }
    bool isTypedInto = false;
  };
  const auto view = make<Clickable>(NSRect(90, 40, 20, 20));
  window->contentView()->addSubview(view);
  auto& desktop = *host->windows().front();
  desktop.click({100, 50});
  EXPECT_EQ(window->firstResponder(), view);
  EXPECT_EQ(pixel(88, 50), black);
  desktop.typeKey(host::keyCode::space, " ");
  EXPECT_NE(pixel(88, 50), black);
  window->makeFirstResponder(nullptr);
  view->isTypedInto = true;
  desktop.click({100, 50});
  EXPECT_NE(pixel(88, 50), black);
}

TEST_F(KeyViewLoop, ClicksLeaveTheKeyboardWhereItIs) {
  window->makeFirstResponder(upperLeft.get());
  host->windows().front()->click({110, 70});
  EXPECT_EQ(window->firstResponder(), upperLeft);
  upperLeft->setEnabled(false);
  EXPECT_EQ(window->firstResponder(), window);
}

}  // namespace
}  // namespace bkuk
