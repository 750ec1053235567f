#include "gallery/brand/BrandTones.h"

#include "BrenvikUIKit/colour/BKUKNSColor+Extensions.h"

namespace bkuk::gallery {

namespace {

consteval bool areInOrderOfRoles() {
  for (std::size_t number = 0; number < brandColors.size(); ++number)
    if (static_cast<std::size_t>(brandColors[number].role) != number) return false;
  return brandColors.size() == bkukThemeColorRoleCount;
}

static_assert(areInOrderOfRoles(), "a role is missing or in the wrong place");

}  // namespace

BrandTones::BrandTones(std::uint32_t BrandColor::*tone) {
  colors_.reserve(brandColors.size());
  for (const BrandColor& color : brandColors) colors_.push_back(rgba(color.*tone));
}

Ref<NSColor> BrandTones::color(BKUKThemeColorRole role) const {
  return colors_[static_cast<std::size_t>(role)];
}

}  // namespace bkuk::gallery
