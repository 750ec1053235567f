#pragma once

#include "BrenvikUIKit/colour/BKUKThemeColorsProvider.h"

namespace bkuk {

/// Pairs a light and a dark palette into one whose colours follow the application's appearance.
class BKUKThemeColorsFusion : public BKUKThemeColorsProvider {
 public:
  /// The palettes that give the value for the light and for the dark appearance, never absent.
  [[nodiscard]] virtual const BKUKThemeColorsProvider& light() const = 0;
  [[nodiscard]] virtual const BKUKThemeColorsProvider& dark() const = 0;

  /// A themed colour of both palettes' answers, made afresh at each read.
  [[nodiscard]] Ref<NSColor> color(BKUKThemeColorRole role) const override;
};

}  // namespace bkuk
