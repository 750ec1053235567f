#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>

#include "platform/appkit/NSApplication.h"
#include "platform/appkit/NSCursor.h"
#include "platform/appkit/NSEventMonitor.h"
#include "platform/appkit/NSWindow.h"
#include "platform/foundation/NSRunLoop.h"
#include "testing/VirtualHostScope.h"
#include "tests/appkit/RecordingView.h"
#include "tests/support/StopLine.h"

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

// Whoever is told of the keyboard, or asked to let go of it, may do with it what he likes.
TEST(NSWindowResponder, TheKeyboardStaysWithinTheWindow) {
  const VirtualHostScope host;
  WindowWithView fixture;
  WindowWithView other;
  const auto& window = fixture.window;
  const auto next = make<RecordingView>();
  const auto third = make<RecordingView>();
  const auto homeless = make<RecordingView>();
  for (const auto& view : {next, third}) window->contentView()->addSubview(view);
  EXPECT_FALSE(window->makeFirstResponder(homeless.get()));
  EXPECT_FALSE(window->makeFirstResponder(other.view.get()));
  EXPECT_FALSE(window->makeFirstResponder(other.window.get()));
  EXPECT_EQ(window->firstResponder(), window);

  // Refocuses while it resigns: the one that became is not passed over.
  const auto onResign = [&](const std::function<void()>& act) {
    fixture.view->onCall = [act](std::string_view call) {
      if (call == "resign") act();
    };
    window->makeFirstResponder(fixture.view.get());
    for (const auto& view : {next, third}) view->takeLog();
  };
  onResign([&] { window->makeFirstResponder(third.get()); });
  EXPECT_FALSE(window->makeFirstResponder(next.get()));
  EXPECT_EQ(window->firstResponder(), third);
  EXPECT_THAT(next->takeLog(), IsEmpty());
  EXPECT_THAT(third->takeLog(), ElementsAre("become"));

  onResign([&] { next->removeFromSuperview(); });
  window->makeFirstResponder(next.get());
  EXPECT_EQ(window->firstResponder(), window);
  EXPECT_THAT(next->takeLog(), ElementsAre("will leave", "left"));
  onResign([&] { fixture.view->removeFromSuperview(); });
  EXPECT_TRUE(window->makeFirstResponder(third.get()));
  EXPECT_EQ(window->firstResponder(), third);
}

TEST(NSWindowResponder, RespondersThatHandEachOtherTheKeyboardComeToAnEnd) {
  const VirtualHostScope host;
  WindowWithView fixture;
  const auto& window = fixture.window;
  const auto other = make<RecordingView>();
  window->contentView()->addSubview(other);
  fixture.view->onCall = [&](std::string_view call) {
    if (call == "become") window->makeFirstResponder(other.get());
  };
  other->onCall = [&](std::string_view call) {
    if (call == "become") window->makeFirstResponder(fixture.view.get());
  };
  window->makeFirstResponder(other.get());
  EXPECT_NE(window->firstResponder(), window);
  fixture.view->onCall = other->onCall = [&](std::string_view call) {
    if (call == "left" || call == "will leave") window->makeFirstResponder(fixture.view.get());
  };
  window->contentView()->removeFromSuperview();
  EXPECT_EQ(window->firstResponder(), window);
}

TEST(NSWindowResponder, APlaceThatIsNotANumberHasNoRing) {
  const VirtualHostScope host;
  WindowWithView fixture;
  class Ringed : public RecordingView {
   public:
    using RecordingView::RecordingView;
    NSRect focusRingMaskBounds() override { return bounds(); }
  };
  const auto view = make<Ringed>(NSRect(10, 10, 20, 20));
  fixture.window->contentView()->addSubview(view);
  fixture.window->makeFirstResponder(view.get());
  host->settle();
  constexpr double nan = std::numeric_limits<double>::quiet_NaN();
  constexpr double infinity = std::numeric_limits<double>::infinity();
  for (const NSRect& frame : {NSRect(nan, nan, nan, nan), NSRect(0, nan, 10, 10), NSRect(0, 0, nan, 10),
                              NSRect(infinity, 0, infinity, 10), NSRect(-1e300, 0, 1e301, 1e301)}) {
    view->setFrame(frame);
    host->settle();
    host->windows().front()->click({60, 60});
  }
  EXPECT_EQ(fixture.window->firstResponder(), view);
}

