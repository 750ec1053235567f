#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "gallery/brand/BrandTones.h"

namespace bkuk::gallery {
namespace {

using Base = BKUKThemeColorBase;
using Opacity = BKUKThemeColorOpacity;
using Role = BKUKThemeColorRole;

constexpr std::array surfaces = {Base::background,  Base::main,      Base::accent,  Base::surface,
                                 Base::critical,    Base::attention, Base::success, Base::premium,
                                 Base::desktopMenu, Base::brand};

// WCAG 2.2, relative luminance and contrast ratio.
CGFloat linear(CGFloat component) {
  return component <= 0.04045 ? component / 12.92 : std::pow((component + 0.055) / 1.055, 2.4);
}

CGFloat luminance(const NSColor& color) {
  return 0.2126 * linear(color.redComponent()) + 0.7152 * linear(color.greenComponent()) +
         0.0722 * linear(color.blueComponent());
}

// Of `content` painted upon the opaque `surface`.
CGFloat contrast(const Ref<NSColor>& content, const Ref<NSColor>& surface) {
  const auto painted = surface->blended(content->alphaComponent(), content->withAlphaComponent(1));
  const auto [darker, lighter] = std::minmax({luminance(*painted), luminance(*surface)});
  return (lighter + 0.05) / (darker + 0.05);
}

Role roleNamed(const std::string& name) {
  const auto found = std::ranges::find(bkukThemeColorRoleNames, name);
  return static_cast<Role>(found - bkukThemeColorRoleNames.begin());
}

// The surface's own colour and its two variants.
std::vector<Role> variantsOf(Base base) {
  const std::string name(roleName(baseRole(base)));
  return {baseRole(base), roleNamed(name + "StateA"), roleNamed(name + "StateB")};
}

struct Look {
  std::string name;
  Ref<BrandTones> tones;
};

class BrandTonesTest : public testing::TestWithParam<Look> {
 protected:
  const BrandTones& tones() const { return *GetParam().tones; }

  void expectContrast(Role content, Role surface, CGFloat least) const {
    EXPECT_GE(contrast(tones().color(content), tones().color(surface)), least)
        << roleName(content) << " upon " << roleName(surface);
  }
};

TEST_P(BrandTonesTest, TextIsReadableUponEverySurfaceInEveryState) {
  for (const Base base : surfaces)
    for (const Role surface : variantsOf(base))
      for (const Opacity emphasis : {Opacity::primary, Opacity::secondary})
        expectContrast(onRole(base, emphasis), surface, 4.5);
}

TEST_P(BrandTonesTest, TextIsReadableUponHighlightsAndBanner) {
  for (const Role mark : {Role::highlightAccent, Role::highlightNegative, Role::highlightNeutral,
                          Role::highlightPositive, Role::desktopIpmBanner})
    for (const Role text : {Role::onSurface, Role::onSurfaceSecondary, Role::onBackground})
      expectContrast(text, mark, 4.5);
}

TEST_P(BrandTonesTest, ColoredShapesStandOutFromNeutralSurfaces) {
  for (const Role neutral : {Role::background, Role::surface, Role::desktopMenu}) {
    for (const Role shape :
         {Role::accent, Role::attention, Role::brand, Role::critical, Role::premium, Role::success})
      expectContrast(shape, neutral, 3);
    expectContrast(Role::accent, neutral, 4.5);  // links
    expectContrast(Role::accentHighContrast, neutral, 7);
  }
}

TEST_P(BrandTonesTest, VariantsOfASurfaceAreOpaqueAndDistinct) {
  for (const Base base : surfaces)
    for (const Role variant : variantsOf(base)) {
      EXPECT_EQ(tones().color(variant)->alphaComponent(), 1) << roleName(variant);
      if (variant != baseRole(base)) expectContrast(variant, baseRole(base), 1.05);
    }
}

INSTANTIATE_TEST_SUITE_P(Appearances, BrandTonesTest,
                         testing::Values(Look{"light", make<BrandTones>(&BrandColor::light)},
                                         Look{"dark", make<BrandTones>(&BrandColor::dark)}),
                         [](const auto& look) { return look.param.name; });

}  // namespace
}  // namespace bkuk::gallery
