#pragma once

#include <cstdint>
#include <vector>

#include "BrenvikUIKit/colour/BKUKThemeColorsProvider.h"
#include "gallery/brand/BrandColors.h"

namespace bkuk::gallery {

/// The example brand in one appearance: a plain colour for every role, one object each.
class BrandTones final : public BKUKThemeColorsProvider {
 public:
  /// `tone` picks the appearance: `&BrandColor::light` or `&BrandColor::dark`.
  explicit BrandTones(std::uint32_t BrandColor::*tone);

  [[nodiscard]] Ref<NSColor> color(BKUKThemeColorRole role) const override;

 private:
  std::vector<Ref<NSColor>> colors_;  // by role number
};

}  // namespace bkuk::gallery
