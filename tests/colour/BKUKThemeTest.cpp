#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>
#include <new>
#include <string>
#include <vector>

#include "BrenvikUIKit/colour/BKUKNSColor+Extensions.h"
#include "BrenvikUIKit/colour/BKUKTheme.h"
#include "BrenvikUIKit/colour/BKUKThemeColorsFusion.h"
#include "BrenvikUIKit/colour/BKUKThemedColor.h"
#include "tests/colour/AppearanceFixture.h"
#include "tests/support/StopLine.h"

namespace {
std::size_t allocations = 0;
}

void* operator new(std::size_t size) {
  ++allocations;
  if (void* memory = std::malloc(size)) return memory;
  throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace bkuk {
namespace {

using Base = BKUKThemeColorBase;
using Opacity = BKUKThemeColorOpacity;
using Role = BKUKThemeColorRole;

// Its colours tell their role, the red component being the role's number, and their palette.
class NumberedPalette final : public BKUKThemeColorsProvider {
 public:
  explicit NumberedPalette(CGFloat blue = 0) {
    for (std::size_t i = 0; i < bkukThemeColorRoleCount; ++i)
      colors_.push_back(NSColor::srgbRed(static_cast<CGFloat>(i), 0, blue, 1));
  }
  [[nodiscard]] Ref<NSColor> color(Role role) const override {
    return colors_[static_cast<std::size_t>(role)];
  }

 private:
  std::vector<Ref<NSColor>> colors_;
};

std::string nameOf(const Ref<NSColor>& color) {
  return std::string(roleName(static_cast<Role>(color->redComponent())));
}

BKUKTheme::Producer producing(const Ref<NSColor>& color) {
  return [color] { return color; };
}

class BKUKThemeTest : public AppearanceFixture {
 public:
  BKUKThemeTest() { BKUKTheme::setDefault(make<NumberedPalette>()); }
  ~BKUKThemeTest() override {
    BKUKTheme::setDefault(nullptr);
    BKUKTheme::setGlobalOverride(nullptr);
    BKUKTheme::overrides().clear();
  }

  Ref<NSColor> own = NSColor::deviceWhite(0.25, 1);
  Ref<NSColor> global = NSColor::deviceWhite(0.75, 1);
};

TEST_F(BKUKThemeTest, RolesCountInDeclarationOrderWhichIsAlphabetical) {
  EXPECT_EQ(bkukThemeColorRoleCount, 86U);
  EXPECT_TRUE(std::is_sorted(bkukThemeColorRoleNames.begin(), bkukThemeColorRoleNames.end()));
  EXPECT_EQ(static_cast<int>(Role::onAccent) + 1, 28);
  EXPECT_EQ(static_cast<int>(Role::onSurfaceSecondary) + 1, 77);
}

TEST_F(BKUKThemeTest, FindsTheRoleOfEverySurfaceAndEmphasisByItsName) {
  const std::vector<std::string> surfaces = {"background", "main",    "accent",  "surface",     "critical",
                                             "attention",  "success", "premium", "desktopMenu", "brand"};
  const std::vector<std::string> suffixes = {"", "Secondary", "Disabled", "Light", "ExtraLight"};
  for (std::size_t i = 0; i < surfaces.size(); ++i) {
    const auto base = static_cast<Base>(i);
    std::string capital = surfaces[i];
    capital[0] = static_cast<char>(capital[0] - 'a' + 'A');
    EXPECT_EQ(nameOf(NSColor::bkuk::base(base)), surfaces[i]);
    EXPECT_EQ(nameOf(NSColor::bkuk::on(base)), "on" + capital);
    for (std::size_t j = 0; j < suffixes.size(); ++j)
      EXPECT_EQ(nameOf(BKUKTheme::on(base, static_cast<Opacity>(j))), "on" + capital + suffixes[j]);
  }
  EXPECT_TRUE(stopLine([] { (void)baseRole(static_cast<Base>(10)); }));
  EXPECT_TRUE(stopLine([] { (void)onRole(Base::brand, static_cast<Opacity>(5)); }));
}

TEST_F(BKUKThemeTest, AnOverrideAnswersItsRoleHoweverItIsRead) {
  BKUKTheme::overrides()["onBackground"] = producing(own);
  EXPECT_EQ(BKUKTheme::onBackground(), own);
  EXPECT_EQ(BKUKTheme::provider().onBackground(), own);
  EXPECT_EQ(NSColor::bkuk::on(Base::background, Opacity::primary), own);
  EXPECT_EQ(nameOf(BKUKTheme::onBackgroundLight()), "onBackgroundLight");
  EXPECT_EQ(nameOf(BKUKTheme::default_()->onBackground()), "onBackground") << "a palette knows no overrides";
}

TEST_F(BKUKThemeTest, IgnoresKeysThatNameNoRoleAndEmptyProducers) {
  BKUKTheme::overrides() = {{"Accent", producing(own)}, {"accent ", producing(own)}, {"accent", nullptr}};
  EXPECT_EQ(nameOf(NSColor::bkuk::accent()), "accent");
}

TEST_F(BKUKThemeTest, TheGlobalOverrideIsAskedOnceAndFirstAndMayPass) {
  std::vector<std::string> asked;
  BKUKTheme::overrides() = {{"accent", producing(own)}, {"brand", producing(own)}};
  BKUKTheme::setGlobalOverride([&](std::string_view role) {
    asked.emplace_back(role);
    return role == "accent" ? producing(global) : nullptr;
  });
  EXPECT_EQ(BKUKTheme::accent(), global);
  EXPECT_EQ(BKUKTheme::brand(), own);
  EXPECT_EQ(nameOf(BKUKTheme::on(Base::main)), "onMain");
  EXPECT_EQ(asked, (std::vector<std::string>{"accent", "brand", "onMain"}));
}

TEST_F(BKUKThemeTest, OverridesMayTakeThemselvesAway) {
  BKUKTheme::overrides()["accent"] = [color = own] {
    BKUKTheme::overrides().clear();
    return color;
  };
  EXPECT_EQ(BKUKTheme::accent(), own);
  BKUKTheme::setGlobalOverride([producer = producing(global)](std::string_view) {
    BKUKTheme::setGlobalOverride(nullptr);
    return producer;
  });
  EXPECT_EQ(BKUKTheme::accent(), global);
  EXPECT_EQ(nameOf(BKUKTheme::accent()), "accent");
}

TEST_F(BKUKThemeTest, ANewPaletteAnswersTheNextReadAndNoneStops) {
  const auto before = BKUKTheme::accent();
  BKUKTheme::setDefault(make<NumberedPalette>(1));
  EXPECT_EQ(before->blueComponent(), 0);
  EXPECT_EQ(BKUKTheme::accent()->blueComponent(), 1);
  BKUKTheme::setDefault(nullptr);
  EXPECT_EQ(stopLine([] { (void)BKUKTheme::accent(); }), "");
  BKUKTheme::overrides()["accent"] = producing(own);
  EXPECT_EQ(BKUKTheme::accent(), own);
}

class NumberedFusion final : public BKUKThemeColorsFusion {
 public:
  [[nodiscard]] const BKUKThemeColorsProvider& light() const override { return *light_; }
  [[nodiscard]] const BKUKThemeColorsProvider& dark() const override { return *dark_; }

 private:
  Ref<BKUKThemeColorsProvider> light_ = make<NumberedPalette>(0);
  Ref<BKUKThemeColorsProvider> dark_ = make<NumberedPalette>(1);
};

TEST_F(BKUKThemeTest, AFusionPairsItsPalettesAfreshAtEachRead) {
  BKUKTheme::setDefault(make<NumberedFusion>());
  const auto color = BKUKTheme::onSurfaceLight();
  EXPECT_NE(color, BKUKTheme::onSurfaceLight());
  EXPECT_TRUE(isThemed(color));
  EXPECT_EQ(color->blueComponent(), 0);
  useDark();
  EXPECT_EQ(nameOf(color), "onSurfaceLight");
  EXPECT_EQ(color->blueComponent(), 1);
}

TEST_F(BKUKThemeTest, AReadAndItsResolutionAllocateOnlyWhatThePaletteMakes) {
  (void)BKUKTheme::accent()->redComponent();
  const std::size_t before = allocations;
  (void)BKUKTheme::accent()->redComponent();
  EXPECT_EQ(allocations - before, 0U);
  BKUKTheme::setDefault(make<NumberedFusion>());
  (void)BKUKTheme::accent()->redComponent();
  const std::size_t fused = allocations;
  (void)BKUKTheme::accent()->redComponent();
  const std::size_t read = allocations - fused;
  const auto black = NSColor::black();
  const std::size_t direct = allocations;
  (void)make<BKUKThemedColor>(black);
  EXPECT_EQ(read, allocations - direct) << "one themed colour";
}

}  // namespace
}  // namespace bkuk
