#pragma once

#include "BrenvikUIKit/colour/BKUKThemeColorRole.h"
#include "platform/appkit/drawing/NSColor.h"

namespace bkuk {

/// Answers every colour role: a palette. An application implements `color` and installs the palette with
/// `BKUKTheme::setDefault`; one that has a light and a dark form derives from `BKUKThemeColorsFusion`.
///
///     palette.accent();
///     palette.on(BKUKThemeColorBase::surface, BKUKThemeColorOpacity::secondary);
class BKUKThemeColorsProvider : public NSObject {
 public:
  /// The colour of `role`, never absent. Called at each read of the role: nothing is kept, so an
  /// implementation may answer differently later.
  [[nodiscard]] virtual Ref<NSColor> color(BKUKThemeColorRole role) const = 0;

  /// The surface's own colour.
  [[nodiscard]] Ref<NSColor> base(BKUKThemeColorBase base) const { return color(baseRole(base)); }
  /// The colour of content upon the surface.
  [[nodiscard]] Ref<NSColor> on(BKUKThemeColorBase base,
                                BKUKThemeColorOpacity opacity = BKUKThemeColorOpacity::primary) const {
    return color(onRole(base, opacity));
  }

  // Every role by its name.
#define BKUK_ROLE(role) \
  [[nodiscard]] Ref<NSColor> role() const { return color(BKUKThemeColorRole::role); }
  BKUK_THEME_COLOR_ROLES(BKUK_ROLE, BKUK_ROLE)
#undef BKUK_ROLE
};

}  // namespace bkuk
