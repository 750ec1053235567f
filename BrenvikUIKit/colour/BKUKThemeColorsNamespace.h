#pragma once

#include "BrenvikUIKit/colour/BKUKThemeColorRole.h"
#include "platform/appkit/drawing/NSColor.h"

namespace bkuk {

/// Reads colour roles through the theme, overrides included. A type that derives from this gains the
/// members; `NSColor::bkuk` is the one that components and applications use. Content upon a surface is
/// reached through `on`.
struct BKUKThemeColorsNamespace {
  BKUKThemeColorsNamespace() = delete;

  /// The surface's own colour.
  [[nodiscard]] static Ref<NSColor> base(BKUKThemeColorBase base) { return color(baseRole(base)); }
  /// The colour of content upon the surface.
  [[nodiscard]] static Ref<NSColor> on(BKUKThemeColorBase base,
                                       BKUKThemeColorOpacity opacity = BKUKThemeColorOpacity::primary) {
    return color(onRole(base, opacity));
  }

  // Every surface and single extra colour by its name.
#define BKUK_BASE_ROLE(role) \
  [[nodiscard]] static Ref<NSColor> role() { return color(BKUKThemeColorRole::role); }
#define BKUK_ON_ROLE(role)
  BKUK_THEME_COLOR_ROLES(BKUK_BASE_ROLE, BKUK_ON_ROLE)
#undef BKUK_BASE_ROLE
#undef BKUK_ON_ROLE

 private:
  static Ref<NSColor> color(BKUKThemeColorRole role);
};

}  // namespace bkuk
