#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "BrenvikUIKit/colour/BKUKNSColor+Extensions.h"
#include "BrenvikUIKit/colour/BKUKThemedColor.h"
#include "platform/appkit/drawing/NSGraphicsContext.h"
#include "platform/foundation/NSCoder.h"
#include "platform/foundation/NSKeyedArchiver.h"
#include "platform/foundation/NSKeyedUnarchiver.h"
#include "tests/colour/AppearanceFixture.h"
#include "tests/support/StopLine.h"

namespace bkuk {
namespace {

class BKUKThemedColorTest : public AppearanceFixture {
 public:
  Ref<NSColor> any = NSColor::srgbRed(1, 0.5, 0, 1);
  Ref<NSColor> dark = NSColor::deviceCyan(0.1, 0.2, 0.3, 0.4, 0.8);
  Ref<BKUKThemedColor> themed = make<BKUKThemedColor>(any, dark);
};

TEST_F(BKUKThemedColorTest, AnswersForTheAppearanceOfTheMoment) {
  EXPECT_EQ(themed->redComponent(), 1);
  EXPECT_EQ(themed->usingColorSpaceName(NSCustomColorSpace, nullptr), any);
  useDark();
  EXPECT_EQ(themed->blackComponent(), 0.4);
  EXPECT_EQ(themed->alphaComponent(), 0.8);
  EXPECT_EQ(themed->colorSpaceName(), NSDeviceCMYKColorSpace);
  EXPECT_EQ(themed->numberOfComponents(), 5U);
  EXPECT_EQ(themed->usingColorSpace(CGColorSpace::deviceCMYK()), dark) << "passed on unchanged";
}

TEST_F(BKUKThemedColorTest, FollowsTheApplicationsAppearanceWhateverItsForm) {
  use(NSAppearanceNameAccessibilityDarkAqua);
  EXPECT_EQ(themed->blackComponent(), 0.4);
  use(NSAppearanceNameUnknown);
  EXPECT_EQ(themed->redComponent(), 1);
  NSAppearance::named(NSAppearanceNameDarkAqua)->performAsCurrentDrawingAppearance([this] {
    EXPECT_EQ(themed->redComponent(), 1) << "not the appearance that drawing is done for";
  });
}

TEST_F(BKUKThemedColorTest, KnowsNoDarkOnASystemWithoutIt) {
  useDark();
  useSystemVersion(10, 13);
  EXPECT_EQ(themed->redComponent(), 1);
  useSystemVersion(10, 14);
  EXPECT_EQ(themed->blackComponent(), 0.4);
}

TEST_F(BKUKThemedColorTest, MayLackADarkValueOrHoldThemedColors) {
  const auto single = make<BKUKThemedColor>(any);
  EXPECT_EQ(single->darkColor(), any);
  const auto nested = make<BKUKThemedColor>(NSColor::black(), BKUKThemedColor::bySwapping(*themed));
  EXPECT_EQ(nested->whiteComponent(), 0);
  useDark();
  EXPECT_EQ(single->redComponent(), 1);
  EXPECT_EQ(nested->redComponent(), 1);
}

TEST_F(BKUKThemedColorTest, SwappingTwiceGivesAnEqualColor) {
  const auto swapped = swappedBKUKThemedColor(themed);
  EXPECT_FALSE(swapped->isEqual(themed.get()));
  EXPECT_TRUE(swappedBKUKThemedColor(swapped)->isEqual(themed.get()));
  EXPECT_EQ(swappedBKUKThemedColor(swapped)->hash(), themed->hash());
  EXPECT_EQ(swappedBKUKThemedColor(any), any);
}

TEST_F(BKUKThemedColorTest, IsNeverEqualToAPlainColor) {
  const auto single = make<BKUKThemedColor>(any);
  EXPECT_FALSE(single->isEqual(any.get()));
  EXPECT_FALSE(any->isEqual(single.get()));
}

class TintedColor final : public BKUKThemedColor {
 public:
  using BKUKThemedColor::BKUKThemedColor;

