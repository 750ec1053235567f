#include <gmock/gmock.h>

#include "BrenvikUIKit/interaction/BKUKStatefulView.h"
#include "platform/appkit/NSApplication.h"
#include "testing/VirtualScreenReader.h"
#include "tests/interaction/ControlFixture.h"

namespace bkuk {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using enum BKUKInteractionState;

class BKUKStatefulViewTest : public ControlFixture {};

TEST_F(BKUKStatefulViewTest, AClickGoesThroughTheStatesAndActsOnce) {
  desktop().click(inside);
  EXPECT_THAT(log->take(), ElementsAre(hover, pressed, hover));
  EXPECT_EQ(actions, 1);
  EXPECT_TRUE(view->isSelected());
  desktop().movePointer(outside);
  EXPECT_THAT(log->take(), ElementsAre(normal));
}

TEST_F(BKUKStatefulViewTest, ADragOutEndsThePressAndADragBackInRevivesTheClick) {
  desktop().movePointer(inside);
  desktop().press();
  desktop().movePointer(outside);
  EXPECT_THAT(log->take(), ElementsAre(hover, pressed, normal));
  desktop().movePointer(inside);
  desktop().release();
  EXPECT_THAT(log->take(), ElementsAre(hover));
  EXPECT_EQ(actions, 1);
  desktop().press();
  desktop().movePointer(outside);
  desktop().release();
  EXPECT_EQ(view->state(), normal);
  EXPECT_EQ(actions, 1);
}

TEST_F(BKUKStatefulViewTest, DisablingIsAStateThatNothingButEnablingLeaves) {
  desktop().movePointer(inside);
  log->take();
  view->setEnabled(false);
  EXPECT_THAT(log->take(), ElementsAre(disabled));
  EXPECT_FALSE(view->trackingArea());
  desktop().click(inside);
  desktop().movePointer(outside);
  desktop().movePointer(inside);
  EXPECT_FALSE(view->performUserAction());
  EXPECT_THAT(log->take(), IsEmpty());
  view->setEnabled(true);
  EXPECT_THAT(log->take(), ElementsAre(normal, hover));
  view->setEnabled(true);
  EXPECT_THAT(log->take(), IsEmpty());
}

TEST_F(BKUKStatefulViewTest, AnActionThatDisablesTheControlLeavesItDisabled) {
  view->setActionBlock([](BKUKStatefulView& sender) { sender.setEnabled(false); });
  desktop().click(inside);
  EXPECT_EQ(view->state(), disabled);
}

TEST_F(BKUKStatefulViewTest, AssistiveClientsHearOfSelectionAndOfBeingEnabledOnlyWhenTheyChange) {
  using Kind = VirtualScreenReader::Kind;
  VirtualScreenReader reader(*host);
  view->setAccessibilityIdentifier("control");
  view->setAccessibilityRole(NSAccessibilityRadioButtonRole);
  const auto id = reader.findIdentifier("control");
  for (int i = 0; i < 2; ++i) view->setSelected(true);
  EXPECT_EQ(reader.count(Kind::value, id), 1U);
  EXPECT_EQ(reader.count(Kind::state, id), 1U);
  EXPECT_EQ(reader.element(id).isSelected, reader.element(id).isSelectable);
  reader.forgetChanges();
  view->setState(hover);
  EXPECT_TRUE(reader.changes().empty()) << "the pointer is no client's business";
  for (int i = 0; i < 2; ++i) view->setState(disabled);
  EXPECT_EQ(reader.count(Kind::state, id), 1U);
  view->setEnabled(true);
  EXPECT_EQ(reader.count(Kind::state, id), 2U);
}

TEST_F(BKUKStatefulViewTest, TheKeyboardGivesHoverAndSpacePressesEachTime) {
  window->makeFirstResponder(view.get());
  EXPECT_THAT(log->take(), ElementsAre(hover));
  EXPECT_TRUE(view->focus()->focused());
  desktop().pressKey(spaceKey, " ");
  desktop().pressKey(spaceKey, " ", true);
  EXPECT_EQ(actions, 2);
  const int beeps = host->beepCount();
  view->setEnabled(false);
  EXPECT_EQ(window->firstResponder(), window);
  EXPECT_FALSE(view->focus()->focused());
  EXPECT_EQ(view->state(), disabled);
  window->makeFirstResponder(view.get());  // whoever calls has to ask first
  desktop().typeKey(spaceKey, " ");
  EXPECT_EQ(actions, 2);
  EXPECT_EQ(host->beepCount(), beeps);  // the key was consumed all the same
}

TEST_F(BKUKStatefulViewTest, WhereTheDesktopKeepsButtonsOffTheKeyboardTheViewRefuses) {
  host->setFullKeyboardAccessEnabled(false);
  EXPECT_FALSE(view->canBecomeKeyView());
  window->makeFirstResponder(view.get());
  EXPECT_EQ(window->firstResponder(), window);
  EXPECT_THAT(log->take(), IsEmpty());
}

TEST_F(BKUKStatefulViewTest, ACoveredViewDoesNotHoverUnlessItWantsTo) {
  window->contentView()->addSubview(make<NSView>(view->frame()));
  desktop().movePointer(inside);
  EXPECT_THAT(log->take(), IsEmpty());
  desktop().movePointer(outside);
  view->setChangeStateWhenNotHittable(true);
  desktop().movePointer(inside);
  EXPECT_THAT(log->take(), ElementsAre(hover));
}

TEST_F(BKUKStatefulViewTest, InAnInactiveWindowOnlyRegisteredViewsAnswerAndTakeTheirLabelsClicks) {
  const auto label = make<NSView>(NSRect(0, 0, 100, 50));
  view->addSubview(label);
  desktop().setFocused(false);
  desktop().movePointer(inside);
  EXPECT_EQ(view->state(), normal);
  EXPECT_EQ(view->hitTest({60, 50}), label);
  view->setRegisterStateWhenWindowInactive(true);
  view->updateTrackingAreas();
  EXPECT_EQ(view->state(), hover);
  EXPECT_EQ(view->trackingArea()->options(), 0x481U);
  EXPECT_EQ(view->hitTest({60, 50}), view);
  desktop().click(inside);
  EXPECT_EQ(actions, 1);
}

TEST_F(BKUKStatefulViewTest, HidingAndLeavingTheWindowEndTracking) {
  view->setHidden(true);
  EXPECT_FALSE(view->trackingArea());
  desktop().movePointer(inside);
  EXPECT_THAT(log->take(), IsEmpty());
  view->setHidden(false);
  EXPECT_THAT(log->take(), ElementsAre(hover));
  EXPECT_EQ(view->trackingArea()->options(), 0x421U);
  view->removeFromSuperview();
  EXPECT_FALSE(view->trackingArea());
}

/// Counts what the view asks of its tooltip.
class FakeDisplayer : public BKUKTooltipDisplaying {
 public:
  bool isTooltipShowing() const override { return false; }
  void showTooltip() override {}
  void hideTooltip() override { ++hides; }
  bool showsOnDisabledViews() const override { return onDisabled; }
  void updateTooltipTimer(bool entering) override { timers += entering ? 1 : 0; }

