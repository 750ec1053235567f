#include "BrenvikUIKit/text/BKUKStatefulFonts.h"

#include "BrenvikUIKit/colour/BKUKTheme.h"

namespace bkuk {

namespace {

BKUKStatefulFonts link(const Ref<NSColor>& color, const Ref<NSColor>& hover) {
  const BKUKStatefulColors colors(color, hover, color, BKUKTheme::onBackgroundDisabled());
  return BKUKStatefulFonts(BKUKFontSettings::linkBody1()).with(colors, {});
}

}  // namespace

template <>
BKUKStatefulFonts BKUKStatefulFonts::hyperlinkPrimary() {
  return link(BKUKTheme::accentHighContrast(), BKUKTheme::onBackground());
}

template <>
BKUKStatefulFonts BKUKStatefulFonts::hyperlinkSecondary() {
  return link(BKUKTheme::onBackground(), BKUKTheme::accentHighContrast());
}

}  // namespace bkuk
