#pragma once

#include <optional>
#include <string_view>

#include "BrenvikUIKit/text/BKUKFontType.h"
#include "platform/appkit/drawing/NSColor.h"
#include "platform/appkit/text/NSTextAlignment.h"
#include "platform/appkit/text/NSUnderlineStyle.h"
#include "platform/foundation/NSMutableAttributedString.h"

namespace bkuk {

[[nodiscard]] Ref<NSMutableAttributedString> mutableTypeCopy(const NSAttributedString& text);

/// Where the substring, in UTF-8, first occurs unit by unit; without one the whole text. Absent when it does
/// not occur, as an empty one never does.
[[nodiscard]] std::optional<NSRange> getRangeForSubstring(const NSAttributedString& text,
                                                          std::optional<std::string_view> substring = {});

// What follows changes a text and answers it again, so that calls chain. A substring is looked for as above
// and, like a range, stands for the whole text when it is absent. Where it does not occur, and for a range
// that leaves the text, nothing changes.

/// The new characters have the attributes of the first old one.
NSMutableAttributedString& setString(NSMutableAttributedString& text, const NSString& string);

/// Below the whole text. Without a colour the text keeps those of its underlines.
NSMutableAttributedString& setUnderline(NSMutableAttributedString& text,
                                        NSUnderlineStyle style = NSUnderlineStyle::single,
                                        const Ref<NSColor>& color = nullptr);

NSMutableAttributedString& setColor(NSMutableAttributedString& text, const Ref<NSColor>& color,
                                    std::optional<NSRange> range = {});
NSMutableAttributedString& setColor(NSMutableAttributedString& text, const Ref<NSColor>& color,
                                    std::optional<std::string_view> forSubstring);
NSMutableAttributedString& setColor(NSMutableAttributedString& text, const Ref<NSColor>& color,
                                    std::nullopt_t);
NSMutableAttributedString& setBackgroundColor(NSMutableAttributedString& text, const Ref<NSColor>& color,
                                              std::optional<NSRange> range = {});

/// In place of all attributes that are there.
NSMutableAttributedString& setAttributes(NSMutableAttributedString& text,
                                         const NSAttributeDictionary& attributes,
                                         std::optional<std::string_view> forSubstring);

/// `BKUKFontManager::FontAttributes` in place of all attributes that are there. Sizes are in points, `color`
/// may be empty.
NSMutableAttributedString& set(NSMutableAttributedString& text, double fontSize, BKUKFontType type,
                               const Ref<NSColor>& color, NSTextAlignment alignment,
                               std::optional<double> letterSpacing = {},
                               std::optional<std::string_view> forSubstring = {});

/// Sets all paragraphs alike: as the first paragraph style in the text says, but with this alignment and,
/// when given, this space in points between lines and this line break mode.
NSMutableAttributedString& setParagraph(NSMutableAttributedString& text, NSTextAlignment alignment,
                                        std::optional<double> lineSpacing = {},
                                        std::optional<NSLineBreakMode> lineBreakMode = {});

// The styles of preferences, in place of all attributes that are there: the whole text, centred.

NSMutableAttributedString& stylePreferencesLoadingTitle(NSMutableAttributedString& text);
NSMutableAttributedString& stylePreferencesErrorTitle(NSMutableAttributedString& text);
NSMutableAttributedString& stylePreferencesLoadingText(NSMutableAttributedString& text);
NSMutableAttributedString& stylePreferencesErrorText(NSMutableAttributedString& text);
NSMutableAttributedString& stylePreferencesCheckbox(NSMutableAttributedString& text);
/// A substring too, and in any colour and alignment.
NSMutableAttributedString& stylePreferencesText(NSMutableAttributedString& text, bool bold,
                                                std::optional<std::string_view> forSubstring,
                                                const Ref<NSColor>& color, NSTextAlignment alignment);

}  // namespace bkuk
