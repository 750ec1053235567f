#include <gtest/gtest.h>

#include "platform/foundation/NSString.h"
#include "tests/support/StopLine.h"

namespace bkuk {
namespace {

TEST(NSString, ValidTextOfEveryLengthConvertsWithoutLoss) {
  const std::string text =
      "a\x7F"
      "\u0080\u07FF\u0800\uD7FF\uE000\uFFFF\U00010000\U0010FFFF";
  const NSString string(text);
  EXPECT_EQ(string.length(), 12u);
  EXPECT_EQ(string.utf8(), text);
  EXPECT_EQ(string.characterAt(8), 0xD800);
}

TEST(NSString, EachIllFormedPieceBecomesOneReplacement) {
  const auto replaced = [](std::string_view text) { return NSString(text).utf8(); };
  const std::string mark = "\uFFFD";
  EXPECT_EQ(replaced("a\x80z"), "a" + mark + "z");
  EXPECT_EQ(replaced("\xC0\xAF"), mark + mark) << "an overlong spelling";
  EXPECT_EQ(replaced("\xED\xA0\x80"), mark + mark + mark) << "a surrogate";
  EXPECT_EQ(replaced("\xF4\x90\x80\x80"), mark + mark + mark + mark) << "beyond the last character";
  EXPECT_EQ(replaced("\xE2\x82"), mark) << "cut off";
  EXPECT_EQ(replaced("\xF0\x9F\x98"
                     "A"),
            mark + "A");
  EXPECT_EQ(NSString(std::u16string{0xD83D}).utf8(), mark);
  EXPECT_EQ(NSString(std::u16string{0xDE00, 0xD83D}).utf8(), mark + mark);
}

TEST(NSString, SearchesUnitByUnit) {
  const NSString text("größe größe");
  EXPECT_EQ(text.range("öß"), (NSRange{2, 2}));
  EXPECT_EQ(text.range("x"), (NSRange{NSNotFound, 0}));
  EXPECT_EQ(text.range(""), (NSRange{NSNotFound, 0}));
  EXPECT_EQ(NSString("e\u0301").range("\u00E9").location, NSNotFound);
  EXPECT_EQ(text.substring({6, 2}), NSString("gr"));
}

TEST(NSString, ComponentsKeepEmptyPieces) {
  EXPECT_EQ(NSString("/a//b/").components("/"), (std::vector<NSString>{"", "a", "", "b", ""}));
  EXPECT_EQ(NSString("").components("/"), std::vector<NSString>{""});
  EXPECT_EQ(NSString("ab").components(""), std::vector<NSString>{"ab"});
}

TEST(NSRange, EndsAreExclusiveAndSumsAreChecked) {
  EXPECT_TRUE(NSLocationInRange(4, {2, 3}));
  EXPECT_FALSE(NSLocationInRange(5, {2, 3}));
  EXPECT_FALSE(NSLocationInRange(1, {2, 3}));
  EXPECT_EQ(stopLine([] { (void)NSMaxRange({NSNotFound, SIZE_MAX}); }), "");
  EXPECT_EQ(stopLine([] { (void)NSString("abc").substring({2, 2}); }), "");
  EXPECT_EQ(stopLine([] { (void)NSString("abc").characterAt(3); }), "");
}

}  // namespace
}  // namespace bkuk
