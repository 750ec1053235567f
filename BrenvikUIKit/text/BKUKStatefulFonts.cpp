#include "BrenvikUIKit/text/BKUKStatefulFonts.h"

#include "BrenvikUIKit/colour/BKUKTheme.h"

namespace bkuk {

namespace {

BKUKStatefulFonts link(const Ref<NSColor>& color, const Ref<NSColor>& hover) {
  const BKUKStatefulColors colors(color, hover, color, BKUKTheme::onBackgroundDisabled());
  return BKUKStatefulFonts(BKUKFontSettings::linkBody1()).with(colors, {});
}

}  // namespace

template <typename T>
BKUKStatefulSettings<T> BKUKStatefulSettings<T>::hyperlinkPrimary() requires
    std::same_as<T, BKUKFontSettings> {
  return link(BKUKTheme::accentHighContrast(), BKUKTheme::onBackground());
}

template <typename T>
BKUKStatefulSettings<T> BKUKStatefulSettings<T>::hyperlinkSecondary() requires
    std::same_as<T, BKUKFontSettings> {
  return link(BKUKTheme::onBackground(), BKUKTheme::accentHighContrast());
}

template BKUKStatefulFonts BKUKStatefulSettings<BKUKFontSettings>::hyperlinkPrimary();
template BKUKStatefulFonts BKUKStatefulSettings<BKUKFontSettings>::hyperlinkSecondary();

}  // namespace bkuk
