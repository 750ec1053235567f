#include <gtest/gtest.h>
#include <vector>

#include "platform/appkit/NSAppearance.h"
#include "platform/appkit/NSApplication.h"

namespace bkuk {
namespace {

using Names = std::vector<std::string_view>;

std::optional<std::string_view> best(std::string_view own, const Names& names) {
  return NSAppearance::named(own)->bestMatch(names);
}

TEST(NSAppearance, MatchesItsOwnNameWhereverItStandsElseItsFamily) {
  const Names all = {NSAppearanceNameAqua, NSAppearanceNameDarkAqua, NSAppearanceNameAccessibilityDarkAqua};
  const Names families = {NSAppearanceNameDarkAqua, NSAppearanceNameAqua};
  EXPECT_EQ(best(NSAppearanceNameAccessibilityDarkAqua, all), NSAppearanceNameAccessibilityDarkAqua);
  EXPECT_EQ(best(NSAppearanceNameAccessibilityDarkAqua, families), NSAppearanceNameDarkAqua);
  EXPECT_EQ(best(NSAppearanceNameVibrantDark, families), NSAppearanceNameDarkAqua);
  EXPECT_EQ(best(NSAppearanceNameAccessibilityAqua, families), NSAppearanceNameAqua);
  EXPECT_EQ(best(NSAppearanceNameVibrantLight, families), NSAppearanceNameAqua);
}

TEST(NSAppearance, HasNoMatchOutsideItsFamily) {
  EXPECT_EQ(best(NSAppearanceNameUnknown, {NSAppearanceNameDarkAqua, NSAppearanceNameAqua}), std::nullopt);
  EXPECT_EQ(best("Sepia", {NSAppearanceNameDarkAqua, NSAppearanceNameAqua, ""}), std::nullopt);
  EXPECT_EQ(best(NSAppearanceNameVibrantDark, {NSAppearanceNameAqua}), std::nullopt);
  EXPECT_EQ(best(NSAppearanceNameDarkAqua, {}), std::nullopt);
}

TEST(NSAppearance, IsKnownByItsName) {
  EXPECT_EQ(NSAppearance::named(NSAppearanceNameDarkAqua), NSAppearance::named(NSAppearanceNameDarkAqua));
  EXPECT_TRUE(NSAppearance::named("Sepia")->isEqual(NSAppearance::named("Sepia").get()));
  EXPECT_FALSE(NSAppearance::named("Sepia")->isEqual(NSAppearance::named(NSAppearanceNameAqua).get()));
}

TEST(NSAppearance, DrawingAppearanceNestsAndEndsWithItsBlock) {
  const auto outer = NSAppearance::named(NSAppearanceNameVibrantDark);
  const auto inner = NSAppearance::named(NSAppearanceNameAccessibilityAqua);
  std::vector<Ref<NSAppearance>> seen;
  const auto note = [&seen] { seen.push_back(NSAppearance::currentDrawing()); };
  outer->performAsCurrentDrawingAppearance([&] {
    inner->performAsCurrentDrawingAppearance(note);
    note();
  });
  EXPECT_EQ(seen, (std::vector{inner, outer}));
  EXPECT_EQ(NSAppearance::currentDrawing(), NSApplication::shared().effectiveAppearance());
}

}  // namespace
}  // namespace bkuk
