#pragma once

#include <compare>
#include <string_view>

#include "platform/foundation/CountedText.h"

namespace bkuk {

/// The name of a text attribute. Names are equal when their texts are; comparing costs a pointer, making one
/// from a string a look-up, so keep those that are asked for often.
class NSAttributedStringKey {
 public:
  NSAttributedStringKey(std::string_view text) : text_(text) {}
  NSAttributedStringKey(const char* text) : NSAttributedStringKey(std::string_view(text)) {}

  [[nodiscard]] std::string_view text() const { return text_.view(); }

  bool operator==(const NSAttributedStringKey&) const = default;
  /// An order that holds for as long as both live, not that of the texts.
  auto operator<=>(const NSAttributedStringKey&) const = default;

 private:
  friend struct std::hash<NSAttributedStringKey>;
  CountedText text_;
};

// What the platform reads, with the type of the values.

inline const NSAttributedStringKey NSFontAttributeName = "NSFont";                        ///< NSFont
inline const NSAttributedStringKey NSForegroundColorAttributeName = "NSColor";            ///< NSColor
inline const NSAttributedStringKey NSBackgroundColorAttributeName = "NSBackgroundColor";  ///< NSColor
inline const NSAttributedStringKey NSParagraphStyleAttributeName = "NSParagraphStyle";  ///< NSParagraphStyle
inline const NSAttributedStringKey NSKernAttributeName = "NSKern";                      ///< a number, points
inline const NSAttributedStringKey NSUnderlineStyleAttributeName = "NSUnderline";       ///< NSUnderlineStyle
inline const NSAttributedStringKey NSUnderlineColorAttributeName = "NSUnderlineColor";  ///< NSColor
inline const NSAttributedStringKey NSAttachmentAttributeName = "NSAttachment";          ///< an object
inline const NSAttributedStringKey NSLinkAttributeName = "NSLink";                      ///< a string
inline const NSAttributedStringKey NSBaselineOffsetAttributeName = "NSBaselineOffset";  ///< a number, points

}  // namespace bkuk

template <>
struct std::hash<bkuk::NSAttributedStringKey> {
  std::size_t operator()(const bkuk::NSAttributedStringKey& key) const noexcept {
    return std::hash<bkuk::CountedText>{}(key.text_);
  }
};
