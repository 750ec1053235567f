#pragma once

#include <map>
#include <string>
#include <string_view>

#include "BrenvikUIKit/text/BKUKFontSettings.h"
#include "platform/appkit/NSTextField.h"

namespace bkuk {

/// Reads the plain text of the field as markup and shows it in the styles of its tags, with the paragraph
/// style of the field. Markup that is malformed is shown as it is, brackets included, in the default style.
void apply(NSTextField& field, const std::map<std::string, BKUKFontSettings>& stylesToTags,
           const BKUKFontSettings& withDefaultStyle);

/// Adds the style's attributes to the first place where the expression, in UTF-8, occurs unit by unit. An
/// expression that does not occur changes nothing.
void apply(NSTextField& field, const BKUKFontSettings& style, std::string_view toExpression);

/// Takes over font, colour and alignment.
void apply(NSTextField& field, const BKUKFontSettings& style);

/// Makes the field a static text, which constraints place.
void setupAsLabel(NSTextField& field);

void drawBackground(NSTextField& field, const Ref<NSColor>& color);

}  // namespace bkuk
