#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>

#include "platform/foundation/NSRunLoop.h"
#include "testing/VirtualHostScope.h"
#include "tests/appkit/LayoutFixture.h"

namespace bkuk {
namespace {

using testing::ElementsAre;

void pin(NSView& view, CGFloat inset) {
  const auto parent = view.superview();
  activated(view.leftAnchor()->constraintEqualTo(parent->leftAnchor(), inset));
  activated(view.rightAnchor()->constraintEqualTo(parent->rightAnchor(), -inset));
  activated(view.topAnchor()->constraintEqualTo(parent->topAnchor(), inset));
  activated(view.bottomAnchor()->constraintEqualTo(parent->bottomAnchor(), -inset));
}

TEST(LayoutEngine, FollowsTheWindowThroughTheMasksOfTheViewsBetween) {
  const VirtualHostScope host;
  LayoutFixture fixture;  // 200 by 100 at (50, 20) in 400 by 300
  fixture.root->setAutoresizingMask(NSViewWidthSizable | NSViewMinYMargin);
  const auto view = placedView(*fixture.root);
  pin(*view, 10);
  fixture.window->layoutIfNeeded();
  EXPECT_EQ(view->frame(), NSRect(10, 10, 180, 80));
  fixture.window->setContentSize({500, 340});
  fixture.window->layoutIfNeeded();
  EXPECT_EQ(fixture.root->frame(), NSRect(50, 60, 300, 100));
  EXPECT_EQ(view->frame(), NSRect(10, 10, 280, 80));
  view->setFrame({0, 0, 5, 5});  // by hand, against its constraints
  fixture.window->layoutIfNeeded();
  EXPECT_EQ(view->frame(), NSRect(10, 10, 280, 80));
}

TEST(LayoutEngine, HearsOfViewsBetweenThatNoConstraintNames) {
  const VirtualHostScope host;
  LayoutFixture fixture;
  const auto between = make<LayoutView>(NSRect(20, 0, 100, 100));
  fixture.root->addSubview(between);
  const auto inner = placedView(*between, {10, 10});
  const auto outer = placedView(*fixture.root, {10, 10});
  activated(inner->leftAnchor()->constraintEqualTo(fixture.root->leftAnchor(), 50));
  activated(outer->leftAnchor()->constraintEqualTo(inner->rightAnchor(), 5));
  fixture.window->layoutIfNeeded();
  EXPECT_EQ(inner->frame().origin.x, 30);
  between->setFrameOrigin({35, 0});
  fixture.window->layoutIfNeeded();
  EXPECT_EQ(inner->frame().origin.x, 15);
  EXPECT_EQ(outer->frame().origin.x, 65);
  between->removeFromSuperview();
  fixture.window->layoutIfNeeded();
  EXPECT_EQ(inner->frame().origin.x, 15);
}

TEST(LayoutEngine, LaysOutOnlyWhatChanged) {
  const VirtualHostScope host;
  LayoutFixture fixture;
  const auto left = placedView(*fixture.root);
  const auto right = placedView(*fixture.root);
  pin(*left, 10);
  pin(*right, 20);
  const auto inLeft = placedView(*left, {10, 10});
  const auto inRight = placedView(*right, {10, 10});
  const auto offset = activated(inLeft->leftAnchor()->constraintEqualTo(left->leftAnchor()));
  activated(inRight->leftAnchor()->constraintEqualTo(right->leftAnchor()));
  fixture.window->displayIfNeeded();
  const int before = right->layouts;
  const int leftBefore = left->layouts;
  offset->setConstant(3);
  fixture.window->displayIfNeeded();
  EXPECT_EQ(inLeft->frame().origin.x, 3);
  EXPECT_EQ(right->layouts, before);
  EXPECT_EQ(left->layouts, leftBefore + 1);
  fixture.window->displayIfNeeded();
  EXPECT_EQ(left->layouts, leftBefore + 1);
}

TEST(LayoutEngine, TheTurnEndSolves) {
  const VirtualHostScope host;
  LayoutFixture fixture;
  fixture.window->orderFront();
  const auto view = placedView(*fixture.root);
  pin(*view, 10);
  const auto width = view->widthAnchor()->constraintEqualToConstant(20);
  width->setPriority(NSLayoutPriorityDefaultLow);
  width->setActive(true);
  NSRunLoop::main().step();
  EXPECT_EQ(view->frame().size.width, 180);
  fixture.root->setFrameSize({100, 100});
  NSRunLoop::main().step();
  EXPECT_EQ(view->frame().size.width, 80);
}

TEST(LayoutEngine, LayoutMayChangeConstraintsAndTheTree) {
  const VirtualHostScope host;
  LayoutFixture fixture;
  const auto panel = placedView(*fixture.root);
  pin(*panel, 0);
  const auto kept = placedView(*panel, {10, 10});
  const auto removed = placedView(*panel, {10, 10});
  const auto width = activated(kept->widthAnchor()->constraintEqualToConstant(50));
  activated(kept->leftAnchor()->constraintEqualTo(removed->rightAnchor()));
  // As views do whose arrangement depends on their width.
  panel->onLayout = [&] {
    width->setConstant(panel->frame().size.width / 2);
    removed->removeFromSuperview();
  };
  fixture.window->layoutIfNeeded();
  EXPECT_EQ(kept->frame().size.width, 100);
  EXPECT_FALSE(removed->superview());
  panel->onLayout = [&] { fixture.root->removeFromSuperview(); };
  fixture.root->setFrameSize({300, 100});
  fixture.window->layoutIfNeeded();
  EXPECT_FALSE(panel->window());
  EXPECT_TRUE(width->isActive());
}

TEST(LayoutEngine, AVeryDeepTreeIsSolvedWithoutRecursion) {
  const VirtualHostScope host;
  LayoutFixture fixture;
  fixture.window->setContentSize({30'000, 30'000});
  fixture.root->setFrame({0, 0, 20'100, 20'100});
  Ref<NSView> innermost = fixture.root;
  for (int i = 0; i < 10'000; ++i) {
    const auto child = placedView(*innermost);
    pin(*child, 1);
    innermost = child;
  }
  fixture.window->layoutIfNeeded();
  EXPECT_EQ(innermost->frame(), NSRect(1, 1, 100, 100));
  fixture.root->setFrameSize({20'110, 20'110});
  fixture.window->layoutIfNeeded();
  EXPECT_EQ(innermost->frame(), NSRect(1, 1, 110, 110));
}

TEST(LayoutEngine, FittingSizeIsTheLeastThatTheContentAdmits) {
  const VirtualHostScope host;
  LayoutFixture fixture;
  EXPECT_EQ(fixture.root->fittingSize(), (NSSize{0, 0}));
  const auto view = placedView(*fixture.root, {60, 20});
  EXPECT_EQ(view->fittingSize(), (NSSize{60, 20}));
  pin(*view, 10);
  EXPECT_EQ(fixture.root->fittingSize(), (NSSize{80, 40}));
  fixture.window->layoutIfNeeded();
  EXPECT_EQ(view->frame().size, (NSSize{180, 80}));
}

TEST(LayoutEngine, SenselessNumbersOfViewsAreHarmless) {
  const VirtualHostScope host;
  LayoutFixture fixture;
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const auto view = placedView(*fixture.root, {nan, std::numeric_limits<double>::infinity()});
  const auto other = make<LayoutView>(NSRect(nan, 0, nan, 1e300));
  fixture.root->addSubview(other);
  activated(view->leftAnchor()->constraintEqualTo(other->rightAnchor(), 4));
  activated(view->widthAnchor()->constraintEqualToConstant(20));
  fixture.window->layoutIfNeeded();
  EXPECT_EQ(view->frame().origin.x, 4);
  EXPECT_EQ(view->frame().size.width, 20);
}

// The engine went with the root; what leaves before a new one is needed must end its constraints all the
// same.
TEST(LayoutEngine, AViewLeavesATreeThatHasLostItsRoot) {
  const VirtualHostScope host;
  auto root = make<NSView>();
  const auto home = make<NSView>(NSRect(0, 0, 100, 100));
  root->addSubview(home);
  const auto a = placedView(*home);
  const auto b = placedView(*home);
  const auto between = activated(a->leftAnchor()->constraintEqualTo(b->leftAnchor()));
  const auto within = activated(b->leftAnchor()->constraintEqualTo(home->leftAnchor(), 7));
  root = nullptr;
  a->removeFromSuperview();
  EXPECT_FALSE(between->isActive());
  const LayoutFixture fixture;
  fixture.root->addSubview(home);
  fixture.window->layoutIfNeeded();
  EXPECT_TRUE(within->isActive());
  EXPECT_EQ(b->frame().origin.x, 7);
}

TEST(LayoutEngine, ConstraintsComeAndGoBeforeTheTreeIsLaidOut) {
  const VirtualHostScope host;
  const auto root = make<NSView>();
  const auto home = make<NSView>(NSRect(0, 0, 100, 100));
  root->addSubview(home);
  const auto a = placedView(*home, {10, 10});
  const auto b = placedView(*home, {10, 10});
  const Ref<NSLayoutConstraint> within[] = {
      activated(a->leftAnchor()->constraintEqualTo(home->leftAnchor(), 1)),
      activated(a->topAnchor()->constraintEqualTo(home->topAnchor(), 2)),
      activated(b->leftAnchor()->constraintEqualTo(a->rightAnchor(), 4)),
      activated(b->topAnchor()->constraintEqualTo(a->topAnchor()))};
  const auto crossing = activated(a->leftAnchor()->constraintEqualTo(root->leftAnchor(), 3));
  within[0]->setActive(false);
  within[3]->setActive(false);
  within[0]->setActive(true);
  within[1]->setConstant(5);
  home->removeFromSuperview();
  EXPECT_FALSE(crossing->isActive());
  EXPECT_EQ(home->constraints().size(), 3U);
  const LayoutFixture fixture;
  fixture.root->addSubview(home);
  within[3]->setActive(true);
  fixture.window->layoutIfNeeded();
  EXPECT_EQ(a->frame(), NSRect(1, 85, 10, 10));
  EXPECT_EQ(b->frame(), NSRect(15, 85, 10, 10));
  home->removeFromSuperview();
  within[2]->setConstant(6);
  fixture.root->addSubview(home);
  fixture.window->layoutIfNeeded();
  EXPECT_EQ(b->frame(), NSRect(17, 85, 10, 10));
}

TEST(LayoutEngine, ASizeThatInvalidatesItselfWhileItIsAskedIsItsAnswer) {
  class Restless : public NSView {
   public:
    std::function<void()> onAsk;
    NSSize intrinsicContentSize() const override {
      if (onAsk) onAsk();
      return {30, 20};
    }
  };
  const VirtualHostScope host;
  const LayoutFixture fixture;
  const auto addRestless = [&] {
    const auto view = make<Restless>();
    view->setTranslatesAutoresizingMaskIntoConstraints(false);
    fixture.root->addSubview(view);
    activated(view->leftAnchor()->constraintEqualTo(fixture.root->leftAnchor()));
    return view;
  };
  const auto alone = addRestless();
  alone->onAsk = [&] { alone->invalidateIntrinsicContentSize(); };
  fixture.window->layoutIfNeeded();
  EXPECT_EQ(alone->frame().size, (NSSize{30, 20}));
  const auto first = addRestless();
  const auto second = addRestless();
  first->onAsk = [&] { second->invalidateIntrinsicContentSize(); };
  second->onAsk = [&] { first->invalidateIntrinsicContentSize(); };
  fixture.window->orderFront();
  host->settle();
  EXPECT_EQ(second->frame().size, (NSSize{30, 20}));
  first->onAsk = second->onAsk = {};
}

}  // namespace
}  // namespace bkuk
