#include <gtest/gtest.h>
#include <string>

#include "BrenvikUIKit/text/BKUKAttributedTextXMLFactory.h"
#include "BrenvikUIKit/text/BKUKCustomAttributeOperatorManager.h"
#include "BrenvikUIKit/text/BKUKSupportedCustomTextAttributesOperator.h"
#include "BrenvikUIKit/text/BKUKTextAttributes.h"

namespace bkuk {
namespace {

const NSAttributeDictionary plain = {{NSKernAttributeName, 0}};
const BKUKAttributedTextXMLConstructor::Styles styles = {
    {"b", {{NSKernAttributeName, 1}, {NSUnderlineStyleAttributeName, NSUnderlineStyle::single}}},
    {"i", {{NSKernAttributeName, 2}}}};

/// Stretch after stretch with the number of its style.
std::string styled(const char* text) {
  const auto built = BKUKAttributedTextXMLFactory::createAttributedText(text, styles, plain);
  if (!built) return "malformed";
  std::string result;
  built->enumerateAttributes({0, built->length()}, {}, [&](const auto& attributes, NSRange range, bool&) {
    result += std::to_string(*attributes.find(NSKernAttributeName)->integer());
    result += '<' + built->string().substring(range).utf8() + '>';
  });
  return result;
}

TEST(BKUKAttributedTextXMLFactory, TheInnermostStyleAloneHolds) {
  EXPECT_EQ(styled("Hello [b]world[/b]"), "0<Hello >1<world>");
  EXPECT_EQ(styled("[b]a[i]b[/i]c[/b]"), "1<a>2<b>1<c>");
  EXPECT_EQ(styled("[x]a[/x]"), "0<[x]a[/x]>");
  EXPECT_EQ(styled("[b]a"), "malformed");
  EXPECT_EQ(styled("a[/b]"), "malformed");
  EXPECT_EQ(styled(""), "");
  const auto built = BKUKAttributedTextXMLFactory::createAttributedText("[b]a[i]b[/i][/b]", styles, plain);
  EXPECT_EQ(built->attribute(NSUnderlineStyleAttributeName, 1), nullptr) << "nothing of the style around it";
}

TEST(BKUKAttributedTextXMLFactory, AParagraphStyleIsThatOfEveryRun) {
  const auto paragraph = make<NSMutableParagraphStyle>();
  auto own = styles;
  own["i"].set(NSParagraphStyleAttributeName, NSParagraphStyle::default_());
  const auto built =
      BKUKAttributedTextXMLFactory::createAttributedText("a[b]b[/b][i]c[/i]", own, plain, paragraph);
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_EQ(built->attributes(i).object<NSParagraphStyle>(NSParagraphStyleAttributeName), paragraph.get());
  }
}

TEST(BKUKTextAttributes, TheTextColourIsThatOfTheUnderlineUnlessThatHasItsOwn) {
  BKUKTextAttributes text{.textColor = NSColor::red()};
  const auto colored = text.makeStringAttributes();
  EXPECT_EQ(colored.count(), 3u);
  EXPECT_EQ(colored.object<NSColor>(NSUnderlineColorAttributeName), NSColor::red().get());
  EXPECT_TRUE(
      NSParagraphStyle::default_()->isEqual(colored.object<NSParagraphStyle>(NSParagraphStyleAttributeName)));
  text.underlineColor = NSColor::blue();
  text.underline = NSUnderlineStyle::thick;
  text.letterSpacing = 0.1;
  text.lineHeight = 20;
  text.customAttribute = {"mark", 7};
  const auto full = text.makeStringAttributes();
  EXPECT_EQ(full.object<NSColor>(NSUnderlineColorAttributeName), NSColor::blue().get());
  EXPECT_EQ(full.find(NSUnderlineStyleAttributeName)->integer(), 2);
  EXPECT_EQ(full.find(NSKernAttributeName)->number(), 0.1);
  EXPECT_EQ(full.find("mark")->integer(), 7);
  const auto* paragraph = full.object<NSParagraphStyle>(NSParagraphStyleAttributeName);
  EXPECT_EQ(paragraph->minimumLineHeight(), 20);
  EXPECT_EQ(paragraph->maximumLineHeight(), 0);
}

TEST(BKUKCustomAttributeOperator, ReplacesNothingUnlessItIsOverridden) {
  auto& manager = BKUKCustomAttributeOperatorManager::shared();
  EXPECT_EQ(manager.operator_(), nullptr);
  manager.setOperator(BKUKSupportedCustomTextAttributesOperator::shared());
  EXPECT_EQ(manager.operator_()->replace(make<NSAttributedString>(NSString("a")), "mark", 1), nullptr);
  manager.setOperator(nullptr);
}

}  // namespace
}  // namespace bkuk
