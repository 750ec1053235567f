#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>

#include "platform/appkit/NSLayoutConstraint.h"
#include "platform/appkit/NSLayoutGuide.h"
#include "platform/appkit/NSTrackingArea.h"
#include "platform/appkit/NSView.h"
#include "testing/VirtualHostScope.h"
#include "tests/appkit/RecordingView.h"
#include "tests/support/StopLine.h"

namespace bkuk {
namespace {

using testing::ElementsAre;

TEST(NSViewTree, AddingMovesAndKeepsTheOrderOfViews) {
  const VirtualHostScope host;
  const auto parent = make<NSView>();
  const auto other = make<NSView>();
  const auto a = make<NSView>();
  const auto b = make<NSView>();
  const auto c = make<NSView>();
  parent->addSubview(a);
  parent->addSubview(b);
  parent->addSubview(c, NSViewOrdering::below, b.get());
  EXPECT_THAT(parent->subviews(), ElementsAre(a, c, b));
  parent->addSubview(a, NSViewOrdering::above, b.get());
  EXPECT_THAT(parent->subviews(), ElementsAre(c, b, a));
  other->addSubview(b);
  EXPECT_THAT(parent->subviews(), ElementsAre(c, a));
  EXPECT_EQ(b->superview(), other);
  EXPECT_TRUE(b->isDescendantOf(*b));
  EXPECT_FALSE(b->isDescendantOf(*parent));
  EXPECT_TRUE(stopLine([&] { b->addSubview(other); }));
}

TEST(NSViewTree, LayersStandInTheOrderOfViewsAboveThoseAddedByHand) {
  const VirtualHostScope host;
  const auto parent = make<NSView>();
  parent->setWantsLayer(true);
  const auto byHand = make<CALayer>();
  parent->layer()->insertSublayer(byHand, 0);
  const auto front = make<NSView>();
  const auto back = make<NSView>();
  parent->addSubview(front);
  parent->addSubview(back, NSViewOrdering::below, front.get());
  EXPECT_THAT(parent->layer()->sublayers(), ElementsAre(byHand, back->layer(), front->layer()));
  back->removeFromSuperview();
  EXPECT_FALSE(back->layer());
  EXPECT_THAT(parent->layer()->sublayers(), ElementsAre(byHand, front->layer()));
}

TEST(NSViewTree, AViewLeavesTheLayerOfItsOldSuperviewForOneWithout) {
  const VirtualHostScope host;
  const auto old = make<NSView>();
  old->setWantsLayer(true);
  const auto next = make<NSView>();
  const auto plain = make<NSView>();
  const auto layered = make<NSView>();
  layered->setWantsLayer(true);
  for (const auto& view : {plain, layered}) {
    old->addSubview(view);
    next->addSubview(view);
  }
  EXPECT_TRUE(old->layer()->sublayers().empty());
  EXPECT_FALSE(plain->layer());
  EXPECT_FALSE(layered->layer()->superlayer());
  layered->addSubview(old);
  EXPECT_THAT(layered->layer()->sublayers(), ElementsAre(old->layer()));
}

// Takes everything away from under itself while it is laid out or displayed.
struct Vanishing : NSView {
  using NSView::NSView;
  bool wantsUpdateLayer() const override { return updates; }
  void updateLayer() override { act(); }
  void draw(NSRect) override { act(); }
  void layout() override {
    if (actsInLayout) act();
  }
  void act() {
    if (const auto now = std::exchange(action, nullptr)) now();
  }
  bool updates = false;
  bool actsInLayout = false;
  std::function<void()> action;
};

TEST(NSViewTree, ViewsAndWindowsMayEndWhileTheyAreLaidOutOrDisplayed) {
  const VirtualHostScope host;
  for (int kind = 0; kind < 6; ++kind) {
    auto window = make<NSWindow>(NSRect{0, 0, 100, 100}, NSWindowStyleMaskTitled);
    auto view = make<Vanishing>(NSRect{0, 0, 50, 50});
    view->updates = kind % 3 == 0;
    view->actsInLayout = kind % 3 == 1;
    window->contentView()->addSubview(view);
    window->contentView()->addSubview(make<NSView>(NSRect{0, 0, 10, 10}));
    view->action = [&, self = view.get(), closes = kind < 3] {
      if (!closes) return self->removeFromSuperview();
      window->close();
      window = nullptr;
    };
    const Weak<NSView> weak(view.get());
    view = nullptr;
    window->orderFront();
    host->settle();
    EXPECT_FALSE(weak.lock()) << kind;
    EXPECT_EQ(static_cast<bool>(window), kind >= 3);
    if (window) window->close();
  }
}

TEST(NSViewTree, AViewWithoutALayerToShowItStops) {
  struct Bare : NSView {
    Ref<CALayer> makeBackingLayer() override { return nullptr; }
  };
  const VirtualHostScope host;
  const auto view = make<Bare>();
  EXPECT_THAT(stopLine([&] { view->setWantsLayer(true); }).value_or(""),
              testing::HasSubstr("makeBackingLayer"));
}

TEST(NSViewTree, AViewThatOutlivesItsSuperviewStandsAlone) {
  const VirtualHostScope host;
  const auto child = make<NSView>();
  {
    const auto parent = make<NSView>();
    parent->setWantsLayer(true);
    parent->addSubview(child);
  }
  EXPECT_FALSE(child->superview());
  child->removeFromSuperview();
}

TEST(NSViewTree, MovingBetweenWindowsTellsTheWholeSubtree) {
  const VirtualHostScope host;
  WindowWithView fixture;
  const auto child = make<RecordingView>();
  fixture.view->addSubview(child);
  EXPECT_THAT(child->takeLog(), ElementsAre("will enter", "entered", "appearance"));
  fixture.view->removeFromSuperview();
  EXPECT_THAT(child->takeLog(), ElementsAre("will leave", "left"));
  EXPECT_FALSE(child->window());
}

TEST(NSViewTree, AViewMayLeaveAgainWhileItIsToldThatItEntered) {
  const VirtualHostScope host;
  WindowWithView fixture;
  const auto shy = make<RecordingView>();
  shy->onCall = [view = shy.get()](std::string_view call) {
    if (call == "entered") view->removeFromSuperview();
  };
  fixture.view->addSubview(shy);
  EXPECT_FALSE(shy->superview());
  EXPECT_FALSE(shy->window());
  EXPECT_TRUE(fixture.view->layer()->sublayers().empty());
}

// What a view may do when it is told that it is about to enter or leave, and where it hangs then.
TEST(NSViewTree, AViewMayMoveItselfOrItsSuperviewWhileItIsToldThatItWillMove) {
  const VirtualHostScope host;
  struct Case {
    std::string_view call;
    std::function<void(NSView& view, NSView& home, NSView& elsewhere)> act;
  };
  const Case cases[] = {
      {"will enter", [](NSView& view, NSView&, NSView&) { view.removeFromSuperview(); }},
      {"will enter", [](NSView& view, NSView&, NSView&) { view.superview()->removeFromSuperview(); }},
      {"will enter", [](NSView& view, NSView&, NSView& elsewhere) { elsewhere.addSubview(&view); }},
      {"will leave", [](NSView& view, NSView& home, NSView&) { home.addSubview(&view); }},
      {"will leave", [](NSView& view, NSView&, NSView& elsewhere) { elsewhere.addSubview(&view); }},
      {"will leave", [](NSView& view, NSView&, NSView&) { view.window()->makeFirstResponder(&view); }},
      {"will leave", [](NSView& view, NSView&, NSView&) {
         const auto guide = make<NSLayoutGuide>();
         view.addLayoutGuide(guide);
         guide->leftAnchor()->constraintEqualTo(view.leftAnchor())->setActive(true);
       }}};
  for (const auto& [call, act] : cases) {
    WindowWithView fixture;
    WindowWithView other;
    const auto box = make<NSView>(NSRect(0, 0, 50, 50));
    const auto view = make<RecordingView>(NSRect(0, 0, 50, 50));
    box->addSubview(view);
    const auto area = make<NSTrackingArea>(
        view->bounds(), NSTrackingMouseEnteredAndExited | NSTrackingActiveAlways, view.get());
    view->addTrackingArea(area);
    view->onCall = [&, wanted = call, deed = act](std::string_view told) {
      if (told == wanted) deed(*view, *fixture.view, *other.view);
    };
    fixture.view->addSubview(box);
    box->removeFromSuperview();
    view->onCall = {};
    for (const auto& window : {fixture.window, other.window}) {
      EXPECT_EQ(view->window() == window, view->isDescendantOf(*window->contentView())) << call;
      EXPECT_EQ(window->firstResponder(), window);
    }
    EXPECT_FALSE(box->window());
    view->setFrame({0, 0, 20, 20});
    view->removeTrackingArea(area);
    for (auto* desktop : host->windows()) desktop->movePointer({60, 60});
    host->settle();
  }
}

TEST(NSViewTree, WhoIsToldOfARemovalMayPutTheNewSuperviewInside) {
  const VirtualHostScope host;
  WindowWithView fixture;
  const auto box = make<NSView>();
  fixture.view->addSubview(make<NSView>());
  fixture.view->onCall = [&](std::string_view call) {
    if (call == "left") fixture.view->addSubview(box);
  };
  box->addSubview(fixture.view);
  EXPECT_EQ(box->superview(), fixture.view);
  EXPECT_FALSE(fixture.view->superview());
  const auto root = fixture.window->contentView()->superview();
  EXPECT_THAT(*stopLine([&] { box->addSubview(root); }), testing::HasSubstr("cannot be moved"));
}

TEST(NSViewTree, AVeryDeepTreeIsHitTestedLaidOutAndDestroyed) {
  const VirtualHostScope host;
  WindowWithView fixture;
  Ref<NSView> innermost = fixture.view;
  for (int i = 0; i < 10'000; ++i) {
    const auto child = make<NSView>(NSRect(0, 0, 100, 50));
    innermost->addSubview(child);
    innermost = child;
  }
  fixture.window->displayIfNeeded();
  EXPECT_EQ(fixture.window->contentView()->hitTest({60, 30}), innermost);
  EXPECT_EQ(innermost->convertPointTo({0, 0}, nullptr), (NSPoint{50, 20}));
}

TEST(NSViewGeometry, ConversionGoesThroughFlipsAndScrolledBounds) {
  const VirtualHostScope host;
  const auto root = make<RecordingView>(NSRect(0, 0, 200, 100));
  const auto flipped = make<RecordingView>(NSRect(10, 20, 100, 50));
  flipped->flipped = true;
  const auto leaf = make<RecordingView>(NSRect(5, 5, 40, 20));
  root->addSubview(flipped);
  flipped->addSubview(leaf);
  // The leaf's lower left corner lies 25 below the flipped view's upper edge, which is at 70.
  EXPECT_EQ(leaf->convertPointTo({0, 0}, root.get()), (NSPoint{15, 45}));
  EXPECT_EQ(leaf->convertPointFrom({15, 45}, root.get()), (NSPoint{0, 0}));
  EXPECT_EQ(leaf->convertRectTo({0, 0, 40, 20}, flipped.get()), NSRect(5, 5, 40, 20));
  flipped->setBoundsOrigin({0, 5});
  EXPECT_EQ(leaf->convertPointTo({0, 0}, root.get()), (NSPoint{15, 50}));
  for (const NSPoint point : {NSPoint{0, 0}, NSPoint{3, 7}, NSPoint{-4, 11}}) {
    EXPECT_EQ(leaf->convertPointFrom(leaf->convertPointTo(point, nullptr), nullptr), point);
  }
}

TEST(NSViewGeometry, HitTestTakesTheFrontMostAndSkipsHiddenAndOutlyingViews) {
  const VirtualHostScope host;
  const auto root = make<NSView>(NSRect(0, 0, 100, 100));
  const auto back = make<NSView>(NSRect(0, 0, 60, 60));
  const auto front = make<NSView>(NSRect(20, 20, 60, 60));
  const auto outlying = make<NSView>(NSRect(50, 50, 100, 100));
  front->addSubview(outlying);
  root->addSubview(back);
  root->addSubview(front);
  EXPECT_EQ(root->hitTest({30, 30}), front);
  EXPECT_EQ(root->hitTest({10, 10}), back);
  EXPECT_EQ(root->hitTest({90, 90}), root);
  EXPECT_EQ(root->hitTest({75, 75}), outlying);
  front->setHidden(true);
  EXPECT_EQ(root->hitTest({30, 30}), back);
  EXPECT_TRUE(outlying->isHiddenOrHasHiddenAncestor());
  EXPECT_FALSE(root->hitTest({100, 50}));
  root->setFrame({500, 500, 100, 100});
  root->setBoundsOrigin({20, 0});
  EXPECT_EQ(root->hitTest({30, 30}), back) << "without a superview the point is in the own space";
  EXPECT_EQ(root->hitTest({110, 50}), root);
  EXPECT_FALSE(root->hitTest({530, 530}));
}

TEST(NSViewGeometry, SubviewsFollowTheirSuperviewByTheirMasks) {
  const VirtualHostScope host;
  const auto parent = make<NSView>(NSRect(0, 0, 100, 100));
  const auto fixed = make<NSView>(NSRect(10, 10, 20, 20));
  const auto sizable = make<NSView>(NSRect(10, 10, 20, 20));
  sizable->setAutoresizingMask(NSViewWidthSizable | NSViewHeightSizable);
  const auto proportional = make<NSView>(NSRect(10, 10, 20, 20));
  proportional->setAutoresizingMask(NSViewMinXMargin | NSViewMaxXMargin);
  for (const auto& view : {fixed, sizable, proportional}) parent->addSubview(view);
  parent->setFrameSize({180, 130});
  EXPECT_EQ(fixed->frame(), NSRect(10, 10, 20, 20));
  EXPECT_EQ(sizable->frame(), NSRect(10, 10, 100, 50));
  EXPECT_EQ(proportional->frame(), NSRect(20, 10, 20, 20));  // 80 shared out as 10 to 70
}

TEST(NSViewGeometry, SenselessFramesAreHarmless) {
  const VirtualHostScope host;
  WindowWithView fixture;
  const double infinity = std::numeric_limits<double>::infinity();
  const double nan = std::numeric_limits<double>::quiet_NaN();
  for (const NSRect& frame : {NSRect(0, 0, nan, nan), NSRect(nan, infinity, 10, 10), NSRect(0, 0, -50, -20),
                              NSRect(-1e9, -1e9, 2e9, 2e9), NSRect(0, 0, infinity, infinity)}) {
    fixture.view->setFrame(frame);
    fixture.window->displayIfNeeded();
    (void)fixture.window->contentView()->hitTest({60, 30});
  }
  EXPECT_TRUE(fixture.window->isVisible());
}

TEST(NSViewDisplay, MarkedViewsAreLaidOutAndDrawnOncePerPass) {
  const VirtualHostScope host;
  WindowWithView fixture;
  fixture.view->setNeedsDisplay(true);
  fixture.view->setNeedsDisplay(true);
  fixture.view->setNeedsLayout(true);
  fixture.window->displayIfNeeded();
  fixture.window->displayIfNeeded();
  EXPECT_THAT(fixture.view->takeLog(), ElementsAre("layout", "draw"));
  fixture.view->setFrameOrigin({51, 20});
  fixture.window->displayIfNeeded();
  EXPECT_TRUE(fixture.view->takeLog().empty()) << "moving needs neither layout nor drawing";
  fixture.view->setLayerContentsRedrawPolicy(NSViewLayerContentsRedrawPolicy::onSetNeedsDisplay);
  fixture.view->setFrameSize({101, 50});
  fixture.window->displayIfNeeded();
  EXPECT_THAT(fixture.view->takeLog(), ElementsAre("layout"));
}

TEST(NSViewKeyLoop, SkipsViewsThatCannotTakeTheKeyboardAndEndsAfterOneRound) {
  const VirtualHostScope host;
  WindowWithView fixture;
  const auto second = make<RecordingView>();
  const auto third = make<RecordingView>();
  fixture.window->contentView()->addSubview(second);
  fixture.window->contentView()->addSubview(third);
  fixture.view->setNextKeyView(second.get());
  second->setNextKeyView(third.get());
  third->setNextKeyView(second.get());  // never comes back to the first
  second->accepts = false;
  EXPECT_EQ(fixture.view->nextValidKeyView(), third);
  third->setHidden(true);
  EXPECT_FALSE(fixture.view->nextValidKeyView());
  host->setFullKeyboardAccessEnabled(false);
  third->setHidden(false);
  EXPECT_FALSE(fixture.view->nextValidKeyView());
}

}  // namespace
}  // namespace bkuk
