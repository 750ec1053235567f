#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

#include "platform/foundation/NSAttributedString.h"
#include "platform/foundation/NSMutableAttributedString.h"
#include "tests/support/StopLine.h"

namespace bkuk {
namespace {

using Options = NSAttributedStringEnumerationOptions;

const NSAttributedStringKey color = "color";
const NSAttributedStringKey size = "size";

NSAttributeDictionary sized(int value) { return {{size, value}}; }

/// The sizes of all units as digits, a dot where there is none.
std::string sizes(const NSAttributedString& text) {
  std::string result;
  for (std::size_t i = 0; i < text.length(); ++i) {
    const auto* value = text.attribute(size, i);
    result += value ? static_cast<char>('0' + *value->integer()) : '.';
  }
  return result;
}

Ref<NSMutableAttributedString> text(std::string_view digits) {
  const auto result = make<NSMutableAttributedString>();
  for (const char digit : digits)
    result->append(u"x", digit == '.' ? NSAttributeDictionary() : sized(digit - '0'));
  return result;
}

std::vector<NSRange> stretches(const NSAttributedString& text, NSRange in, Options options = Options::none) {
  std::vector<NSRange> result;
  text.enumerateAttributes(in, options, [&](const auto&, NSRange range, bool&) { result.push_back(range); });
  return result;
}

TEST(NSAttributeDictionary, IsAValueWhoseCopiesShareUntilOneChanges) {
  NSAttributeDictionary a = {{size, 1}, {color, "red"}, {size, 2}};
  NSAttributeDictionary b = a;
  EXPECT_TRUE(a.shares(b));
  b.remove("absent");
  EXPECT_TRUE(a.shares(b));
  b.set(size, 3);
  EXPECT_EQ(a.find(size)->integer(), 2);
  b.set(size, 2.0F);
  EXPECT_EQ(a, b) << "numbers are equal whatever their type";
  b.remove(size);
  b.remove(color);
  EXPECT_TRUE(b.isEmpty());
  b.merge(a);
  EXPECT_EQ(b, a);
  EXPECT_EQ(stopLine([] { (void)NSAttributeValue(Ref<NSObject>()); }), "");
}

TEST(NSAttributedString, ReplacementsTakeTheAttributesOfWhatTheyReplace) {
  const auto replaced = [](std::string_view digits, NSRange range, const char* with) {
    const auto string = text(digits);
    string->replaceCharacters(range, NSString(with));
    return sizes(*string);
  };
  EXPECT_EQ(replaced("123", {1, 2}, "abc"), "1222") << "of the first replaced";
  EXPECT_EQ(replaced("123", {2, 0}, "ab"), "12223") << "of the one before";
  EXPECT_EQ(replaced("123", {0, 0}, "ab"), "11123") << "of the one behind, at the start";
  EXPECT_EQ(replaced("", {0, 0}, "ab"), "..");
  EXPECT_EQ(replaced("123", {3, 0}, "a"), "1233");
  EXPECT_EQ(replaced("123", {0, 3}, ""), "");

  const auto string = text("12");
  string->replaceCharacters({1, 1}, *text("34"));
  EXPECT_EQ(sizes(*string), "134");
  string->append(*string);
  string->insert(*string, 1);
  EXPECT_EQ(sizes(*string), "113413434134") << "a text may be put into itself";
  string->setAttributedString(*text("5"));
  EXPECT_EQ(string->string(), "x");
}

TEST(NSAttributedString, AddingMergesAndSettingReplaces) {
  const auto string = text("1122");
  string->addAttribute(color, "red", {1, 2});
  EXPECT_EQ(sizes(*string), "1122");
  EXPECT_EQ(*string->attribute(color, 2)->string(), "red");
  EXPECT_EQ(string->attribute(color, 3), nullptr);
  string->setAttributes({{color, "blue"}}, {2, 1});
  EXPECT_EQ(sizes(*string), "11.2");
  string->removeAttribute(color, {0, 4});
  EXPECT_EQ(stretches(*string, {0, 4}), (std::vector<NSRange>{{0, 2}, {2, 1}, {3, 1}}))
      << "what is equal again is joined";
}

TEST(NSAttributedString, EnumeratesStretchesOfEqualAttributes) {
  const auto string = text("1122");
  string->append(u"xx", sized(2));
  EXPECT_EQ(stretches(*string, {1, 5}), (std::vector<NSRange>{{1, 1}, {2, 4}}));
  EXPECT_GE(stretches(*string, {1, 5}, Options::longestEffectiveRangeNotRequired).size(), 2u);
  EXPECT_TRUE(stretches(*string, {6, 0}).empty());

  NSRange longest;
  (void)string->attributes(4, longest, {3, 2});
  EXPECT_EQ(longest, (NSRange{3, 2}));

  string->addAttribute(color, "red", {0, 3});
  std::vector<NSRange> colored;
  string->enumerateAttribute(color, {0, 6}, Options::none, [&](const auto* value, NSRange range, bool& stop) {
    if (value) colored.push_back(range);
    stop = !value;
  });
  EXPECT_EQ(colored, (std::vector<NSRange>{{0, 3}})) << "over different sizes, and no further than asked";
}

TEST(NSAttributedString, AVisitorMayShortenOrLetGoOfTheText) {
  auto string = text("123456");
  std::size_t visits = 0;
  string->enumerateAttributes({0, 6}, Options::none, [&](const auto& attributes, NSRange, bool&) {
    ++visits;
    if (!string) return;
    string->deleteCharacters({2, 4});
    EXPECT_EQ(attributes, sized(1));
    string = nullptr;
  });
  EXPECT_EQ(visits, 2u);
}

TEST(NSAttributedString, EqualityIsByValueAndCopiesAreIndependent) {
  const auto whole = text("11");
  const NSAttributedString other(NSString("xx"), sized(1));
  EXPECT_TRUE(whole->isEqual(&other));
  EXPECT_EQ(whole->hash(), other.hash());
  const auto copy = whole->copy();
  const auto changed = whole->mutableCopy();
  changed->setAttributes(sized(2), {1, 1});
  EXPECT_FALSE(changed->isEqual(whole.get()));
  EXPECT_TRUE(copy->isEqual(whole.get()));
  EXPECT_EQ(sizes(*changed->attributedSubstring({1, 1})), "2");
  EXPECT_FALSE(changed->containsAttachments());
  changed->addAttribute(NSAttachmentAttributeName, 1, {0, 1});
  EXPECT_TRUE(changed->containsAttachments());
}

TEST(NSAttributedString, PlacesBeyondTheEndStopTheProcess) {
  const auto string = text("12");
  EXPECT_TRUE(stopLine([&] { (void)string->attributes(2); }));
  EXPECT_TRUE(stopLine([&] { string->deleteCharacters({1, 2}); }));
  EXPECT_TRUE(stopLine([&] { string->setAttributes({}, {3, 0}); }));
  EXPECT_TRUE(stopLine([&] { (void)string->attributedSubstring({0, SIZE_MAX}); }));
}

/// Thousands of runs, so that chunks split, shrink and go.
TEST(NSAttributedString, AgreesWithAPlainListOverManyRandomEdits) {
  std::mt19937 random(7);
  const auto below = [&](std::size_t limit) { return static_cast<std::size_t>(random()) % limit; };
  std::string model;
  const auto string = make<NSMutableAttributedString>();
  for (int i = 0; i < 3000; ++i) model += static_cast<char>('0' + below(9));
  string->append(*text(model));
  for (int edit = 0; edit < 2000; ++edit) {
    const std::size_t at = below(model.size() + 1);
    const std::size_t reach = edit % 100 == 0 ? 1500 : 6;
    const NSRange range{at, std::min(below(reach), model.size() - at)};
    const char digit = static_cast<char>('0' + below(9));
    if (edit % 2 == 0) {
      const std::string added(below(edit % 100 == 0 ? 1500 : 6), digit);
      string->replaceCharacters(range, *text(added));
      model.replace(range.location, range.length, added);
    } else {
      string->addAttribute(size, digit - '0', range);
      model.replace(range.location, range.length, range.length, digit);
    }
    if (edit % 50 == 0) {
      ASSERT_EQ(sizes(*string), model);
    }
  }
  EXPECT_EQ(sizes(*string), model);
}

}  // namespace
}  // namespace bkuk
