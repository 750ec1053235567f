#include "BrenvikUIKit/text/BKUKStatefulFonts.h"

#include "BrenvikUIKit/colour/BKUKTheme.h"

namespace bkuk {

namespace {

BKUKStatefulFonts link(const Ref<NSColor>& color, const Ref<NSColor>& hover) {
  const BKUKStatefulColors colors(color, hover, color, BKUKTheme::onBackgroundDisabled());
  return BKUKStatefulFonts(BKUKFontSettings::linkBody1()).with(colors, {});
}

}  // namespace

BKUKStatefulFonts BKUKStatefulPresets<BKUKFontSettings>::hyperlinkPrimary() {
  return link(BKUKTheme::accentHighContrast(), BKUKTheme::onBackground());
}

BKUKStatefulFonts BKUKStatefulPresets<BKUKFontSettings>::hyperlinkSecondary() {
  return link(BKUKTheme::onBackground(), BKUKTheme::accentHighContrast());
}

BKUKStatefulFonts BKUKStatefulPresets<BKUKFontSettings>::make(const BKUKStatefulColors& colors, double size,
                                                              BKUKFontType type, NSTextAlignment alignment,
                                                              std::optional<float> spacing) {
  return colors.map(
      [&](const Ref<NSColor>& color) { return BKUKFontSettings(color, size, type, alignment, {}, spacing); });
}

BKUKStatefulFonts BKUKStatefulPresets<BKUKFontSettings>::make(BKUKBrandFont style,
                                                              const BKUKStatefulColors& colors,
                                                              NSTextAlignment alignment) {
  // The application is asked for the size before the type.
  const double size = style.askSize();
  return make(colors, size, style.askType(), alignment);
}

BKUKStatefulFonts BKUKStatefulPresets<BKUKFontSettings>::with(const BKUKStatefulColors& colors,
                                                              const BKUKFontChanges& changes) const {
  const auto& fonts = static_cast<const BKUKStatefulFonts&>(*this);
  const auto changed = [&](const BKUKFontSettings& font, const Ref<NSColor>& color) {
    return font.with(changes).with({.color = color});
  };
  return {changed(fonts.normal(), colors.normal()), changed(fonts.hover(), colors.hover()),
          changed(fonts.pressed(), colors.pressed()), changed(fonts.disabled(), colors.disabled())};
}

}  // namespace bkuk
