#include "gallery/brand/Brand.h"

#include "BrenvikUIKit/BrenvikUIKit.h"
#include "gallery/brand/BrandPalette.h"

namespace bkuk::gallery {

void installBrand() { BKUKTheme::setDefault(make<BrandPalette>()); }

}  // namespace bkuk::gallery