TEST(NSWindowContent, AContentViewThatIsTakenAwayLeavesAPlainOne) {
  const VirtualHostScope host;
  WindowWithView fixture;
  WindowWithView other;
  const auto& window = fixture.window;
  const auto content = window->contentView();
  content->removeFromSuperview();
  EXPECT_NE(window->contentView(), content);
  EXPECT_EQ(window->contentView()->frame(), NSRect(0, 0, 200, 100));
  window->setContentView(content);
  const auto wrapper = make<NSView>();
  wrapper->setTranslatesAutoresizingMaskIntoConstraints(false);
  wrapper->addSubview(content);
  EXPECT_FALSE(content->window());
  window->setContentView(wrapper);
  window->setContentSize({50, 40});
  EXPECT_EQ(wrapper->frame().size, (NSSize{50, 40})) << "the window places it";
  other.window->setContentView(wrapper);
  EXPECT_EQ(wrapper->window(), other.window);
  EXPECT_EQ(window->contentView()->window(), window);

  // One that leaves sets another: that stands, and is the only one.
  const auto leaving = make<RecordingView>();
  const auto last = make<NSView>();
  window->setContentView(leaving);
  leaving->onCall = [&](std::string_view call) {
    if (call == "left") window->setContentView(last);
  };
  window->setContentView(make<NSView>());
  EXPECT_EQ(window->contentView(), last);
  EXPECT_EQ(last->superview()->subviews().size(), 1U);
  host->settle();
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

TEST(NSWindowGeometry, AWindowIsNoChildOfItsChildren) {
  const VirtualHostScope host;
  const auto first = make<NSWindow>(NSRect(0, 0, 100, 100));
  const auto second = make<NSWindow>(NSRect(0, 0, 100, 100));
  const auto third = make<NSWindow>(NSRect(0, 0, 100, 100));
  first->addChildWindow(second, NSWindowOrderingMode::above);
  second->addChildWindow(third, NSWindowOrderingMode::above);
  for (const auto& window : {first, second, third}) {
    EXPECT_THAT(*stopLine([&] { third->addChildWindow(window, NSWindowOrderingMode::above); }),
                testing::HasSubstr("cannot be a child of itself"));
  }
  first->setFrame({10, 0, 100, 100});
  EXPECT_EQ(third->frame().origin.x, 10);
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

TEST(NSWindowCommit, AVisibleChangeTakesOneTurn) {
  const VirtualHostScope host;
  WindowWithView fixture;
  const auto later = make<RecordingView>(NSRect(0, 0, 10, 10));
  fixture.window->contentView()->addSubview(later);
  host->settle();
  fixture.view->takeLog();
  later->takeLog();
  int turns = 0;
  const auto counter = NSRunLoop::main().addTurnEndObserver(0, [&] { ++turns; });
  const auto turnsTaken = [&] {
    host->settle();
    return std::exchange(turns, 0);
  };
  fixture.view->setNeedsDisplay(true);
  EXPECT_EQ(turnsTaken(), 1);
  EXPECT_THAT(fixture.view->takeLog(), ElementsAre("draw"));
  fixture.view->setFrame({10, 10, 60, 60});
  fixture.view->setNeedsLayout(true);
  fixture.window->makeFirstResponder(fixture.view.get());
  EXPECT_EQ(turnsTaken(), 1);
  fixture.view->takeLog();
  // What is left over has a turn of its own.
  fixture.view->onCall = [&](std::string_view) { later->setNeedsLayout(true); };
  fixture.view->setNeedsDisplay(true);
  EXPECT_EQ(turnsTaken(), 2);
  EXPECT_THAT(later->takeLog(), ElementsAre("layout"));
  counter->invalidate();
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
