#include <gtest/gtest.h>

#include "BrenvikUIKit/style/BKUKStatefulBorder.h"
#include "BrenvikUIKit/style/BKUKStatefulFills.h"
#include "BrenvikUIKit/style/BKUKStatefulSettings.h"
#include "BrenvikUIKit/style/BKUKStatefulSettingsOptional.h"
#include "BrenvikUIKit/style/BKUKStatefulShadows.h"
#include "tests/support/StopLine.h"

namespace bkuk {
namespace {

using State = BKUKInteractionState;
using Numbers = BKUKStatefulSettings<int>;

template <typename Settings>
auto valuesOf(const Settings& settings) {
  return std::vector{settings[State::normal], settings[State::hover], settings[State::pressed],
                     settings[State::disabled]};
}

TEST(BKUKStatefulSettings, EveryStateFallsStraightBackToNormal) {
  EXPECT_EQ(valuesOf(Numbers(1)), (std::vector{1, 1, 1, 1}));
  EXPECT_EQ(valuesOf(Numbers(1, 2)), (std::vector{1, 2, 1, 1}));
  EXPECT_EQ(valuesOf(Numbers(1, {}, 3)), (std::vector{1, 1, 3, 1}));
}

TEST(BKUKStatefulSettings, WithKeepsTheLookOfTheOtherStates) {
  EXPECT_EQ(valuesOf(Numbers(1).with({.normal = 9})), (std::vector{9, 1, 1, 1}));
  EXPECT_EQ(valuesOf(Numbers(1, {}, 3).with({.hover = 7})), (std::vector{1, 7, 3, 1}));
}

TEST(BKUKStatefulSettings, AnEmptyObjectIsNoValue) {
  const auto red = NSColor::red();
  const BKUKStatefulColors colors(red, nullptr, NSColor::blue(), Ref<NSColor>());
  EXPECT_EQ(valuesOf(colors), (std::vector{red, red, NSColor::blue(), red}));
  EXPECT_EQ(colors.with({.normal = nullptr, .pressed = nullptr}),
            BKUKStatefulColors(red, red, NSColor::blue(), red));
  using Optional = BKUKStatefulSettingsOptional<Ref<NSColor>>;
  EXPECT_EQ(Optional(nullptr, nullptr), Optional());
  EXPECT_EQ(Optional(red).with({.hover = nullptr}).hover(), red);
  const auto withoutColor = BKUKFill::color(nullptr);
  EXPECT_TRUE(stopLine([&] { (void)BKUKStatefulFills(withoutColor).convertToStatefulColor(); }).has_value());
}

TEST(BKUKStatefulSettingsOptional, AbsenceStaysOpenForANormalValue) {
  using Optional = BKUKStatefulSettingsOptional<int>;
  EXPECT_EQ(Optional()[State::pressed], std::nullopt);
  EXPECT_EQ(Optional(4)[State::disabled], 4);
  EXPECT_EQ(valuesOf(Optional().with({.normal = 5})), valuesOf(Optional(5)));
  const auto pressed = Optional({}, 2).with({.pressed = 3});
  EXPECT_EQ(pressed.disabled(), std::nullopt);
  EXPECT_EQ(pressed.with({.normal = 1}).disabled(), 1);
  EXPECT_EQ(pressed, Optional({}, 2, 3)) << "nothing tells how it came about";
  EXPECT_EQ(Optional(4).with({.normal = 5}).hover(), 4);
}

TEST(BKUKStatefulFills, ColoursBecomeFillsAndBack) {
  const BKUKStatefulColors colors(NSColor::red(), {}, {}, NSColor::blue());
  const BKUKStatefulFills fills(colors);
  const auto red = BKUKFill::color(NSColor::red());
  EXPECT_EQ(valuesOf(fills), (std::vector{red, red, red, BKUKFill::color(NSColor::blue())}));
  // All four states are their own now.
  EXPECT_EQ(fills.with({.normal = BKUKFill::clear()}).hover(), red);
  EXPECT_EQ(fills.convertToStatefulColor().disabled(), NSColor::blue());
}

TEST(BKUKStatefulFills, AFillWithoutColourLeavesItsStateToTheNormalOne) {
  const auto gradient = BKUKFill::linearGradient({});
  const BKUKStatefulFills fills(BKUKFill::color(NSColor::red()), gradient);
  EXPECT_EQ(fills.convertToStatefulColor().hover(), NSColor::red());
  EXPECT_TRUE(stopLine([&] { (void)BKUKStatefulFills(gradient).convertToStatefulColor(); }).has_value());
}

template <typename Settings>
concept HasClear = requires {
  Settings::clear();
};
static_assert(HasClear<BKUKStatefulColors> && HasClear<BKUKStatefulFills>);
static_assert(!HasClear<BKUKStatefulWidths>, "there is no clear width");

TEST(BKUKStatefulSettings, PresetsAreWhatTheirNamesSay) {
  EXPECT_EQ(valuesOf(BKUKStatefulOpacities::basicImageButton()), (std::vector{0.7F, 1.0F, 0.4F, 0.2F}));
  EXPECT_EQ(BKUKStatefulColors::clear().pressed(), NSColor::clear());
  EXPECT_EQ(BKUKStatefulFills::clear().hover(), BKUKFill::clear());
  EXPECT_FALSE(BKUKStatefulShadows::noShadow().hover().isVisible());
  const BKUKStatefulBorder border(NSColor::red(), BKUKStatefulWidths(1, 2));
  EXPECT_EQ(border.widths().hover(), 2);
  EXPECT_EQ(border.colors().hover(), NSColor::red());
}

}  // namespace
}  // namespace bkuk
