#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

#include "platform/appkit/drawing/NSColor.h"
#include "platform/appkit/drawing/NSGraphicsContext.h"
#include "platform/foundation/NSCoder.h"
#include "platform/foundation/NSKeyedArchiver.h"
#include "platform/foundation/NSKeyedUnarchiver.h"
#include "tests/support/StopLine.h"

namespace bkuk {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

// A colour of a subclass that knows nothing but what it is at the moment.
class Chameleon : public NSColor {
 public:
  [[nodiscard]] Ref<CGColor> cgColor() const override { return skin; }
  Ref<CGColor> skin = CGColor::srgb(1, 0.5, 0, 0.5);
};

// A colour without a value, as a pattern is.
class Plaid final : public Chameleon {
 public:
  [[nodiscard]] Ref<NSColor> usingColorSpace(const Ref<CGColorSpace>&) const override { return nullptr; }
};

std::vector<CGFloat> componentsOf(const Ref<NSColor>& color) {
  std::vector<CGFloat> components(color->numberOfComponents());
  color->getComponents(components);
  return components;
}

std::vector<Ref<NSColor>> oneOfEachKind() {
  return {NSColor::srgbRed(0.1, 0.2, 0.3, 0.4),   NSColor::calibratedRed(0.1, 0.2, 0.3, 0.4),
          NSColor::deviceRed(0.1, 0.2, 0.3, 0.4), NSColor::calibratedWhite(0.5, 0.4),
          NSColor::deviceWhite(0.5, 0.4),         NSColor::deviceCyan(0.1, 0.2, 0.3, -0.4, 1.5)};
}

TEST(NSColor, EqualsOnlyTheSameComponentsInTheSameSpace) {
  const auto kinds = oneOfEachKind();
  const auto again = oneOfEachKind();
  for (std::size_t a = 0; a < kinds.size(); ++a)
    for (std::size_t b = 0; b < again.size(); ++b)
      EXPECT_EQ(kinds[a]->isEqual(again[b].get()), a == b) << a << " and " << b;
  EXPECT_FALSE(NSColor::srgbRed(0, 0, 0, 0)->isEqual(NSColor::clear().get()));
  EXPECT_TRUE(NSColor::genericGamma22White(0, 0)->isEqual(NSColor::clear().get()));
}

TEST(NSColor, ConvertsBetweenSpacesAndIsItsOwnConversionAtHome) {
  for (const auto& color : oneOfEachKind()) {
    EXPECT_EQ(color->usingColorSpace(color->colorSpace()), color);
    EXPECT_EQ(color->usingColorSpaceName(color->colorSpaceName(), nullptr), color);
  }
  const auto cyan = NSColor::deviceCyan(1, 0, 0, 0.5, 0.3)->usingColorSpace(CGColorSpace::sRGB());
  EXPECT_THAT(componentsOf(cyan), ElementsAre(0, 0.5, 0.5, 0.3));
  const auto white = NSColor::red()->usingColorSpaceName(NSDeviceWhiteColorSpace, nullptr);
  EXPECT_EQ(white->colorSpace(), CGColorSpace::deviceGray());
  EXPECT_FALSE(NSColor::white()->usingColorSpaceName(NSCustomColorSpace, nullptr));
  EXPECT_FALSE(NSColor::white()->usingColorSpaceName("NSPatternColorSpace", nullptr));
}

TEST(NSColor, StopsWhenAskedForWhatItLacks) {
  EXPECT_THAT(stopLine([] { (void)NSColor::white()->redComponent(); }),
              testing::Optional(HasSubstr("redComponent")));
  EXPECT_TRUE(stopLine([] { (void)NSColor::white()->hueComponent(); }));
  EXPECT_TRUE(stopLine([] { NSColor::red()->getWhite(nullptr, nullptr); }));
  EXPECT_TRUE(stopLine([] { (void)NSColor::red()->cyanComponent(); }));
  EXPECT_TRUE(stopLine([] { (void)NSColor::red()->catalogNameComponent(); }));
  std::array<CGFloat, 3> tooFew{};
  EXPECT_TRUE(stopLine([&] { NSColor::red()->getComponents(tooFew); }));
}

TEST(NSColor, TellsHueSaturationAndBrightness) {
  const auto hsb = [](CGFloat red, CGFloat green, CGFloat blue) {
    std::array<CGFloat, 3> answer{};
    NSColor::srgbRed(red, green, blue, 1)->getHue(&answer[0], &answer[1], &answer[2], nullptr);
    return answer;
  };
  EXPECT_THAT(hsb(0, 0.5, 0), ElementsAre(1.0 / 3, 1, 0.5));
  EXPECT_THAT(hsb(1, 0, 0.5), ElementsAre(testing::DoubleEq(11.0 / 12), 1, 1)) << "from below the red";
  EXPECT_THAT(hsb(0.5, 0.25, 0.25), ElementsAre(0, 0.5, 0.5));
  EXPECT_THAT(hsb(0.5, 0.5, 0.5), ElementsAre(0, 0, 0.5));
  EXPECT_THAT(hsb(0, 0, 0), ElementsAre(0, 0, 0));
}

TEST(NSColor, ReplacesAlphaCutToTheUnitRange) {
  const auto half = NSColor::srgbRed(1, 0, 0, 0.5);
  EXPECT_EQ(half->withAlphaComponent(0.8)->alphaComponent(), 0.8);
  EXPECT_EQ(half->withAlphaComponent(7)->alphaComponent(), 1);
  EXPECT_EQ(half->withAlphaComponent(std::numeric_limits<CGFloat>::quiet_NaN())->alphaComponent(), 0);
}

TEST(NSColor, BlendsToANewColorWithoutPremultiplication) {
  const auto red = NSColor::calibratedRed(1, 0, 0, 1);
  EXPECT_THAT(componentsOf(red->blended(0.25, NSColor::clear())), ElementsAre(0.75, 0, 0, 0.75));
  EXPECT_THAT(componentsOf(red->blended(3, NSColor::black())), ElementsAre(0, 0, 0, 1));
  EXPECT_THAT(componentsOf(red->highlight(0.5)), ElementsAre(1, 0.5, 0.5, 1));
  EXPECT_NE(red->blended(-3, NSColor::white()), red);
  EXPECT_TRUE(red->blended(-3, NSColor::white())->isEqual(red.get()));
  EXPECT_FALSE(red->blended(0.5, make<Plaid>())) << "the other has no conversion";
  EXPECT_FALSE(make<Plaid>()->blended(0.5, red));
}

TEST(NSColor, ASubclassAnswersEverythingFromItsColorOfTheMoment) {
  const auto color = make<Chameleon>();
  EXPECT_THAT(componentsOf(NSColor::black()->blended(1, color)), ElementsAre(1, 0.5, 0, 0.5));
  color->skin = CGColor::gray(0.2, 1);
  EXPECT_EQ(color->whiteComponent(), 0.2);
  EXPECT_FALSE(NSColor::genericGamma22White(0.2, 1)->isEqual(color.get()));
}

TEST(NSColor, GoesIntoTheCurrentContext) {
  NSColor::red()->set();  // nothing to go into
  host::Bitmap bitmap({4, 4});
  const auto context = make<CGContext>(bitmap, CGAffineTransform());
  const NSGraphicsContextScope scope(make<NSGraphicsContext>(context, false));
  NSColor::red()->set();
  NSColor::blue()->setStroke();
  EXPECT_TRUE(context->fillColor()->isEqual(NSColor::red()->cgColor().get()));
  EXPECT_TRUE(context->strokeColor()->isEqual(NSColor::blue()->cgColor().get()));
}

TEST(NSColor, EveryKindComesBackFromAnArchive) {
  for (const auto& color : oneOfEachKind()) {
    const auto back = NSKeyedUnarchiver::unarchive(NSKeyedArchiver::archivedData(*color));
    EXPECT_TRUE(color->isEqual(back.get())) << color->colorSpaceName();
  }
}

// Answers what a damaged archive of a colour might hold.
class PartialCoder final : public NSCoder {
 public:
  PartialCoder(std::string_view space, int components) : space_(space), components_(components) {}
  [[nodiscard]] std::optional<std::string> decodeString(std::string_view) override { return space_; }
  [[nodiscard]] std::optional<double> decodeDouble(std::string_view) override {
    return components_-- > 0 ? std::optional(0.5) : std::nullopt;
  }

 private:
  std::string space_;
  int components_;
};

TEST(NSColor, IsNotDecodedFromHalfAColor) {
  const auto space = CGColorSpace::sRGB()->name();
  EXPECT_TRUE(NSColor::decoded(*make<PartialCoder>(space, 4)));
  EXPECT_FALSE(NSColor::decoded(*make<PartialCoder>(space, 3)));
  EXPECT_FALSE(NSColor::decoded(*make<PartialCoder>("a space of another age", 4)));
}

}  // namespace
}  // namespace bkuk
