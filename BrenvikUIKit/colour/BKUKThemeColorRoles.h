#pragma once

// The one list of the colour roles, in declaration order: the numbers, the names and the accessors of every
// type that answers roles come from it. BASE is applied to the roles of surfaces and single extra colours, ON
// to those of content upon a surface.
//
// clang-format off
#define BKUK_THEME_COLOR_ROLES(BASE, ON)                                                                 \
  BASE(accent) BASE(accentHighContrast) BASE(accentStateA) BASE(accentStateB)                            \
  BASE(attention) BASE(attentionStateA) BASE(attentionStateB)                                            \
  BASE(background) BASE(backgroundStateA) BASE(backgroundStateB)                                         \
  BASE(brand) BASE(brandStateA) BASE(brandStateB)                                                        \
  BASE(critical) BASE(criticalStateA) BASE(criticalStateB)                                               \
  BASE(desktopIpmBanner)                                                                                 \
  BASE(desktopMenu) BASE(desktopMenuStateA) BASE(desktopMenuStateB)                                      \
  BASE(highlightAccent) BASE(highlightNegative) BASE(highlightNeutral) BASE(highlightPositive)           \
  BASE(main) BASE(mainStateA) BASE(mainStateB)                                                           \
  ON(onAccent) ON(onAccentDisabled) ON(onAccentExtraLight) ON(onAccentLight) ON(onAccentSecondary)       \
  ON(onAttention) ON(onAttentionDisabled) ON(onAttentionExtraLight)                                      \
  ON(onAttentionLight) ON(onAttentionSecondary)                                                          \
  ON(onBackground) ON(onBackgroundDisabled) ON(onBackgroundExtraLight)                                   \
  ON(onBackgroundLight) ON(onBackgroundSecondary)                                                        \
  ON(onBrand) ON(onBrandDisabled) ON(onBrandExtraLight) ON(onBrandLight) ON(onBrandSecondary)            \
  ON(onCritical) ON(onCriticalDisabled) ON(onCriticalExtraLight)                                         \
  ON(onCriticalLight) ON(onCriticalSecondary)                                                            \
  ON(onDesktopMenu) ON(onDesktopMenuDisabled) ON(onDesktopMenuExtraLight)                                \
  ON(onDesktopMenuLight) ON(onDesktopMenuSecondary)                                                      \
  ON(onMain) ON(onMainDisabled) ON(onMainExtraLight) ON(onMainLight) ON(onMainSecondary)                 \
  ON(onPremium) ON(onPremiumDisabled) ON(onPremiumExtraLight) ON(onPremiumLight) ON(onPremiumSecondary)  \
  ON(onSuccess) ON(onSuccessDisabled) ON(onSuccessExtraLight) ON(onSuccessLight) ON(onSuccessSecondary)  \
  ON(onSurface) ON(onSurfaceDisabled) ON(onSurfaceExtraLight) ON(onSurfaceLight) ON(onSurfaceSecondary)  \
  BASE(premium) BASE(premiumStateA) BASE(premiumStateB)                                                  \
  BASE(success) BASE(successStateA) BASE(successStateB)                                                  \
  BASE(surface) BASE(surfaceStateA) BASE(surfaceStateB)
// clang-format on
