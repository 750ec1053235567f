#include <gtest/gtest.h>

#include "BrenvikUIKit/text/BKUKFontLoader.h"
#include "BrenvikUIKit/text/BKUKFontManager.h"
#include "BrenvikUIKit/text/BKUKNSAttributedString+Extensions.h"
#include "platform/appkit/text/NSParagraphStyle.h"
#include "testing/VirtualHostScope.h"

namespace bkuk {
namespace {

using Type = BKUKFontManager::FontTypes;

struct BKUKNSAttributedStringExtensions : testing::Test {
  BKUKNSAttributedStringExtensions() {
    BKUKFontLoader::shared().registerFont({{Type::regular, "Inter-Regular"}, {Type::bold, "Inter-Bold"}});
    BKUKFontManager::clearCache();
  }
  template <typename T>
  [[nodiscard]] T* at(std::size_t index, const NSAttributedStringKey& key) const {
    return text->attributes(index).object<T>(key);
  }

  VirtualHostScope host;
  const Ref<NSMutableAttributedString> text =
      make<NSMutableAttributedString>(NSString("🙂 read the terms"));
};

TEST_F(BKUKNSAttributedStringExtensions, FindsTheFirstOccurrenceInUnits) {
  EXPECT_EQ(getRangeForSubstring(*text, "e"), (NSRange{4, 1}));
  EXPECT_EQ(getRangeForSubstring(*text), (NSRange{0, 17}));
  EXPECT_EQ(getRangeForSubstring(*text, "E"), std::nullopt);
  EXPECT_EQ(getRangeForSubstring(*text, ""), std::nullopt);
}

TEST_F(BKUKNSAttributedStringExtensions, ChangesOnlyWhatIsThere) {
  const auto before = mutableTypeCopy(*text);
  setColor(*text, NSColor::red(), NSRange{16, 2});
  setBackgroundColor(*text, NSColor::red(), NSRange{NSNotFound, static_cast<std::size_t>(-1)});
  setColor(*text, NSColor::red(), "absent");
  set(*text, 12, Type::bold, NSColor::red(), NSTextAlignment::left, {}, "");
  EXPECT_TRUE(text->isEqual(before.get()));
  setColor(setBackgroundColor(*text, NSColor::blue()), NSColor::red(), "terms");
  EXPECT_EQ(at<NSColor>(11, NSForegroundColorAttributeName), nullptr);
  EXPECT_EQ(at<NSColor>(12, NSForegroundColorAttributeName), NSColor::red().get());
  EXPECT_EQ(at<NSColor>(16, NSBackgroundColorAttributeName), NSColor::blue().get());
  setColor(*text, NSColor::green(), std::nullopt);
  EXPECT_EQ(at<NSColor>(11, NSForegroundColorAttributeName), NSColor::green().get());
}

TEST_F(BKUKNSAttributedStringExtensions, EmptyTextsStayAsTheyAre) {
  const auto empty = make<NSMutableAttributedString>();
  setParagraph(setUnderline(setColor(*empty, NSColor::red())), NSTextAlignment::left);
  stylePreferencesText(stylePreferencesErrorTitle(*empty), true, "a", NSColor::red(), NSTextAlignment::left);
  EXPECT_EQ(setString(*empty, "a").attributes(0).count(), 0u);
}

TEST_F(BKUKNSAttributedStringExtensions, ParagraphsFollowTheFirstStyleOfTheText) {
  const auto first = make<NSMutableParagraphStyle>();
  first->setHeadIndent(7);
  text->addAttribute(NSParagraphStyleAttributeName, first, {2, 1});
  text->addAttribute(NSParagraphStyleAttributeName, NSParagraphStyle::default_(), {3, 1});
  setParagraph(*text, NSTextAlignment::right, 4, NSLineBreakMode::clipping);
  setParagraph(*text, NSTextAlignment::justified);
  const auto* style = at<NSParagraphStyle>(16, NSParagraphStyleAttributeName);
  EXPECT_EQ(style->headIndent(), 7);
  EXPECT_EQ(style->alignment(), NSTextAlignment::justified);
  EXPECT_EQ(style->lineBreakMode(), NSLineBreakMode::clipping);
  EXPECT_EQ(first->alignment(), NSTextAlignment::natural);
}

TEST_F(BKUKNSAttributedStringExtensions, StylesTakeThePlaceOfWhatWasThere) {
  setUnderline(setUnderline(*text, NSUnderlineStyle::thick, NSColor::red()));
  EXPECT_EQ(text->attribute(NSUnderlineStyleAttributeName, 16)->integer(), 1);
  EXPECT_EQ(at<NSColor>(16, NSUnderlineColorAttributeName), NSColor::red().get());
  stylePreferencesErrorText(*text);
  const auto error =
      BKUKFontManager::FontAttributes(Type::regular, 13, NSColor::red(), NSTextAlignment::center);
  EXPECT_EQ(text->attributes(0), error);
  stylePreferencesText(*text, true, "terms", NSColor::blue(), NSTextAlignment::left);
  EXPECT_EQ(text->attributes(11), error) << "no underline";
  EXPECT_EQ(text->attributes(12),
            BKUKFontManager::FontAttributes(Type::bold, 13, NSColor::blue(), NSTextAlignment::left));
}

}  // namespace
}  // namespace bkuk
