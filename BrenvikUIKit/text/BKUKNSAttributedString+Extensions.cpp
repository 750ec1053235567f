#include "BrenvikUIKit/text/BKUKNSAttributedString+Extensions.h"

#include "BrenvikUIKit/text/BKUKFontManager.h"
#include "platform/appkit/text/NSParagraphStyle.h"

namespace bkuk {

namespace {

NSRange whole(const NSAttributedString& text) { return {0, text.length()}; }

// Without adding up: a range may lie as far away as it likes.
bool contains(const NSAttributedString& text, NSRange range) {
  return range.location <= text.length() && range.length <= text.length() - range.location;
}

NSMutableAttributedString& add(NSMutableAttributedString& text, const NSAttributedStringKey& key,
                               const NSAttributeValue& value, NSRange range) {
  if (contains(text, range)) text.addAttribute(key, value, range);
  return text;
}

Ref<NSMutableParagraphStyle> paragraphStyle(const NSAttributedString& text) {
  Ref<NSMutableParagraphStyle> style;
  text.enumerateAttributes(whole(text), NSAttributedString::Options::longestEffectiveRangeNotRequired,
                           [&](const auto& attributes, NSRange, bool& stop) {
                             const auto* found =
                                 attributes.template object<NSParagraphStyle>(NSParagraphStyleAttributeName);
                             if (found) style = found->mutableCopy();
                             stop = found != nullptr;
                           });
  return style ? style : make<NSMutableParagraphStyle>();
}

NSMutableAttributedString& setCentered(NSMutableAttributedString& text, double size, BKUKFontType type,
                                       const Ref<NSColor>& color) {
  return set(text, size, type, color, NSTextAlignment::center);
}

}  // namespace

Ref<NSMutableAttributedString> mutableTypeCopy(const NSAttributedString& text) { return text.mutableCopy(); }

std::optional<NSRange> getRangeForSubstring(const NSAttributedString& text,
                                            std::optional<std::string_view> substring) {
  if (!substring) return whole(text);
  const NSRange found = text.string().range(*substring);
  if (found.location == NSNotFound) return std::nullopt;
  return found;
}

NSMutableAttributedString& setString(NSMutableAttributedString& text, const NSString& string) {
  text.replaceCharacters(whole(text), string);
  return text;
}

NSMutableAttributedString& setUnderline(NSMutableAttributedString& text, NSUnderlineStyle style,
                                        const Ref<NSColor>& color) {
  add(text, NSUnderlineStyleAttributeName, style, whole(text));
  if (color) add(text, NSUnderlineColorAttributeName, color, whole(text));
  return text;
}

NSMutableAttributedString& setColor(NSMutableAttributedString& text, const Ref<NSColor>& color,
                                    std::optional<NSRange> range) {
  return add(text, NSForegroundColorAttributeName, color, range.value_or(whole(text)));
}

NSMutableAttributedString& setColor(NSMutableAttributedString& text, const Ref<NSColor>& color,
                                    std::optional<std::string_view> forSubstring) {
  const auto range = getRangeForSubstring(text, forSubstring);
  return range ? setColor(text, color, range) : text;
}

NSMutableAttributedString& setColor(NSMutableAttributedString& text, const Ref<NSColor>& color,
                                    std::nullopt_t) {
  return setColor(text, color);
}

NSMutableAttributedString& setBackgroundColor(NSMutableAttributedString& text, const Ref<NSColor>& color,
                                              std::optional<NSRange> range) {
  return add(text, NSBackgroundColorAttributeName, color, range.value_or(whole(text)));
}

NSMutableAttributedString& setAttributes(NSMutableAttributedString& text,
                                         const NSAttributeDictionary& attributes,
                                         std::optional<std::string_view> forSubstring) {
  const auto range = getRangeForSubstring(text, forSubstring);
  if (range) text.setAttributes(attributes, *range);
  return text;
}

NSMutableAttributedString& set(NSMutableAttributedString& text, double fontSize, BKUKFontType type,
                               const Ref<NSColor>& color, NSTextAlignment alignment,
                               std::optional<double> letterSpacing,
                               std::optional<std::string_view> forSubstring) {
  return setAttributes(text, BKUKFontManager::FontAttributes(type, fontSize, color, alignment, letterSpacing),
                       forSubstring);
}

NSMutableAttributedString& setParagraph(NSMutableAttributedString& text, NSTextAlignment alignment,
                                        std::optional<double> lineSpacing,
                                        std::optional<NSLineBreakMode> lineBreakMode) {
  const auto style = paragraphStyle(text);
  style->setAlignment(alignment);
  if (lineSpacing) style->setLineSpacing(*lineSpacing);
  if (lineBreakMode) style->setLineBreakMode(*lineBreakMode);
  return add(text, NSParagraphStyleAttributeName, style, whole(text));
}

NSMutableAttributedString& stylePreferencesLoadingTitle(NSMutableAttributedString& text) {
  return setCentered(text, 16, BKUKFontType::bold, NSColor::black());
}

NSMutableAttributedString& stylePreferencesErrorTitle(NSMutableAttributedString& text) {
  return setCentered(text, 16, BKUKFontType::bold, NSColor::red());
}

NSMutableAttributedString& stylePreferencesLoadingText(NSMutableAttributedString& text) {
  return setCentered(text, 14, BKUKFontType::regular, NSColor::black());
}

NSMutableAttributedString& stylePreferencesErrorText(NSMutableAttributedString& text) {
  return setCentered(text, 13, BKUKFontType::regular, NSColor::red());
}

NSMutableAttributedString& stylePreferencesCheckbox(NSMutableAttributedString& text) {
  return setCentered(text, 13, BKUKFontType::regular, NSColor::black());
}

NSMutableAttributedString& stylePreferencesText(NSMutableAttributedString& text, bool bold,
                                                std::optional<std::string_view> forSubstring,
                                                const Ref<NSColor>& color, NSTextAlignment alignment) {
  const auto type = bold ? BKUKFontType::bold : BKUKFontType::regular;
  return set(text, 13, type, color, alignment, {}, forSubstring);
}

}  // namespace bkuk
