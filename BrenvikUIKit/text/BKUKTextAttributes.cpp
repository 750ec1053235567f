#include "BrenvikUIKit/text/BKUKTextAttributes.h"

#include "platform/appkit/text/NSParagraphStyle.h"

namespace bkuk {

namespace {

Ref<NSParagraphStyle> paragraphStyle(const BKUKTextAttributes& text) {
  const auto style = NSParagraphStyle::default_()->mutableCopy();
  if (text.alignment) style->setAlignment(*text.alignment);
  if (text.lineBreakMode) style->setLineBreakMode(*text.lineBreakMode);
  if (text.lineHeight) style->setMinimumLineHeight(*text.lineHeight);
  if (text.tighteningFactor)
    style->setTighteningFactorForTruncation(static_cast<float>(*text.tighteningFactor));
  if (text.defaultTightening) style->setAllowsDefaultTighteningForTruncation(*text.defaultTightening);
  return style;
}

}  // namespace

NSAttributeDictionary BKUKTextAttributes::makeStringAttributes() const {
  NSAttributeDictionary attributes;
  if (font) attributes.set(NSFontAttributeName, font);
  if (textColor) attributes.set(NSForegroundColorAttributeName, textColor);
  if (letterSpacing) attributes.set(NSKernAttributeName, *letterSpacing);
  if (underline) attributes.set(NSUnderlineStyleAttributeName, *underline);
  const auto& lineColor = underlineColor ? underlineColor : textColor;
  if (lineColor) attributes.set(NSUnderlineColorAttributeName, lineColor);
  if (customAttribute) attributes.set(customAttribute->first, customAttribute->second);
  attributes.set(NSParagraphStyleAttributeName, paragraphStyle(*this));
  return attributes;
}

}  // namespace bkuk
