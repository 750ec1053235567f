#pragma once

#include <array>
#include <cstdint>

#include "BrenvikUIKit/colour/BKUKThemeColorRole.h"

namespace bkuk::gallery {

/// One role's colours in the example brand, as 0xRRGGBBAA in sRGB.
struct BrandColor {
  BKUKThemeColorRole role;
  std::uint32_t light;
  std::uint32_t dark;
};

/// The brand's colours by role number.
///
/// Neutral surfaces are slate with a breath of blue, rising from the background over the surface to the menu.
/// The coloured surfaces share one lightness for each appearance: deep with white content in light, pale with
/// dark content in dark, so that their content keeps its contrast; only attention stays amber with dark
/// content. `StateA` is the surface under the pointer, `StateB` the pressed one.
///
/// Content upon a surface is one ink whose alpha is its emphasis, so that it takes on the tint of what it
/// lies upon. The plain role and `Secondary` are for text: composed upon the surface and its two variants
/// they reach a contrast of 4.5 to 1. `Disabled` is for what cannot be used, `Light` for outlines and pressed
/// looks, `ExtraLight` for separators and hover looks; none of these three is for text that has to be read.
inline constexpr auto brandColors = [] {
  using Role = BKUKThemeColorRole;
  return std::to_array<BrandColor>({
      {Role::accent, 0x3E4CCFFF, 0x96A4F6FF},
      {Role::accentHighContrast, 0x272AA5FF, 0xC4CEFEFF},
      {Role::accentStateA, 0x343EBDFF, 0xA9B5FBFF},
      {Role::accentStateB, 0x2C34A6FF, 0x8592EEFF},
      {Role::attention, 0xD3741AFF, 0xF5AE4BFF},
      {Role::attentionStateA, 0xE1881FFF, 0xF7C26DFF},
      {Role::attentionStateB, 0xEA9A2CFF, 0xE99D3FFF},
      {Role::background, 0xF5F7FBFF, 0x11151DFF},
      {Role::backgroundStateA, 0xEDF0F6FF, 0x191E28FF},
      {Role::backgroundStateB, 0xE4E8F0FF, 0x212632FF},
      {Role::brand, 0x067272FF, 0x69CECAFF},
      {Role::brandStateA, 0x026464FF, 0x89DAD6FF},
      {Role::brandStateB, 0x035656FF, 0x58BEBAFF},
      {Role::critical, 0xBE2132FF, 0xF18381FF},
      {Role::criticalStateA, 0xAA172AFF, 0xF69B98FF},
      {Role::criticalStateB, 0x941424FF, 0xE97170FF},
      {Role::desktopIpmBanner, 0xE4E8FEFF, 0x282F50FF},
      {Role::desktopMenu, 0xFBFCFEFF, 0x222833FF},
      {Role::desktopMenuStateA, 0xEAEEFBFF, 0x2E344AFF},
      {Role::desktopMenuStateB, 0xDDE4F9FF, 0x353E5DFF},
      {Role::highlightAccent, 0xD7DEFFFF, 0x323A6FFF},
      {Role::highlightNegative, 0xFCD4D4FF, 0x652A2DFF},
      {Role::highlightNeutral, 0xE3E6EDFF, 0x343945FF},
      {Role::highlightPositive, 0xC8F3D5FF, 0x1D4A32FF},
      {Role::main, 0x273552FF, 0x313E59FF},
      {Role::mainStateA, 0x334261FF, 0x3C4A67FF},
      {Role::mainStateB, 0x1F2B44FF, 0x28344CFF},
      {Role::onAccent, 0xFDFDFFFF, 0x0C1126FF},
      {Role::onAccentDisabled, 0xFDFDFF85, 0x0C112680},
      {Role::onAccentExtraLight, 0xFDFDFF1F, 0x0C112621},
      {Role::onAccentLight, 0xFDFDFF3D, 0x0C112642},
      {Role::onAccentSecondary, 0xFDFDFFE0, 0x0C1126D6},
      {Role::onAttention, 0x221205FF, 0x241407FF},
      {Role::onAttentionDisabled, 0x22120585, 0x24140780},
      {Role::onAttentionExtraLight, 0x2212051F, 0x24140721},
      {Role::onAttentionLight, 0x2212053D, 0x24140742},
      {Role::onAttentionSecondary, 0x221205E0, 0x241407D6},
      {Role::onBackground, 0x171E2CFF, 0xEDF0F6FF},
      {Role::onBackgroundDisabled, 0x171E2C66, 0xEDF0F66B},
      {Role::onBackgroundExtraLight, 0x171E2C14, 0xEDF0F617},
      {Role::onBackgroundLight, 0x171E2C29, 0xEDF0F62E},
      {Role::onBackgroundSecondary, 0x171E2CB2, 0xEDF0F6B8},
      {Role::onBrand, 0xF9FEFDFF, 0x031A1AFF},
      {Role::onBrandDisabled, 0xF9FEFD85, 0x031A1A80},
      {Role::onBrandExtraLight, 0xF9FEFD1F, 0x031A1A21},
      {Role::onBrandLight, 0xF9FEFD3D, 0x031A1A42},
      {Role::onBrandSecondary, 0xF9FEFDE0, 0x031A1AD6},
      {Role::onCritical, 0xFFFDFDFF, 0x250A0AFF},
      {Role::onCriticalDisabled, 0xFFFDFD85, 0x250A0A80},
      {Role::onCriticalExtraLight, 0xFFFDFD1F, 0x250A0A21},
      {Role::onCriticalLight, 0xFFFDFD3D, 0x250A0A42},
      {Role::onCriticalSecondary, 0xFFFDFDE0, 0x250A0AD6},
      {Role::onDesktopMenu, 0x171E2CFF, 0xEFF2F7FF},
      {Role::onDesktopMenuDisabled, 0x171E2C66, 0xEFF2F76B},
      {Role::onDesktopMenuExtraLight, 0x171E2C14, 0xEFF2F717},
      {Role::onDesktopMenuLight, 0x171E2C29, 0xEFF2F72E},
      {Role::onDesktopMenuSecondary, 0x171E2CB2, 0xEFF2F7B8},
      {Role::onMain, 0xF8FAFEFF, 0xF2F5FBFF},
      {Role::onMainDisabled, 0xF8FAFE73, 0xF2F5FB73},
      {Role::onMainExtraLight, 0xF8FAFE1A, 0xF2F5FB1A},
      {Role::onMainLight, 0xF8FAFE33, 0xF2F5FB33},
      {Role::onMainSecondary, 0xF8FAFEC7, 0xF2F5FBC7},
      {Role::onPremium, 0xFEFBFFFF, 0x1E0D21FF},
      {Role::onPremiumDisabled, 0xFEFBFF85, 0x1E0D2180},
      {Role::onPremiumExtraLight, 0xFEFBFF1F, 0x1E0D2121},
      {Role::onPremiumLight, 0xFEFBFF3D, 0x1E0D2142},
      {Role::onPremiumSecondary, 0xFEFBFFE0, 0x1E0D21D6},
      {Role::onSuccess, 0xF9FEFBFF, 0x071B0FFF},
      {Role::onSuccessDisabled, 0xF9FEFB85, 0x071B0F80},
      {Role::onSuccessExtraLight, 0xF9FEFB1F, 0x071B0F21},
      {Role::onSuccessLight, 0xF9FEFB3D, 0x071B0F42},
      {Role::onSuccessSecondary, 0xF9FEFBE0, 0x071B0FD6},
      {Role::onSurface, 0x171E2CFF, 0xEDF0F6FF},
      {Role::onSurfaceDisabled, 0x171E2C66, 0xEDF0F66B},
      {Role::onSurfaceExtraLight, 0x171E2C14, 0xEDF0F617},
      {Role::onSurfaceLight, 0x171E2C29, 0xEDF0F62E},
      {Role::onSurfaceSecondary, 0x171E2CB2, 0xEDF0F6B8},
      {Role::premium, 0x853397FF, 0xD496E2FF},
      {Role::premiumStateA, 0x762986FF, 0xDEA9EAFF},
      {Role::premiumStateB, 0x652174FF, 0xC886D7FF},
      {Role::success, 0x0F7845FF, 0x6FD395FF},
      {Role::successStateA, 0x056A3BFF, 0x8CDEAAFF},
      {Role::successStateB, 0x065B32FF, 0x5EC386FF},
      {Role::surface, 0xFFFFFFFF, 0x1B1F29FF},
      {Role::surfaceStateA, 0xF2F4FAFF, 0x232934FF},
      {Role::surfaceStateB, 0xE8ECF5FF, 0x2B323FFF},
  });
}();

}  // namespace bkuk::gallery
