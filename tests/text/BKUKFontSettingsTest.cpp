#include <gtest/gtest.h>
#include <string_view>

#include "BrenvikUIKit/colour/BKUKTheme.h"
#include "BrenvikUIKit/text/BKUKAttributedTextXMLFactory.h"
#include "BrenvikUIKit/text/BKUKFontLoader.h"
#include "BrenvikUIKit/text/BKUKStatefulFonts.h"
#include "platform/appkit/text/NSParagraphStyle.h"
#include "testing/VirtualHostScope.h"

namespace bkuk {
namespace {

using Type = BKUKFontManager::FontTypes;

struct BKUKFontSettingsTest : testing::Test {
  BKUKFontSettingsTest() {
    BKUKFontLoader::shared().registerFont({{Type::regular, "Inter-Regular"}, {Type::bold, "Inter-Bold"}});
    BKUKFontManager::clearCache();
    BKUKTheme::setGlobalOverride([](std::string_view role) {
      auto color = role == "onBackground" ? NSColor::white() : NSColor::gray();
      if (role == "accentHighContrast") color = NSColor::green();
      return [color] { return color; };
    });
  }
  ~BKUKFontSettingsTest() override {
    BKUKTheme::setGlobalOverride({});
    BKUKBrandFont::size = size;
    BKUKBrandFont::type = type;
  }

