#include "BrenvikUIKit/text/BKUKAttributedTextXMLFactory.h"

#include <utility>
#include <vector>

#include "BrenvikUIKit/text/BKUKSimpleXMLParser.h"

namespace bkuk {

Ref<NSMutableAttributedString> BKUKAttributedTextXMLFactory::createAttributedText(
    NSString text, const BKUKAttributedTextXMLConstructor::Styles& applyingStylesToTags,
    const NSAttributeDictionary& withDefaultStyle, const Ref<NSParagraphStyle>& paragraph) {
  std::vector<NSString> names;
  for (const auto& [name, style] : applyingStylesToTags) names.emplace_back(name);
  const auto constructor =
      make<BKUKAttributedTextXMLConstructor>(withDefaultStyle, applyingStylesToTags, paragraph);
  const BKUKSimpleXMLParser parser(constructor.get());
  return parser.parse(std::move(text), names) ? constructor->currentText() : nullptr;
}

Ref<NSMutableAttributedString> BKUKAttributedTextXMLFactory::createAttributedText(
    NSString text, const std::map<std::string, BKUKFontSettings>& applyingStylesToTags,
    const BKUKFontSettings& withDefaultStyle, const Ref<NSParagraphStyle>& paragraph) {
  BKUKAttributedTextXMLConstructor::Styles styles;
  for (const auto& [name, style] : applyingStylesToTags) styles.emplace(name, style.fontAttributes());
  return createAttributedText(std::move(text), styles, withDefaultStyle.fontAttributes(), paragraph);
}

}  // namespace bkuk
