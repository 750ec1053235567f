#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <tuple>

#include "platform/appkit/NSLayoutGuide.h"
#include "testing/VirtualHostScope.h"
#include "tests/appkit/LayoutFixture.h"
#include "tests/support/StopLine.h"

namespace bkuk {
namespace {

using Attribute = NSLayoutAttribute;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr auto equal = NSLayoutRelation::equal;

/// Where a view's edges lie in its superview, as seen: from the left and from the top.
struct Seen {
  double left, right, top, bottom;
};

Seen seen(const NSView& view) {
  const auto parent = view.superview();
  const NSRect frame = view.frame();
  const double top = parent->isFlipped() ? frame.minY() : parent->frame().size.height - frame.maxY();
  return {frame.minX(), frame.maxX(), top, top + frame.size.height};
}

/// Whether the superview's y runs down, and whether text runs from right to left.
class NSLayoutAttributes : public testing::TestWithParam<std::tuple<bool, bool>> {
 public:
  NSLayoutAttributes() : fixture(std::get<0>(GetParam())) {
    view = placedView(*fixture.root, {40, 20});
    view->insets = {.top = 1, .left = 2, .bottom = 3, .right = 4};
    view->firstBaseline = 12;
    view->lastBaseline = 5;
    if (isRightToLeft()) {
      fixture.root->setUserInterfaceLayoutDirection(NSUserInterfaceLayoutDirection::rightToLeft);
    }
  }
  static bool isRightToLeft() { return std::get<1>(GetParam()); }

  Seen placedBy(Attribute attribute, Attribute other, double constant) {
    const auto constraint = activated(
        make<NSLayoutConstraint>(view.get(), attribute, equal, fixture.root.get(), other, 1.0, constant));
    fixture.window->layoutIfNeeded();
    const Seen found = seen(*view);
    constraint->setActive(false);
    return found;
  }

