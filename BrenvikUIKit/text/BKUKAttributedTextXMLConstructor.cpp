#include "BrenvikUIKit/text/BKUKAttributedTextXMLConstructor.h"

namespace bkuk {

namespace {

NSAttributeDictionary withParagraph(NSAttributeDictionary style, const Ref<NSParagraphStyle>& paragraph) {
  if (paragraph) style.set(NSParagraphStyleAttributeName, paragraph);
  return style;
}

}  // namespace

BKUKAttributedTextXMLConstructor::BKUKAttributedTextXMLConstructor(const NSAttributeDictionary& defaultStyle,
                                                                   const Styles& stylesMapping,
                                                                   const Ref<NSParagraphStyle>& paragraph)
    : defaultStyle_(withParagraph(defaultStyle, paragraph)) {
  for (const auto& [name, style] : stylesMapping)
    stylesMapping_.emplace(name, withParagraph(style, paragraph));
}

void BKUKAttributedTextXMLConstructor::foundCharacters(std::u16string_view text) {
  currentText_->append(text, stylesStack_.empty() ? defaultStyle_ : *stylesStack_.back());
}

void BKUKAttributedTextXMLConstructor::didStartElement(const NSString& name) {
  const auto style = stylesMapping_.find(name);
  if (style != stylesMapping_.end()) stylesStack_.push_back(&style->second);
}

void BKUKAttributedTextXMLConstructor::didEndElement(const NSString&) {
  if (!stylesStack_.empty()) stylesStack_.pop_back();
}

}  // namespace bkuk
