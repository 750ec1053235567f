#include <gtest/gtest.h>
#include <limits>

#include "platform/coregraphics/CGColor.h"
#include "platform/coregraphics/CGGradient.h"
#include "tests/support/StopLine.h"

namespace bkuk {
namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

TEST(CGColor, RgbSpacesCarryTheSameNumbers) {
  const auto color = CGColor::srgb(0.2, 0.4, 0.6, 0.8);
  const auto device = color->converted(CGColorSpace::deviceRGB());
  EXPECT_EQ(device->colorSpace(), CGColorSpace::deviceRGB());
  EXPECT_TRUE(std::ranges::equal(device->components(), color->components()));
  EXPECT_FALSE(device->isEqual(color.get()));
  EXPECT_TRUE(device->converted(CGColorSpace::sRGB())->isEqual(color.get()));
  EXPECT_EQ(device->converted(CGColorSpace::sRGB())->hash(), color->hash());
}

TEST(CGColor, ConvertsBetweenModels) {
  const auto gray = CGColor::srgb(1, 0.5, 0, 0.25)->converted(CGColorSpace::deviceGray());
  EXPECT_DOUBLE_EQ(gray->components()[0], 0.299 + 0.587 * 0.5);
  EXPECT_DOUBLE_EQ(gray->alpha(), 0.25);
  EXPECT_EQ(CGColor::gray(0.5)->converted(CGColorSpace::sRGB())->components()[2], 0.5);
  const auto ink = CGColor::cmyk(0.5, 0, 1, 0.5)->converted(CGColorSpace::sRGB());
  EXPECT_TRUE(ink->isEqual(CGColor::srgb(0.25, 0.5, 0).get()));
}

TEST(CGColor, InkComesBackAsTheSameLight) {
  for (const auto& color : {CGColor::srgb(0.2, 0.7, 0.4), CGColor::srgb(0, 0, 0), CGColor::srgb(1, 1, 1)}) {
    const auto back = color->converted(CGColorSpace::deviceCMYK())->converted(CGColorSpace::sRGB());
    for (std::size_t index = 0; index < 4; ++index) {
      EXPECT_NEAR(back->components()[index], color->components()[index], 1e-12);
    }
  }
}

TEST(CGColor, KeepsComponentsAsGivenAndPaintsThemCut) {
  const auto color = CGColor::srgb(-1, 2, nan, 1.5);
  EXPECT_EQ(color->components()[1], 2);
  EXPECT_EQ(color->rgba(), (host::Rgba{0, 1, 0, 1}));
  EXPECT_EQ(color->copy(0.5)->rgba().alpha, 0.5);
}

TEST(CGColor, WrongNumberOfComponentsStops) {
  const double two[] = {0, 1};
  EXPECT_TRUE(stopLine([&] { (void)make<CGColor>(CGColorSpace::sRGB(), std::span<const CGFloat>(two)); }));
}

TEST(CGGradient, SpreadsColoursEvenlyWithoutLocations) {
  const Ref<CGColor> colors[] = {CGColor::white(), CGColor::black(), CGColor::white()};
  const auto gradient = CGGradient::create(CGColorSpace::deviceRGB(), colors);
  EXPECT_EQ(gradient->stops()[1].location, 0.5);
  EXPECT_EQ(gradient->stops()[2].location, 1);
  EXPECT_EQ(CGGradient::create(CGColorSpace::deviceRGB(), std::span(colors).first(1))->stops()[0].location,
            0);
  EXPECT_FALSE(CGGradient::create(CGColorSpace::deviceRGB(), {}));
}

TEST(CGGradient, PutsUnusableLocationsInOrder) {
  const Ref<CGColor> colors[] = {CGColor::white(), CGColor::black(), CGColor::clear(), CGColor::white()};
  const auto gradient = CGGradient::create(CGColorSpace::sRGB(), colors, {{7, nan, 0.5}});
  std::vector<double> locations;
  for (const auto& stop : gradient->stops()) locations.push_back(stop.location);
  EXPECT_EQ(locations, (std::vector<double>{0, 0.5, 1, 1}));
  EXPECT_EQ(gradient->stops()[0].color.red, 0);
  EXPECT_EQ(gradient->stops()[1].color.alpha, 0);
}

}  // namespace
}  // namespace bkuk