  VirtualHostScope host;
  const std::function<double(BKUKBrandFont)> size = BKUKBrandFont::size;
  const std::function<Type(BKUKBrandFont)> type = BKUKBrandFont::type;
  const BKUKFontSettings everything = BKUKFontSettings(
      NSColor::red(), 15, Type::bold, NSTextAlignment::right, NSLineBreakMode::clipping, 0.1F,
      NSUnderlineStyle::double_, NSColor::blue(), BKUKFontSettings::CustomAttribute("mark", 7));
};

TEST_F(BKUKFontSettingsTest, PresetsFollowTheApplicationAndTheTheme) {
  EXPECT_EQ(BKUKFontSettings::linkBody2(),
            BKUKFontSettings(NSColor::white(), 14, Type::regular, NSTextAlignment::natural, {}, {},
                             NSUnderlineStyle::single));
  BKUKBrandFont::size = [](BKUKBrandFont style) { return 30 - style; };
  BKUKBrandFont::type = [](BKUKBrandFont style) {
    return style == BKUKBrandFont::button ? Type::bold : Type::regular;
  };
  EXPECT_EQ(BKUKFontSettings::button(),
            BKUKFontSettings(NSColor::white(), 22, Type::bold, NSTextAlignment::center));
  const BKUKStatefulFonts fonts(BKUKBrandFont::button, NSColor::red(), NSTextAlignment::left);
  EXPECT_EQ(fonts.hover(), BKUKFontSettings(NSColor::red(), 22, Type::bold, NSTextAlignment::left));
  BKUKBrandFont::size = [](BKUKBrandFont) { return 9; };
  EXPECT_EQ(BKUKFontSettings::caption().size, 9) << "made afresh";
}

TEST_F(BKUKFontSettingsTest, TheSizeOfARoleIsAskedForBeforeItsType) {
  std::string asked;
  BKUKBrandFont::size = [&](BKUKBrandFont) { return asked += "size ", 9; };
  BKUKBrandFont::type = [&](BKUKBrandFont) { return asked += "type ", Type::bold; };
  (void)BKUKFontSettings(BKUKBrandFont::h1, NSColor::red(), NSTextAlignment::left);
  (void)BKUKStatefulFonts(BKUKBrandFont::h1, NSColor::red(), NSTextAlignment::left);
  EXPECT_EQ(asked, "size type size type ");
}

TEST_F(BKUKFontSettingsTest, AttributesSayAllButHowLinesBreak) {
  const auto all = everything.fontAttributes(NSLineBreakMode::truncatingTail);
  EXPECT_EQ(all.count(), 7u);
  EXPECT_EQ(all.object<NSFont>(NSFontAttributeName), everything.font().get());
  EXPECT_TRUE(all.find(NSKernAttributeName)->isFloat());
  EXPECT_EQ(all.object<NSColor>(NSUnderlineColorAttributeName), NSColor::blue().get());
  const auto* paragraph = all.object<NSParagraphStyle>(NSParagraphStyleAttributeName);
  EXPECT_EQ(paragraph->alignment(), NSTextAlignment::right);
  EXPECT_EQ(paragraph->lineBreakMode(), NSLineBreakMode::wordWrapping);

  const auto custom = everything.withCustomAttribute({{NSForegroundColorAttributeName, NSColor::green()}});
  EXPECT_EQ(custom.fontAttributes().object<NSColor>(NSForegroundColorAttributeName), NSColor::green().get());
  EXPECT_EQ(BKUKFontSettings::linkBody1().fontAttributes().count(), 4u);
  EXPECT_EQ(everything.font(20), BKUKFontManager::Font(Type::bold, 20));
}

TEST_F(BKUKFontSettingsTest, CopiesLoseTheLineBreakMode) {
  auto expected = everything;
  expected.lineBreakMode.reset();
  EXPECT_EQ(everything.withUnderline(NSUnderlineStyle::double_, NSColor::blue()), expected);
  expected.size = 20;
  expected.spacing = 0.0F;
  EXPECT_EQ(everything.with({.size = 20, .spacing = 0}), expected);
  EXPECT_EQ(everything.withUnderline({}, nullptr).fontAttributes().count(), 5u);
  // The underline takes the colour of the text.
  expected = everything.withUnderline(NSUnderlineStyle::double_, NSColor::red());
  EXPECT_EQ(everything.withBackgroundColor(NSColor::green()), expected);
  expected.customAttribute = {"other", "x"};
  EXPECT_EQ(everything.withCustomAttribute({{"other", "x"}}), expected);
}

TEST_F(BKUKFontSettingsTest, EachStateHasItsOwnTextInItsOwnColour) {
  const BKUKStatefulColors colors(NSColor::red(), NSColor::blue());
  const BKUKStatefulFonts fonts(colors, 12, Type::bold, NSTextAlignment::left, 0.5F);
  const BKUKFontSettings red(NSColor::red(), 12, Type::bold, NSTextAlignment::left, {}, 0.5F);
  EXPECT_EQ(fonts.with({.normal = everything}).pressed(), red);
  const auto changed = BKUKStatefulFonts(red, everything).with(colors, {.size = 20});
  EXPECT_EQ(changed.hover(), everything.with({.color = NSColor::blue(), .size = 20}));
  EXPECT_EQ(changed.disabled(), red.with({.size = 20}));
}

TEST_F(BKUKFontSettingsTest, MarkupTakesTheSettingsOfItsTags) {
  const auto link = BKUKFontSettings::linkBody1();
  std::map<std::string, BKUKFontSettings> styles;
  styles["b"] = everything;
  const auto built = BKUKAttributedTextXMLFactory::createAttributedText("a[b]b[/b]", styles, link);
  EXPECT_EQ(built->attributes(0), link.fontAttributes());
  EXPECT_EQ(built->attributes(1), everything.fontAttributes());
}

TEST_F(BKUKFontSettingsTest, LinksExchangeTheirColoursUnderThePointer) {
  const auto text = BKUKFontSettings::linkBody1();
  const auto accented = text.with({.color = NSColor::green()});
  const auto faint = text.with({.color = NSColor::gray()});
  EXPECT_EQ(BKUKStatefulFonts::hyperlinkPrimary(), BKUKStatefulFonts(accented, text, accented, faint));
  EXPECT_EQ(BKUKStatefulFonts::hyperlinkSecondary(), BKUKStatefulFonts(text, accented, text, faint));
}

}  // namespace
}  // namespace bkuk
