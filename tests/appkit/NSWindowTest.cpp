#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>

#include "platform/appkit/NSApplication.h"
#include "platform/appkit/NSCursor.h"
#include "platform/appkit/NSEventMonitor.h"
#include "platform/appkit/NSWindow.h"
#include "testing/VirtualHostScope.h"
#include "tests/appkit/RecordingView.h"

namespace bkuk {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr host::Point insideView{60, 50};  // from the upper left corner of the window

TEST(NSWindowMouse, DragAndReleaseGoToTheViewOfThePressWhereverThePointerIs) {
  const VirtualHostScope host;
  WindowWithView fixture;
  auto& desktop = *host->windows().front();
  desktop.drag(insideView, {190, -40});
  const auto log = fixture.view->takeLog();
  ASSERT_GE(log.size(), 4U);
  EXPECT_EQ(log.front(), "become");
  EXPECT_EQ(log[1], "down");
  EXPECT_EQ(log[2], "drag");
  EXPECT_EQ(log.back(), "up");
  EXPECT_EQ(fixture.view->lastLocation, (NSPoint{190, 140}));
  EXPECT_EQ(fixture.window->firstResponder(), fixture.view);
}

TEST(NSWindowMouse, APressThatMakesTheWindowKeyIsItsViewsOnlyOnRequest) {
  const VirtualHostScope host;
  WindowWithView fixture;
  auto& desktop = *host->windows().front();
  desktop.setFocused(false);
  EXPECT_FALSE(fixture.window->isKeyWindow());
  desktop.click(insideView);
  EXPECT_TRUE(fixture.window->isKeyWindow());
  EXPECT_THAT(fixture.view->takeLog(), IsEmpty());
  desktop.setFocused(false);
  fixture.view->firstMouse = true;
  desktop.click(insideView);
  EXPECT_THAT(fixture.view->takeLog(), ElementsAre("become", "down", "up"));
}

TEST(NSWindowMouse, AWindowHiddenUnderAPressReleasesFarOutside) {
  const VirtualHostScope host;
  WindowWithView fixture;
  auto& desktop = *host->windows().front();
  desktop.movePointer(insideView);
  desktop.press();
  fixture.window->orderOut();
  host->settle();
  EXPECT_EQ(fixture.view->log.back(), "up");
  EXPECT_FALSE(NSPointInRect(fixture.view->lastLocation, {0, 0, 200, 100}));
}

TEST(NSWindowMouse, TheViewOfAPressMayCloseTheWindowOrGoAway) {
  const VirtualHostScope host;
  WindowWithView closing;
  closing.view->onCall = [window = closing.window.get()](std::string_view call) {
    if (call == "down") window->close();
  };
  host->windows().front()->click(insideView);
  EXPECT_FALSE(closing.window->isVisible());

  WindowWithView leaving;
  leaving.view->onCall = [&](std::string_view call) {
    if (call != "down") return;
    leaving.view->removeFromSuperview();
    leaving.view = nullptr;
  };
  host->windows().back()->click(insideView);
  EXPECT_TRUE(leaving.window->contentView()->subviews().empty());
}

TEST(NSWindowResponder, RefusalsKeepOrReturnTheKeyboard) {
  const VirtualHostScope host;
  WindowWithView fixture;
  const auto other = make<RecordingView>();
  fixture.window->contentView()->addSubview(other);
  EXPECT_TRUE(fixture.window->makeFirstResponder(fixture.view.get()));
  EXPECT_TRUE(fixture.window->makeFirstResponder(fixture.view.get()));
  EXPECT_THAT(fixture.view->takeLog(), ElementsAre("become"));
  fixture.view->refusesToResign = true;
  EXPECT_FALSE(fixture.window->makeFirstResponder(other.get()));
  EXPECT_EQ(fixture.window->firstResponder(), fixture.view);
  fixture.view->refusesToResign = false;
  other->refusesToBecome = true;
  EXPECT_TRUE(fixture.window->makeFirstResponder(other.get()));
  EXPECT_EQ(fixture.window->firstResponder(), fixture.window);
  fixture.window->makeFirstResponder(fixture.view.get());
  fixture.view->takeLog();
  fixture.view->removeFromSuperview();
  EXPECT_EQ(fixture.window->firstResponder(), fixture.window);
  EXPECT_THAT(fixture.view->takeLog(), ElementsAre("will leave", "left")) << "it is not asked";
}

TEST(NSWindowResponder, KeysGoUpTheChainAndTabMovesOn) {
  const VirtualHostScope host;
  WindowWithView fixture;
  auto& desktop = *host->windows().front();
  const auto inner = make<RecordingView>(NSRect(0, 0, 10, 10));
  fixture.view->addSubview(inner);
  fixture.view->setNextKeyView(inner.get());
  inner->setNextKeyView(fixture.view.get());
  inner->passesKeysOn = fixture.view->passesKeysOn = true;
  fixture.window->makeFirstResponder(inner.get());
  host->settle();
  inner->takeLog();
  fixture.view->takeLog();
  desktop.typeKey(0, "a");
  EXPECT_THAT(inner->takeLog(), ElementsAre("key a"));
  EXPECT_THAT(fixture.view->takeLog(), ElementsAre("key a"));
  EXPECT_EQ(host->beepCount(), 1);
  desktop.typeKey(48, "\t");
  EXPECT_EQ(fixture.window->firstResponder(), fixture.view);
  desktop.setModifiers({.shift = true});
  desktop.typeKey(48, "\t");
  EXPECT_EQ(fixture.window->firstResponder(), inner);
}

TEST(NSWindowEvents, MonitorsChangeDropAndRemoveEachOther) {
  const VirtualHostScope host;
  WindowWithView fixture;
  auto& desktop = *host->windows().front();
  fixture.window->makeFirstResponder(fixture.view.get());
  fixture.view->takeLog();
  Ref<NSEventMonitor> second;
  int secondCalls = 0;
  const auto first = NSEventMonitor::addLocalMonitorForEvents(
      NSEventMaskFromType(NSEventType::keyDown), [&](NSEvent& event) -> Ref<NSEvent> {
        if (event.characters() == "x") return nullptr;
        NSEventMonitor::removeMonitor(second);
        return make<NSEvent>(
            NSEvent::Fields{.type = NSEventType::keyDown, .window = event.window(), .characters = "changed"});
      });
  second = NSEventMonitor::addLocalMonitorForEvents(~NSEventMask{0}, [&](NSEvent& event) {
    ++secondCalls;
    return Ref<NSEvent>(&event);
  });
  desktop.pressKey(7, "x");
  EXPECT_THAT(fixture.view->takeLog(), IsEmpty());
  desktop.pressKey(0, "a");
  EXPECT_THAT(fixture.view->takeLog(), ElementsAre("key changed"));
  EXPECT_EQ(secondCalls, 0);
  NSEventMonitor::removeMonitor(first);
  NSEventMonitor::removeMonitor(first);
}

TEST(NSWindowGeometry, SenselessSizesAreClamped) {
  const VirtualHostScope host;
  const double infinity = std::numeric_limits<double>::infinity();
  const double nan = std::numeric_limits<double>::quiet_NaN();
  for (const NSRect& frame : {NSRect(0, 0, nan, nan), NSRect(nan, infinity, 10, 10), NSRect(0, 0, -50, -20),
                              NSRect(-1e9, 1e9, 1e9, 1), NSRect(0, 0, infinity, 1)}) {
    const auto window = make<NSWindow>(frame);
    window->orderFront();
    window->displayIfNeeded();
    EXPECT_GE(window->frame().size.width, 1);
    EXPECT_LE(window->frame().size.width, host::Window::maxSide);
    EXPECT_EQ(window->contentView()->frame().size, window->frame().size);
    window->setFrame(frame);
    window->close();
  }
}

TEST(NSWindowGeometry, FollowsTheDesktopsSizeAndScale) {
  const VirtualHostScope host;
  WindowWithView fixture;
  auto& desktop = *host->windows().front();
  desktop.changeFrame({10, 20, 301, 151});
  EXPECT_EQ(fixture.window->contentView()->frame(), NSRect(0, 0, 301, 151));
  desktop.setScale(1.5);
  EXPECT_EQ(fixture.window->backingScaleFactor(), 1.5);
  EXPECT_EQ(fixture.view->layer()->contentsScale(), 1.5);
  EXPECT_EQ(desktop.image().size(), (host::PixelSize{452, 227}));
}

TEST(NSWindowGeometry, ChildrenMoveAndLeaveWithTheirParent) {
  const VirtualHostScope host;
  WindowWithView fixture;
  const auto child = make<NSWindow>(NSRect(120, 130, 50, 20), NSWindowStyleMaskBorderless);
  fixture.window->addChildWindow(child, NSWindowOrderingMode::above);
  EXPECT_TRUE(child->isVisible());
  fixture.window->setFrame({110, 80, 200, 100});
  EXPECT_EQ(child->frame(), NSRect(130, 110, 50, 20));
  child->makeKey();
  EXPECT_TRUE(fixture.window->isKeyWindow()) << "a borderless window cannot become key";
  const auto behind = make<NSWindow>(NSRect(120, 130, 50, 20), NSWindowStyleMaskBorderless);
  const int raises = host->windows().front()->raiseCount();
  fixture.window->addChildWindow(behind, NSWindowOrderingMode::below);
  EXPECT_GT(host->windows().front()->raiseCount(), raises) << "the parent comes to lie in front again";
  fixture.window->close();
  EXPECT_FALSE(child->isVisible());
  fixture.window->removeChildWindow(*child);
  EXPECT_FALSE(child->parent());
}

TEST(NSWindowDrawing, PaintsItsViewsAndPresentsOnlyWhatChanged) {
  const VirtualHostScope host;
  WindowWithView fixture;
  auto& desktop = *host->windows().front();
  fixture.window->setBackgroundColor(NSColor::srgbRed(0, 0, 1, 1));
  host->settle();
  EXPECT_EQ(desktop.pixel(0, 0), 0xFF0000FFU);
  desktop.forgetPresents();
  host->advance(5);
  EXPECT_EQ(desktop.presentCount(), 0) << "nothing changes, nothing is presented";
  fixture.view->layer()->setBackgroundColor(NSColor::srgbRed(1, 0, 0, 1)->cgColor());
  host->settle();
  EXPECT_THAT(desktop.presentedDamage(), ElementsAre(host::PixelRect{50, 30, 100, 50}));
  EXPECT_EQ(desktop.pixel(50, 30), 0xFFFF0000U);
  EXPECT_EQ(desktop.pixel(49, 30), 0xFF0000FFU);
  EXPECT_EQ(desktop.pixel(50, 80), 0xFF0000FFU);
}

TEST(NSWindowLife, AShownWindowStaysUntilItIsClosed) {
  const VirtualHostScope host;
  Weak<NSWindow> weak;
  {
    const auto window = make<NSWindow>(NSRect(0, 0, 100, 100));
    weak = window.get();
    window->makeKeyAndOrderFront();
  }
  ASSERT_TRUE(weak.isAlive());
  int closings = 0;
  const auto token = NSNotificationCenter::default_().addObserver(
      NSWindowWillCloseNotification, weak.lock().get(), nullptr, [&](NSNotification&) { ++closings; });
  host->windows().front()->requestClose();
  EXPECT_EQ(closings, 1);
  EXPECT_FALSE(weak.isAlive());
  EXPECT_FALSE(NSApplication::shared().keyWindow());
  EXPECT_TRUE(host->windows().empty());
  NSNotificationCenter::default_().removeObserver(token.get());
}

TEST(NSWindowCursor, TheShapeReachesEveryWindow) {
  const VirtualHostScope host;
  WindowWithView fixture;
  NSCursor::pointingHand()->set();
  EXPECT_EQ(host->windows().front()->cursor(), host::CursorShape::pointingHand);
  const auto later = make<NSWindow>(NSRect(0, 0, 100, 100));
  later->orderFront();
  EXPECT_EQ(host->windows().back()->cursor(), host::CursorShape::pointingHand);
  NSCursor::arrow()->set();
  later->close();
}

}  // namespace
}  // namespace bkuk