  VirtualHostScope host;
  LayoutFixture fixture;
  Ref<LayoutView> view;
};

TEST_P(NSLayoutAttributes, PlaceTheAlignmentRectangleAsSeen) {
  EXPECT_EQ(placedBy(Attribute::left, Attribute::left, 10).left, 8);
  EXPECT_EQ(placedBy(Attribute::right, Attribute::right, -10).right, 194);
  EXPECT_EQ(placedBy(Attribute::centerX, Attribute::centerX, 5).left, 83);  // 85 to 125 of 105 in the middle
  EXPECT_EQ(placedBy(Attribute::top, Attribute::top, 10).top, 9);
  EXPECT_EQ(placedBy(Attribute::bottom, Attribute::bottom, -10).bottom, 93);
  EXPECT_EQ(placedBy(Attribute::centerY, Attribute::centerY, 0).top, 39);
  EXPECT_EQ(placedBy(Attribute::firstBaseline, Attribute::top, 30).top, 17);
  EXPECT_EQ(placedBy(Attribute::lastBaseline, Attribute::bottom, -10).bottom, 98);
}

TEST_P(NSLayoutAttributes, LeadingAndTrailingFollowTheDirection) {
  const Seen leading = placedBy(Attribute::leading, Attribute::leading, 10);
  const Seen trailing = placedBy(Attribute::trailing, Attribute::trailing, -10);
  EXPECT_EQ(isRightToLeft() ? 200 - leading.right : leading.left, isRightToLeft() ? 6 : 8);
  EXPECT_EQ(isRightToLeft() ? trailing.left : 200 - trailing.right, isRightToLeft() ? 8 : 6);
  const auto follower = placedView(*fixture.root, {30, 20});
  activated(view->leadingAnchor()->constraintEqualTo(fixture.root->leadingAnchor(), 20));
  activated(follower->leadingAnchor()->constraintEqualTo(view->trailingAnchor(), 7));
  fixture.window->layoutIfNeeded();
  const auto turned = [](double x, double width) { return isRightToLeft() ? 200 - x - width : x; };
  EXPECT_EQ(follower->frame().origin.x, turned(67, 30));
  fixture.root->setUserInterfaceLayoutDirection(NSUserInterfaceLayoutDirection::leftToRight);
  fixture.window->layoutIfNeeded();
  EXPECT_EQ(follower->frame().origin.x, 67);
}

INSTANTIATE_TEST_SUITE_P(FlippedAndTurned, NSLayoutAttributes,
                         testing::Combine(testing::Bool(), testing::Bool()));

TEST(NSLayoutConstraint, TiesViewsAtDifferentDepthsAndSidesOfAFlip) {
  const VirtualHostScope host;
  LayoutFixture fixture;
  const auto panel = make<LayoutView>(NSRect(20, 10, 100, 60));
  panel->flipped = true;
  fixture.root->addSubview(panel);
  const auto inner = placedView(*panel, {10, 10});
  const auto outer = placedView(*fixture.root, {10, 10});
  activated(inner->leftAnchor()->constraintEqualTo(panel->leftAnchor(), 5));
  activated(inner->topAnchor()->constraintEqualTo(panel->topAnchor(), 8));
  const auto tie = activated(outer->topAnchor()->constraintEqualTo(inner->bottomAnchor(), 4));
  activated(outer->leftAnchor()->constraintEqualTo(inner->leftAnchor()));
  fixture.window->layoutIfNeeded();
  EXPECT_EQ(inner->frame(), NSRect(5, 8, 10, 10));
  EXPECT_EQ(outer->frame(), NSRect(25, 38, 10, 10));  // 30 + 8 + 10 + 4 below the top of 100
  EXPECT_THAT(fixture.root->constraints(), testing::Contains(tie));
  panel->setFrameOrigin({40, 0});
  fixture.window->layoutIfNeeded();
  EXPECT_EQ(outer->frame(), NSRect(45, 28, 10, 10));
}

TEST(NSLayoutConstraint, SharesSpaceByPriorities) {
  const VirtualHostScope host;
  LayoutFixture fixture;
  const auto label = placedView(*fixture.root, {50, 20});
  const auto field = placedView(*fixture.root, {50, 20});
  NSLayoutConstraint::activateConstraints(std::vector<Ref<NSLayoutConstraint>>{
      label->leadingAnchor()->constraintEqualTo(fixture.root->leadingAnchor()),
      field->leadingAnchor()->constraintEqualTo(label->trailingAnchor(), 10),
      field->trailingAnchor()->constraintEqualTo(fixture.root->trailingAnchor())});
  label->setContentHuggingPriority(251, NSLayoutConstraintOrientation::horizontal);
  const auto widths = [&](double root) {
    fixture.root->setFrameSize({root, 100});
    fixture.window->layoutIfNeeded();
    return std::vector{label->frame().size.width, field->frame().size.width};
  };
  EXPECT_THAT(widths(200), ElementsAre(50, 140));
  label->setContentHuggingPriority(249, NSLayoutConstraintOrientation::horizontal);
  EXPECT_THAT(widths(200), ElementsAre(140, 50));
  label->setContentCompressionResistancePriority(740, NSLayoutConstraintOrientation::horizontal);
  EXPECT_THAT(widths(80), ElementsAre(20, 50));
  EXPECT_THAT(widths(40), ElementsAre(0, 30));
  label->intrinsic = {25, 20};
  label->invalidateIntrinsicContentSize();
  label->setContentHuggingPriority(300, NSLayoutConstraintOrientation::horizontal);
  EXPECT_THAT(widths(200), ElementsAre(25, 165));
  const auto half = label->widthAnchor()->constraintEqualTo(fixture.root->widthAnchor(), 0.5, -5);
  half->setPriority(400);
  half->setActive(true);
  EXPECT_THAT(widths(200), ElementsAre(95, 95));
  half->setPriority(260);
  EXPECT_THAT(widths(200), ElementsAre(25, 165));
  half->setPriority(NSLayoutPriorityDefaultHigh);
  half->setConstant(-20);
  EXPECT_THAT(widths(200), ElementsAre(80, 110));
}

TEST(NSLayoutConstraint, MisuseStopsWithAMessage) {
  const VirtualHostScope host;
  LayoutFixture fixture;
  const auto a = placedView(*fixture.root);
  const auto loner = make<NSView>();
  const auto relate = [&](Attribute first, Attribute second) {
    return stopLine(
        [&] { (void)make<NSLayoutConstraint>(a.get(), first, equal, fixture.root.get(), second, 1.0, 0.0); });
  };
  EXPECT_TRUE(relate(Attribute::left, Attribute::top));
  EXPECT_TRUE(relate(Attribute::left, Attribute::leading));
  EXPECT_TRUE(relate(Attribute::none, Attribute::none));
  EXPECT_FALSE(relate(Attribute::centerX, Attribute::trailing));
  EXPECT_FALSE(relate(Attribute::width, Attribute::height));
  const auto apart = a->leftAnchor()->constraintEqualTo(loner->leftAnchor());
  EXPECT_TRUE(stopLine([&] { apart->setActive(true); }));
  EXPECT_FALSE(apart->isActive());
  const auto width = activated(a->widthAnchor()->constraintEqualToConstant(10));
  EXPECT_TRUE(stopLine([&] { width->setPriority(500); }));
}

TEST(NSLayoutConstraint, ThoseAcrossTheBorderEndWhenAViewLeaves) {
  const VirtualHostScope host;
  LayoutFixture fixture;
  const auto panel = placedView(*fixture.root);
  const auto child = placedView(*panel, {10, 10});
  const auto across = activated(panel->leftAnchor()->constraintEqualTo(fixture.root->leftAnchor(), 30));
  const auto deep = activated(child->topAnchor()->constraintEqualTo(fixture.root->topAnchor(), 12));
  const auto width = activated(panel->widthAnchor()->constraintEqualToConstant(90));
  const auto within = activated(child->rightAnchor()->constraintEqualTo(panel->rightAnchor(), -5));
  fixture.window->layoutIfNeeded();
  EXPECT_EQ(panel->frame().size.width, 90);
  EXPECT_EQ(child->frame().origin.x, 75);
  panel->removeFromSuperview();
  EXPECT_FALSE(across->isActive());
  EXPECT_FALSE(deep->isActive());
  EXPECT_TRUE(width->isActive());
  EXPECT_TRUE(within->isActive());
  fixture.window->layoutIfNeeded();
  width->setConstant(70);
  fixture.window->contentView()->addSubview(panel);
  fixture.window->layoutIfNeeded();
  EXPECT_EQ(panel->frame().size.width, 70);
  EXPECT_EQ(child->frame().origin.x, 55);
  fixture.root->addSubview(panel);  // moved without leaving the window
  EXPECT_TRUE(within->isActive());
  within->setActive(false);
  EXPECT_THAT(panel->constraints(), ElementsAre(width));
}

TEST(NSLayoutConstraint, OutlivesItsItemsAndTheirTree) {
  const VirtualHostScope host;
  Ref<LayoutView> child;
  Ref<NSLayoutConstraint> across;
  Ref<NSLayoutConstraint> own;
  {
    const auto root = make<LayoutView>(NSRect(0, 0, 100, 100));
    child = placedView(*root, {10, 10});
    across = activated(child->leftAnchor()->constraintEqualTo(root->leftAnchor(), 3));
    own = activated(child->widthAnchor()->constraintEqualToConstant(44));
    root->layoutSubtreeIfNeeded();
    EXPECT_EQ(child->frame().size.width, 44);
  }
  EXPECT_FALSE(across->isActive());
  across->setConstant(5);
  EXPECT_TRUE(own->isActive());
  LayoutFixture fixture;
  fixture.root->addSubview(child);
  own->setConstant(55);
  fixture.window->layoutIfNeeded();
  EXPECT_EQ(child->frame().size.width, 55);
  fixture.root->addSubview(placedView(*child));
  child = nullptr;
  fixture.root->subviews().front()->removeFromSuperview();
  EXPECT_FALSE(own->isActive());
  EXPECT_FALSE(own->firstItem());
  fixture.window->layoutIfNeeded();
}

TEST(NSLayoutConstraint, ContradictionsLeaveOneOutWithALine) {
  const VirtualHostScope host;
  LayoutFixture fixture;
  const auto view = placedView(*fixture.root);
  view->setIdentifier("picture");
  activated(view->widthAnchor()->constraintEqualTo(fixture.root->widthAnchor()));
  activated(view->widthAnchor()->constraintGreaterThanOrEqualToConstant(150));
  testing::internal::CaptureStderr();
  fixture.window->layoutIfNeeded();
  EXPECT_THAT(testing::internal::GetCapturedStderr(), IsEmpty());
  testing::internal::CaptureStderr();
  fixture.root->setFrameSize({120, 100});
  fixture.window->layoutIfNeeded();
  fixture.root->setFrameSize({110, 100});
  fixture.window->layoutIfNeeded();
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "NSLayoutConstraint: required constraints contradict each other, left out: LayoutView "
            "\"picture\".width >= 150\n");
  EXPECT_EQ(view->frame().size.width, 110);
  fixture.root->setFrameSize({300, 100});
  fixture.window->layoutIfNeeded();
  EXPECT_EQ(view->frame().size.width, 300);
}

TEST(NSLayoutGuide, IsPlacedLikeASubview) {
  const VirtualHostScope host;
  LayoutFixture fixture;
  const auto guide = make<NSLayoutGuide>();
  fixture.root->addLayoutGuide(guide);
  const auto view = placedView(*fixture.root, {10, 10});
  activated(guide->leftAnchor()->constraintEqualTo(fixture.root->leftAnchor(), 20));
  activated(guide->widthAnchor()->constraintEqualToConstant(30));
  const auto tie = activated(view->leftAnchor()->constraintEqualTo(guide->rightAnchor(), 5));
  fixture.window->layoutIfNeeded();
  EXPECT_EQ(guide->frame().minX(), 20);
  EXPECT_EQ(view->frame().origin.x, 55);
  fixture.root->removeLayoutGuide(*guide);
  EXPECT_FALSE(tie->isActive());
  EXPECT_FALSE(guide->owningView());
}

}  // namespace
}  // namespace bkuk