  int hides = 0;
  int timers = 0;
  bool onDisabled = false;
};

TEST_F(BKUKStatefulViewTest, OnlyAnAttachedTooltipIsAskedAlsoWhenDisabled) {
  desktop().movePointer(inside);
  EXPECT_FALSE(view->displayerActive());
  Ref<FakeDisplayer> displayer;
  BKUKTooltipDisplaying::makeDisplayer = [&](BKUKStatefulView&) { return displayer = make<FakeDisplayer>(); };
  EXPECT_EQ(view->displayer(), displayer);
  BKUKTooltipDisplaying::makeDisplayer = {};
  desktop().movePointer(outside);
  EXPECT_EQ(displayer->hides, 1);
  displayer->onDisabled = true;
  view->setEnabled(false);
  EXPECT_TRUE(view->trackingArea());
  desktop().movePointer(inside);
  EXPECT_EQ(displayer->timers, 1);
  EXPECT_EQ(view->state(), disabled);
}

TEST_F(BKUKStatefulViewTest, EveryShapeBelowTheViewsLayerIsAskedToDisplay) {
  const auto shape = make<BKUKShapeLayer>();
  const auto mask = make<BKUKShapeLayer>();
  view->shapeLayer()->addSublayer(shape);
  shape->setMask(mask);
  host->settle();
  view->updateLayer();
  EXPECT_TRUE(view->shapeLayer()->needsDisplay());
  EXPECT_TRUE(shape->needsDisplay());
  EXPECT_TRUE(mask->needsDisplay());
}

TEST_F(BKUKStatefulViewTest, AViewThatIsAShapeIsAskedTooAndOneWithoutALayerIsNot) {
  struct Shaped : BKUKStatefulView {
    Ref<CALayer> makeBackingLayer() override { return make<BKUKShapeLayer>(); }
  };
  const auto shaped = make<Shaped>();
  shaped->updateLayer();
  shaped->setWantsLayer(true);
  shaped->layer()->displayIfNeeded();
  EXPECT_FALSE(shaped->layer()->needsDisplay());
  shaped->updateLayer();
  EXPECT_TRUE(shaped->layer()->needsDisplay());
}

TEST_F(BKUKStatefulViewTest, AShapeAskedForBeforeTheLayerIsPutInWithIt) {
  const auto early = make<BKUKStatefulView>(NSRect{0, 0, 30, 20});
  ASSERT_TRUE(early->shape());
  EXPECT_FALSE(early->shapeLayer()->superlayer());
  for (int i = 0; i < 2; ++i) {
    window->contentView()->addSubview(early);
    EXPECT_EQ(early->shapeLayer()->superlayer(), early->layer());
    EXPECT_EQ(early->shapeLayer()->frame(), early->bounds());
    early->removeFromSuperview();
  }
}

TEST_F(BKUKStatefulViewTest, TheRingsMaskIsTheShapeElseTheRoundedLayer) {
  view->focus()->setDrawFocusRing(false);
  view->layer()->setCornerRadius(20);
  window->setBackgroundColor(NSColor::black());
  window->makeFirstResponder(view.get());
  host->settle();
  constexpr std::uint32_t black = 0xFF000000;
  EXPECT_NE(desktop().pixel(100, 28), black);  // above the view
  // The ring rounds the corner, so there is nothing where it would be square.
  EXPECT_EQ(desktop().pixel(48, 28), black);
  view->shape()->setPath([](BKUKShape& shape) { return CGPath::rect(shape.bounds()); });
  view->shapeLayer()->setFrame(view->bounds());
  view->setNeedsDisplay(true);
  host->settle();
  view->noteFocusRingMaskChanged();
  host->settle();
  EXPECT_NE(desktop().pixel(48, 30), black);
}

}  // namespace
}  // namespace bkuk
