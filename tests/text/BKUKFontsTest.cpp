#include <cmath>
#include <gtest/gtest.h>
#include <set>

#include "BrenvikUIKit/text/BKUKBrandFont.h"
#include "BrenvikUIKit/text/BKUKCurrentLanguageIdentifier.h"
#include "BrenvikUIKit/text/BKUKFontConfig.h"
#include "BrenvikUIKit/text/BKUKFontLoader.h"
#include "BrenvikUIKit/text/BKUKFontManager.h"
#include "BrenvikUIKit/text/FontKey.h"
#include "platform/appkit/text/NSParagraphStyle.h"
#include "platform/foundation/NSUserDefaults.h"
#include "testing/VirtualHostScope.h"
#include "tests/support/StopLine.h"

namespace bkuk {
namespace {

using Type = BKUKFontManager::FontTypes;

struct BKUKFontsTest : testing::Test {
  BKUKFontsTest() {
    loader.registerFont(
        {{Type::regular, "Inter-Regular"}, {Type::bold, "Inter-Bold"}, {Type::thin, "NoSuchFace"}});
    BKUKFontManager::clearCache();
  }
  ~BKUKFontsTest() override { NSUserDefaults::standard().removeObject("AppleLanguages"); }

  static void speak(const char* language) {
    NSUserDefaults::standard().set(NSUserDefaults::Array{language}, "AppleLanguages");
  }

