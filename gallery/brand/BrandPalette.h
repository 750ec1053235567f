#pragma once

#include "BrenvikUIKit/colour/BKUKThemeColorsFusion.h"
#include "gallery/brand/BrandTones.h"

namespace bkuk::gallery {

/// The example brand's palette, to be installed with `BKUKTheme::setDefault(make<BrandPalette>())`.
class BrandPalette final : public BKUKThemeColorsFusion {
 public:
  [[nodiscard]] const BKUKThemeColorsProvider& light() const override { return *light_; }
  [[nodiscard]] const BKUKThemeColorsProvider& dark() const override { return *dark_; }

 private:
  Ref<BrandTones> light_ = make<BrandTones>(&BrandColor::light);
  Ref<BrandTones> dark_ = make<BrandTones>(&BrandColor::dark);
};

}  // namespace bkuk::gallery
