#include <gmock/gmock.h>

#include "BrenvikUIKit/drawing/BKUKCAGradientLayer+Extensions.h"
#include "BrenvikUIKit/drawing/BKUKFillView.h"
#include "BrenvikUIKit/drawing/BKUKGradientView.h"
#include "BrenvikUIKit/drawing/BKUKLineStyle.h"
#include "platform/appkit/NSLayoutConstraint.h"
#include "platform/appkit/drawing/NSShadow.h"
#include "tests/drawing/WindowFixture.h"

namespace bkuk {
namespace {

using Directions = BKUKLinearGradientSettings::Directions;
using testing::DoubleNear;
using testing::ElementsAre;
using testing::Field;
using testing::Optional;
using testing::SizeIs;

BKUKLinearGradientSettings linear(std::vector<Ref<NSColor>> colors, CGFloat opacity = 1) {
  return {{std::move(colors), std::nullopt}, {0, 0}, {1, 0}, opacity};
}

auto pointNear(CGFloat x, CGFloat y) {
  return AllOf(Field(&CGPoint::x, DoubleNear(x, 1e-12)), Field(&CGPoint::y, DoubleNear(y, 1e-12)));
}

Ref<NSColor> srgbWhite() { return NSColor::srgbRed(1, 1, 1, 1); }

// Settings

TEST(BKUKLinearGradientSettings, DegreesRunFromTheSideOfTheAngleToTheOther) {
  const auto runs = [](CGFloat degrees) { return Directions::degrees(degrees); };
  EXPECT_THAT(runs(0).startPoint(), pointNear(1.1, 0.5));
  EXPECT_THAT(runs(0).endPoint(), pointNear(-0.1, 0.5));
  EXPECT_THAT(runs(90).startPoint(), pointNear(0.5, 1.1));
  EXPECT_THAT(runs(90).endPoint(), pointNear(0.5, -0.1));
  EXPECT_THAT(runs(45).startPoint(), pointNear(0.5 + 0.6 / std::sqrt(2), 0.5 + 0.6 / std::sqrt(2)));
  EXPECT_THAT(runs(-270).startPoint(), pointNear(0.5, 1.1)) << "whole turns make no difference";
}

TEST(BKUKLinearGradientSettings, NamedDirectionsRunFromEdgeToEdgeWithYUp) {
  BKUKLinearGradientSettings settings;
  settings.setStartEndPoint(Directions::topBottom);
  EXPECT_EQ(settings.startPoint, (CGPoint{0, 1}));
  EXPECT_EQ(settings.endPoint, (CGPoint{0, 0}));
  settings.setStartEndPoint(Directions::rightLeft);
  EXPECT_EQ(settings.startPoint, (CGPoint{1, 0}));
}

TEST(BKUKCornerSettings, FollowTheShorterSideOrNothing) {
  EXPECT_EQ(BKUKCornerSettings::round.radius({0, 0, 30, 12}), 6);
  EXPECT_EQ(BKUKCornerSettings::ratio(0.25).radius({0, 0, 12, 30}), 3);
  EXPECT_EQ(BKUKCornerSettings::radius(40).radius({0, 0, 12, 30}), 40);
  EXPECT_EQ(BKUKCornerSettings::round.radius({10, 0, -30, 12}), -15) << "sizes count as they were given";
}

TEST(BKUKFill, EqualsByContent) {
  const auto red = [] { return NSColor::srgbRed(1, 0, 0, 1); };
  EXPECT_EQ(BKUKFill::color(red()), BKUKFill::color(red()));
  EXPECT_EQ(BKUKFill::linearGradient(linear({red()})), BKUKFill::linearGradient(linear({red()})));
  EXPECT_NE(BKUKFill::linearGradient(linear({red()})), BKUKFill::linearGradient(linear({red(), red()})));
  EXPECT_NE(BKUKFill::color(red()), BKUKFill::clear());
  EXPECT_EQ(BKUKShadowSettings(), BKUKShadowSettings::noShadow());
  EXPECT_EQ((BKUKLineStyle{.color = red()}), (BKUKLineStyle{.color = red()}));
  EXPECT_NE((BKUKLineStyle{.color = red()}), (BKUKLineStyle{.shadowColor = red()}));
  EXPECT_FALSE((BKUKLineStyle{.color = red()}).isVisible()) << "no width";
  EXPECT_FALSE((BKUKLineStyle{.width = 1}).isVisible()) << "no colour";
}

TEST(BKUKCAGradientLayerExtensions, TurnsASingleColorIntoABackground) {
  const auto layer = make<CAGradientLayer>();
  applyGradient(*layer, BKUKGradient{{NSColor::red()}, std::vector<CGFloat>{0.5}});
  EXPECT_TRUE(layer->backgroundColor()->isEqual(NSColor::red()->cgColor().get()));
  EXPECT_TRUE(layer->colors().empty());
  EXPECT_FALSE(layer->locations());
  applyGradient(*layer, std::nullopt);
  EXPECT_TRUE(layer->backgroundColor()) << "nothing to apply takes no background away";
  applyGradient(*layer, BKUKGradient{{NSColor::red(), NSColor::blue()}, std::vector<CGFloat>{0.25, 1}});
  EXPECT_FALSE(layer->backgroundColor());
  EXPECT_THAT(layer->colors(), SizeIs(2));
  EXPECT_THAT(layer->locations(), Optional(ElementsAre(0.25, 1)));
}

// Fills

class BKUKFillViewTest : public WindowFixture {
 public:
  Ref<BKUKFillView> view = make<BKUKFillView>(NSRect(0, 0, 100, 30));
};

TEST_F(BKUKFillViewTest, RoundsEveryFillAsTheViewItself) {
  view->setFills({BKUKFill::color(NSColor::red()), BKUKFill::linearGradient(linear({})),
                  BKUKFill::radialGradient({{}, {0.5, 0.5}, {0.5, 0.5}, 0.75})});
  view->privateStyle()->setCorner(BKUKCornerSettings::round);
  view->updateLayer();
  EXPECT_EQ(view->layer()->cornerRadius(), 15);
  const auto& layers = view->fillsLayer()->sublayers();
  ASSERT_THAT(layers, SizeIs(3));
  for (const auto& layer : layers) {
    EXPECT_EQ(layer->cornerRadius(), 15);
    EXPECT_EQ(layer->frame(), CGRect(0, 0, 100, 30));
    EXPECT_EQ(layer->maskedCorners(), CALayerAllCorners);
  }
  const auto radial = as<CAGradientLayer>(layers[2]);
  EXPECT_EQ(radial->endPoint(), (CGPoint{1, 1}));
  EXPECT_EQ(radial->opacity(), 0.75);
}

TEST_F(BKUKFillViewTest, StacksFillsInTheirOrder) {
  view->setFills(
      {BKUKFill::color(NSColor::black()), BKUKFill::linearGradient(linear({srgbWhite(), srgbWhite()}, 0.5))});
  show(view);
  EXPECT_NEAR(red(100, 50), 128, 1) << "the gradient is half transparent above the colour";
  view->setFills({BKUKFill::color(NSColor::red())});
  EXPECT_EQ(pixel(100, 50), redPixel) << "the layers of before are gone";
}

TEST_F(BKUKFillViewTest, FollowsItsSizeWithoutAnimation) {
  view->setFills({BKUKFill::color(NSColor::white())});
  show(view);
  window->setContentSize({300, 150});
  host->settle();
  const auto& fill = view->fillsLayer()->sublayers().front();
  EXPECT_EQ(fill->frame(), CGRect(0, 0, 300, 150));
  EXPECT_THAT(fill->animationKeys(), ElementsAre());
  EXPECT_THAT(view->fillsLayer()->animationKeys(), ElementsAre());
}

TEST_F(BKUKFillViewTest, RoundsTheCornersOfItsMaskOnly) {
  view->privateStyle()->apply({.background = NSColor::white(),
                               .corner = BKUKCornerSettings::radius(30),
                               .cornerMask = CALayerMinXMaxYCorner});
  show(view);
  EXPECT_EQ(pixel(1, 98), blackPixel);
  EXPECT_EQ(pixel(1, 1), whitePixel);
  EXPECT_EQ(pixel(198, 98), whitePixel);
}

TEST_F(BKUKFillViewTest, IsPlacedByConstraintsWithoutFurtherAsking) {
  const Ref<NSView> views[] = {view, make<BKUKGradientView>()};
  for (const auto& each : views) {
    EXPECT_FALSE(each->translatesAutoresizingMaskIntoConstraints());
    window->contentView()->addSubview(each);
    each->leftAnchor()->constraintEqualTo(window->contentView()->leftAnchor(), 12)->setActive(true);
    window->layoutIfNeeded();
    EXPECT_EQ(each->frame().origin.x, 12);
  }
}

TEST_F(BKUKFillViewTest, KeepsSubviewsAboveTheFills) {
  const auto child = make<BKUKFillView>(BKUKFillView::Look{.background = NSColor::white()});
  child->setFrame({0, 0, 20, 20});
  view->addSubview(child);
  view->setFills({BKUKFill::color(NSColor::red())});
  show(view);
  EXPECT_EQ(pixel(10, 10), whitePixel);
}

TEST_F(BKUKFillViewTest, AStyleLeavesAloneWhatIsNotGivenAndClearsWhatIsTakenAway) {
  const auto other = make<BKUKFillView>(BKUKFillView::Look{.background = NSColor::red(), .borderWidth = 3});
  other->privateStyle()->apply({.borderColor = NSColor::blue()});
  EXPECT_EQ(other->privateStyle()->background(), NSColor::red());
  EXPECT_EQ(other->privateStyle()->borderWidth(), 3);
  EXPECT_EQ(other->privateStyle()->component(), other);
  other->privateStyle()->setBackground(nullptr);
  other->privateStyle()->setBorderColor(nullptr);
  EXPECT_EQ(other->privateStyle()->background(), NSColor::clear());
  EXPECT_EQ(other->privateStyle()->borderColor(), NSColor::clear());
  const auto orphan = make<BKUKFillView>()->privateStyle();
  orphan->setBorderWidth(1);
  EXPECT_FALSE(orphan->component());
}

TEST_F(BKUKFillViewTest, HasAShadowOnlyWhenThereIsOneToSee) {
  const BKUKShadowSettings settings{
      .color = NSColor::srgbRed(0, 0, 0, 0.9), .radius = 8, .offset = {1, -2}, .opacity = 0.4};
  const auto shows = [this](const BKUKShadowSettings& shadow) {
    view->privateStyle()->setShadow(shadow);
    return static_cast<bool>(view->shadow());
  };
  ASSERT_TRUE(shows(settings));
  EXPECT_EQ(view->shadow()->shadowColor()->alphaComponent(), 0.4) << "replaced, not multiplied";
  EXPECT_EQ(view->shadow()->shadowBlurRadius(), 8);
  EXPECT_EQ(view->shadow()->shadowOffset(), (CGSize{1, -2}));
  auto changed = settings;
  changed.color = NSColor::clear();
  EXPECT_FALSE(shows(changed));
  changed = settings;
  changed.opacity = 0;
  EXPECT_FALSE(shows(changed));
  changed = settings;
  changed.radius = 0;
  EXPECT_FALSE(shows(changed));
  EXPECT_TRUE(shows(settings));
  EXPECT_FALSE(shows(BKUKShadowSettings::noShadow()));
}

TEST_F(BKUKFillViewTest, AFillLayerOfTheWrongKindStops) {
  view->setFills({BKUKFill::linearGradient(linear({}))});
  view->fillsLayer()->setSublayers({make<CALayer>()});
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_DEATH(view->updateLayer(), "");
}

TEST_F(BKUKFillViewTest, AGradientViewPutsTheRadialAboveTheLinearGradient) {
  const auto gradients = make<BKUKGradientView>();
  const BKUKRadialGradientSettings radial({{NSColor::red()}, {}}, {0.5, 0.5}, {1, 1}, 1);
  gradients->privateStyle()->apply(linear({NSColor::blue()}), radial);
  show(gradients);
  EXPECT_EQ(pixel(100, 50), redPixel);
  gradients->privateStyle()->apply(linear({NSColor::blue()}), std::nullopt);
  EXPECT_EQ(pixel(100, 50), bluePixel);
  gradients->privateStyle()->apply(std::nullopt, std::nullopt);
  EXPECT_THAT(gradients->fills(), ElementsAre());
  EXPECT_EQ(pixel(100, 50), blackPixel);
  gradients->privateStyle()->apply({.background = NSColor::red()});
  EXPECT_EQ(pixel(100, 50), redPixel) << "the look of every fill view";
}

}  // namespace
}  // namespace bkuk
