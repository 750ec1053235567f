#include "gallery/brand/Brand.h"

#include "BrenvikUIKit/BrenvikUIKit.h"
#include "BrenvikUIKit/interaction/BKUKKeyFocusController.h"
#include "gallery/brand/BrandPalette.h"
#include "gallery/brand/BrandTypography.h"

namespace bkuk::gallery {

void installBrand() {
  BKUKTheme::setDefault(make<BrandPalette>());
  registerBrandFonts();
  // The brand leaves the keyboard's place to the platform's ring, in its own colour.
  BKUKKeyFocusController::defaultDrawFocusRing = [] { return false; };
  NSColor::keyboardFocusIndicatorColor = [] {
    return BKUKTheme::color(BKUKThemeColorRole::accentHighContrast);
  };
}

}  // namespace bkuk::gallery
