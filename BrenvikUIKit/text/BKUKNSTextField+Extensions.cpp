#include "BrenvikUIKit/text/BKUKNSTextField+Extensions.h"

#include "BrenvikUIKit/text/BKUKAttributedTextXMLFactory.h"
#include "BrenvikUIKit/text/BKUKNSAttributedString+Extensions.h"

namespace bkuk {

void apply(NSTextField& field, const std::map<std::string, BKUKFontSettings>& stylesToTags,
           const BKUKFontSettings& withDefaultStyle) {
  const auto paragraph = make<NSMutableParagraphStyle>();
  paragraph->setAlignment(field.alignment());
  paragraph->setLineBreakMode(field.lineBreakMode());
  paragraph->setBaseWritingDirection(field.baseWritingDirection());
  paragraph->setAllowsDefaultTighteningForTruncation(field.allowsDefaultTighteningForTruncation());
  const NSString markup(field.stringValue());
  Ref<NSAttributedString> text =
      BKUKAttributedTextXMLFactory::createAttributedText(markup, stylesToTags, withDefaultStyle, paragraph);
  if (!text) text = make<NSAttributedString>(markup, withDefaultStyle.fontAttributes());
  field.setAttributedStringValue(*text);
}

void apply(NSTextField& field, const BKUKFontSettings& style, std::string_view toExpression) {
  const auto text = field.attributedStringValue()->mutableCopy();
  const auto range = getRangeForSubstring(*text, toExpression);
  if (!range) return;
  text->addAttributes(style.fontAttributes(), *range);
  field.setAttributedStringValue(*text);
}

void apply(NSTextField& field, const BKUKFontSettings& style) {
  field.setFont(style.font());
  field.setTextColor(style.color);
  field.setAlignment(style.alignment);
}

void setupAsLabel(NSTextField& field) {
  field.setTranslatesAutoresizingMaskIntoConstraints(false);
  field.setBezeled(false);
  field.setBordered(false);
  field.setEditable(false);
  field.setSelectable(false);
  field.setDrawsBackground(false);
  field.setAccessibilityRole(NSAccessibilityStaticTextRole);
}

void drawBackground(NSTextField& field, const Ref<NSColor>& color) {
  field.setDrawsBackground(true);
  field.setBackgroundColor(color);
}

}  // namespace bkuk
