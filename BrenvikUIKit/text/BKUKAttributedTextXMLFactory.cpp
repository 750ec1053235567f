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

}  // namespace bkuk
