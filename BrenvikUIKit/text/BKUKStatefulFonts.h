#pragma once

#include "BrenvikUIKit/style/BKUKStatefulColors.h"
#include "BrenvikUIKit/text/BKUKFontSettings.h"

namespace bkuk {

/// What text looks like by interaction state.
using BKUKStatefulFonts = BKUKStatefulSettings<BKUKFontSettings>;

template <typename T>
BKUKStatefulSettings<T>::BKUKStatefulSettings(
    const BKUKStatefulColors& colors, double size, BKUKFontType type, NSTextAlignment alignment,
    std::optional<float> spacing) requires std::same_as<T, BKUKFontSettings>
    : BKUKStatefulSettings(colors.map([&](const Ref<NSColor>& color) {
      return T(color, size, type, alignment, {}, spacing);
    })) {}

template <typename T>
BKUKStatefulSettings<T>::BKUKStatefulSettings(
    BKUKBrandFont style, const BKUKStatefulColors& colors,
    NSTextAlignment alignment) requires std::same_as<T, BKUKFontSettings>
    // Braces ask the application for the size before the type.
    : BKUKStatefulSettings{colors, BKUKBrandFont::size(style), BKUKBrandFont::type(style), alignment} {}

template <typename T>
BKUKStatefulSettings<T> BKUKStatefulSettings<T>::with(
    const BKUKStatefulColors& colors,
    const BKUKFontChanges& changes) const requires std::same_as<T, BKUKFontSettings> {
  const auto changed = [&](const T& font, const Ref<NSColor>& color) {
    return font.with(changes).with({.color = color});
  };
  return {changed(normal(), colors.normal()), changed(hover(), colors.hover()),
          changed(pressed(), colors.pressed()), changed(disabled(), colors.disabled())};
}

/// A link in the accent colour, which loses it under the pointer. In the theme's colours of the moment.
extern template BKUKStatefulFonts BKUKStatefulSettings<BKUKFontSettings>::hyperlinkPrimary();

/// A link in the colour of text, which takes the accent colour under the pointer. In the theme's colours of
/// the moment.
extern template BKUKStatefulFonts BKUKStatefulSettings<BKUKFontSettings>::hyperlinkSecondary();

}  // namespace bkuk