  VirtualHostScope host;
  BKUKFontLoader& loader = BKUKFontLoader::shared();
};

TEST_F(BKUKFontsTest, RemembersFontsAndForgetsAllAtOnce) {
  const auto font = BKUKFontManager::Font(Type::regular, 12);
  EXPECT_EQ(BKUKFontManager::Font(Type::regular, 12), font);
  EXPECT_NE(BKUKFontManager::Font(Type::regular, 12.5), font);
  EXPECT_NE(BKUKFontManager::Font(Type::bold, 12)->fontName(), font->fontName());
  BKUKFontManager::clearCache();
  for (int size = 1; size <= 26; ++size) (void)BKUKFontManager::Font(Type::regular, size);
  EXPECT_EQ(BKUKFontManager::cacheSize(), 26u);
  (void)BKUKFontManager::Font(Type::regular, 26);
  EXPECT_EQ(BKUKFontManager::cacheSize(), 1u) << "even a font that was there";
  BKUKFontManager::clearCache();
  for (const double size : {0.0, -1.0, HUGE_VAL, -HUGE_VAL, std::nan(""), -std::nan("1")}) {
    EXPECT_EQ(BKUKFontManager::Font(Type::regular, size)->pointSize(), 12);
  }
  EXPECT_EQ(BKUKFontManager::cacheSize(), 1u) << "sizes that are none are one";
}

TEST_F(BKUKFontsTest, OtherNamesTakeEffectWhenTheCacheIsCleared) {
  const auto before = BKUKFontManager::Font(Type::regular, 14);
  loader.registerFont({{Type::regular, "DejaVuSans"}});
  EXPECT_EQ(BKUKFontManager::Font(Type::regular, 14), before);
  BKUKFontManager::clearCache();
  EXPECT_EQ(BKUKFontManager::Font(Type::regular, 14)->fontName(), "DejaVuSans");
  EXPECT_GT(BKUKFontManager::HeightOfFont(Type::regular, 14), 14);
}

TEST_F(BKUKFontsTest, AttributesSayNothingOfWhatIsAbsent) {
  const auto full =
      BKUKFontManager::FontAttributes(Type::bold, 12, NSColor::red(), NSTextAlignment::right, 0.1);
  EXPECT_EQ(full.object<NSFont>(NSFontAttributeName), BKUKFontManager::Font(Type::bold, 12).get());
  EXPECT_EQ(full.object<NSColor>(NSForegroundColorAttributeName), NSColor::red().get());
  EXPECT_EQ(full.object<NSParagraphStyle>(NSParagraphStyleAttributeName)->alignment(),
            NSTextAlignment::right);
  EXPECT_EQ(full.find(NSKernAttributeName)->number(), 0.1) << "in full precision";
  EXPECT_EQ(NSParagraphStyle::default_()->alignment(), NSTextAlignment::natural);
  EXPECT_EQ(BKUKFontManager::FontAttributes(Type::bold, 12, nullptr, NSTextAlignment::left).count(), 2u);
}

TEST_F(BKUKFontsTest, StopsWhereThereIsNoFont) {
  const std::string unit = ": file BrenvikUIKit/BKUKFontLoader, line ";
  EXPECT_EQ(stopLine([] { (void)BKUKFontManager::Font(Type::light, 12); }),
            "Fatal error: Requested font of non existing type" + unit + "58");
  EXPECT_EQ(stopLine([] { (void)BKUKFontManager::Font(Type::thin, 12); }),
            "Fatal error: Font could not be loaded: NoSuchFace" + unit + "63");
  loader.registerFont({{Type::regular, ""}});
  EXPECT_EQ(stopLine([] { (void)BKUKFontManager::Font(Type::regular, 12); }),
            "Fatal error: Font could not be loaded" + unit + "63");
  EXPECT_EQ(
      stopLine([] { (void)make<BKUKFontLoader>()->loadFont(Type::thin, 12); }),
      "Fatal error: No font set, plese use registerFont(bundle:subpath:ext:identifiersForTypes) to register "
      "default font." +
          unit + "54");
  EXPECT_EQ(stopLine([] { (void)BKUKBrandFont::size(BKUKBrandFont::h1); }),
            "Fatal error: Not set: file BrenvikUIKit/BKUKBrandFont, line 109");
}

TEST_F(BKUKFontsTest, KeysOfDifferentFontsNeverHashAlike) {
  std::set<std::size_t> hashes;
  int count = 0;
  for (const auto type : {Type::light, Type::regular, Type::bold, Type::thin}) {
    for (double size = 0; size < 400; size += 0.125, ++count)
      hashes.insert(make<FontKey>(type, size)->hash());
  }
  EXPECT_EQ(hashes.size(), static_cast<std::size_t>(count));
  EXPECT_TRUE(make<FontKey>(Type::light, 0.0)->isEqual(make<FontKey>(Type::light, -0.0).get()));
  EXPECT_FALSE(make<FontKey>(Type::light, 12)->isEqual(make<FontKey>(Type::light, -12).get()));
}

TEST_F(BKUKFontsTest, ReadsTheLanguageOfEachTag) {
  const auto read = [](const char* tag) {
    speak(tag);
    return BKUKCurrentLanguageIdentifier();
  };
  EXPECT_EQ(read("zh-Hans-CN"), (BKUKLanguageIdentifier{"zh", "CN"}));
  EXPECT_EQ(read("JA"), (BKUKLanguageIdentifier{"ja", {}}));
  EXPECT_EQ(read("--pt--BR-"), (BKUKLanguageIdentifier{"pt", "BR"}));
  EXPECT_EQ(read("-"), BKUKLanguageIdentifier());
  NSUserDefaults::standard().set(NSUserDefaults::Array{}, "AppleLanguages");
  EXPECT_EQ(BKUKCurrentLanguageIdentifier(), BKUKLanguageIdentifier());
}

TEST_F(BKUKFontsTest, LanguagesBringTheirFamilyAndOffsets) {
  const auto five = [](const NSFont&) { return 5.0; };
  const auto& bundle = NSBundle::bundle("/usr/share/fonts/opentype/inter");
  const BKUKFontLoader::Identifiers given{{Type::regular, "InterDisplay-Bold"}};
  const auto font = NSFont::font("Inter-Regular", 15);

  speak("zh-Hant-TW");
  EXPECT_EQ(loader.registerLocalizedFonts(bundle, {}, "otf", given).at(Type::bold), "PingFangSC-Medium");
  loader.setTextFieldLocalizedOffsets(five, five);
  EXPECT_DOUBLE_EQ(BKUKFontConfig::shared().textFieldBottomOffset(*NSFont::font("Inter-Regular", 16)), 4);
  EXPECT_EQ(BKUKFontConfig::shared().textFieldTopOffset(*font), 0);

  speak("ja");
  loader.registerLocalizedFonts(bundle, {}, "otf", given);
  for (const auto type : {Type::thin, Type::light, Type::regular, Type::bold}) {
    EXPECT_EQ(loader.loadFont(type, 15)->fontName(), loader.fontIdentifiersForType()->at(type));
  }
  loader.setLabelLocalizedOffsets(five, five);
  EXPECT_DOUBLE_EQ(BKUKFontConfig::shared().labelTopOffset(*font), 1);
  EXPECT_DOUBLE_EQ(BKUKFontConfig::shared().labelBottomOffset(*font), 15 / -4.5 - 1);

  speak("en-US");
  EXPECT_EQ(loader.registerLocalizedFonts(bundle, {}, "otf", given), given);
  EXPECT_EQ(loader.loadFont(Type::regular, 15)->fontName(), "InterDisplay-Bold");
  loader.setLabelLocalizedOffsets(five, five);
  EXPECT_EQ(BKUKFontConfig::shared().labelTopOffset(*font), 5);
}

}  // namespace
}  // namespace bkuk