 protected:
  [[nodiscard]] Ref<BKUKThemedColor> makeOfSameClass(const Ref<NSColor>& any,
                                                     const Ref<NSColor>& dark) const override {
    return make<TintedColor>(any, dark);
  }
};

TEST_F(BKUKThemedColorTest, AlphaVariantsStayThemedAndOfTheirClass) {
  const auto half = as<TintedColor>(alpha(make<TintedColor>(any, dark), 0.5));
  ASSERT_TRUE(half);
  EXPECT_EQ(half->anyColor()->alphaComponent(), 0.5);
  useDark();
  EXPECT_EQ(half->alphaComponent(), 0.5);
  EXPECT_EQ(half->yellowComponent(), 0.3);
}

TEST_F(BKUKThemedColorTest, OtherVariantsAreSnapshots) {
  const auto grays = make<BKUKThemedColor>(NSColor::white(), NSColor::black());
  const auto shade = grays->shadow(0.25);
  useDark();
  EXPECT_FALSE(isThemed(shade));
  EXPECT_EQ(shade->redComponent(), 0.75);
  EXPECT_EQ(grays->highlight(0.25)->redComponent(), 0.25);
  EXPECT_EQ(mix(NSColor::white(), grays, 0.5)->greenComponent(), 0.5) << "as the argument of a blend";
}

TEST_F(BKUKThemedColorTest, DrawsWithTheValueOfTheMoment) {
  host::Bitmap bitmap({4, 4});
  const auto context = make<CGContext>(bitmap, CGAffineTransform());
  const NSGraphicsContextScope scope(make<NSGraphicsContext>(context, false));
  useDark();
  themed->set();
  EXPECT_TRUE(context->fillColor()->isEqual(dark->cgColor().get()));
  EXPECT_TRUE(context->strokeColor()->isEqual(dark->cgColor().get()));
}

TEST_F(BKUKThemedColorTest, ComesBackFromAnArchiveWithBothValues) {
  const auto nested = make<BKUKThemedColor>(themed, any);
  const auto back = NSKeyedUnarchiver::unarchive(NSKeyedArchiver::archivedData(*nested));
  EXPECT_TRUE(nested->isEqual(back.get()));
}

// Holds a colour under "any" and whatever it is given under "dark".
class PairCoder final : public NSCoder {
 public:
  explicit PairCoder(Ref<NSObject> dark) : dark_(std::move(dark)) {}
  [[nodiscard]] Ref<NSObject> decodeObject(std::string_view key) override {
    return key == "dark" ? dark_ : Ref<NSObject>(NSColor::red());
  }

 private:
  Ref<NSObject> dark_;
};

TEST_F(BKUKThemedColorTest, IsNotDecodedWithoutTwoColors) {
  EXPECT_TRUE(BKUKThemedColor::decoded(*make<PairCoder>(any)));
  EXPECT_FALSE(BKUKThemedColor::decoded(*make<PairCoder>(nullptr)));
  EXPECT_FALSE(BKUKThemedColor::decoded(*make<PairCoder>(NSAppearance::named("Sepia"))));
}

class EmptyColor final : public BKUKThemedColor {};

TEST_F(BKUKThemedColorTest, StopsWithItsMessages) {
  const auto stopsWith = [](const std::string& message) {
    return testing::Optional(
        testing::StartsWith("Fatal error: " + message + ": file BrenvikUIKit/BKUKThemedColor, line "));
  };
  EXPECT_THAT(stopLine([] { (void)make<EmptyColor>()->alphaComponent(); }),
              stopsWith("Please use init(any:dark:)"));
  EXPECT_THAT(stopLine([] { (void)make<EmptyColor>()->withAlphaComponent(1); }),
              stopsWith("Please use init(any:dark:)"));
  EXPECT_THAT(stopLine([] { BKUKThemedColor::init(); }),
              stopsWith("init has not been implemented, use init(any:dark:) instead"));
  EXPECT_THAT(stopLine([] { BKUKThemedColor::init(nullptr, "public.color"); }),
              stopsWith("init(pasteboardPropertyList:ofType:) has not been implemented, "
                        "use init(any:dark:) instead"));
}

TEST(BKUKNSColorExtensions, TakeColorsFromTheirBytes) {
  const auto opaque = rgb(0xAB102030, 1);  // what lies above the colour's bytes is ignored
  EXPECT_TRUE(opaque->isEqual(NSColor::srgbRed(16 / 255.0, 32 / 255.0, 48 / 255.0, 1).get()));
  EXPECT_TRUE(rgba(0x10203080)->isEqual(opaque->withAlphaComponent(128 / 255.0).get()));
  EXPECT_EQ(rgb(0, 1.5)->alphaComponent(), 1.5);
}

TEST(BKUKNSColorExtensions, StopAtAnImpossibleBlend) {
  EXPECT_EQ(stopLine([] { (void)mix(NSColor::red(), nullptr, 0.5); }), "");
}

}  // namespace
}  // namespace bkuk
