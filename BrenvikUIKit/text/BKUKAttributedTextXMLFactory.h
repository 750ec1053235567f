#pragma once

#include <map>
#include <string>

#include "BrenvikUIKit/text/BKUKAttributedTextXMLConstructor.h"
#include "BrenvikUIKit/text/BKUKFontSettings.h"

namespace bkuk {

/// Makes attributed text of markup.
struct BKUKAttributedTextXMLFactory {
  /// Tags are the names of `styles`; what lies outside of all tags has the default style. A paragraph style,
  /// unless absent, is that of the whole text. Empty when the markup is malformed.
  [[nodiscard]] static Ref<NSMutableAttributedString> createAttributedText(
      NSString text, const BKUKAttributedTextXMLConstructor::Styles& applyingStylesToTags,
      const NSAttributeDictionary& withDefaultStyle, const Ref<NSParagraphStyle>& paragraph = nullptr);
  /// The same with the attributes of font settings.
  [[nodiscard]] static Ref<NSMutableAttributedString> createAttributedText(
      NSString text, const std::map<std::string, BKUKFontSettings>& applyingStylesToTags,
      const BKUKFontSettings& withDefaultStyle, const Ref<NSParagraphStyle>& paragraph = nullptr);
};

}  // namespace bkuk
