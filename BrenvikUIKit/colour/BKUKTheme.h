#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "BrenvikUIKit/colour/BKUKThemeColorsNamespace.h"
#include "BrenvikUIKit/colour/BKUKThemeColorsProvider.h"

namespace bkuk {

/// Resolves colour roles for the whole process: the application-wide override is asked first, then the
/// overrides of single roles, then the installed palette.
///
/// The application installs its palette before the first component reads a role and may change any of the
/// three at any time. Nothing is cached: a change takes effect for the reads that come after it, and a
/// colour that was read before stays as it was. Main thread only.
class BKUKTheme {
 public:
  /// Makes the colour of a role, afresh at each read.
  using Producer = std::function<Ref<NSColor>()>;
  /// Gives the producer for the role of that name, or an empty one to leave the role to the overrides and
  /// the palette.
  using GlobalOverride = std::function<Producer(std::string_view role)>;
  /// Producers by role name. Keys that name no role are never consulted, and an empty producer counts as
  /// none.
  using Overrides = std::map<std::string, Producer, std::less<>>;

  BKUKTheme() = delete;

  /// The installed palette, absent at first. A role that no override answers stops the process while it is
  /// absent.
  [[nodiscard]] static const Ref<BKUKThemeColorsProvider>& default_();
  static void setDefault(Ref<BKUKThemeColorsProvider> palette);

  /// Asked exactly once per read, before everything else; empty at first.
  [[nodiscard]] static const GlobalOverride& globalOverride();
  static void setGlobalOverride(GlobalOverride override);

  /// To be read and changed in place; empty at first.
  [[nodiscard]] static Overrides& overrides();

  /// The resolved colour of `role`.
  [[nodiscard]] static Ref<NSColor> color(BKUKThemeColorRole role);

  /// The resolved colour of the surface.
  [[nodiscard]] static Ref<NSColor> base(BKUKThemeColorBase base) { return color(baseRole(base)); }
  /// The resolved colour of content upon the surface.
  [[nodiscard]] static Ref<NSColor> on(BKUKThemeColorBase base,
                                       BKUKThemeColorOpacity opacity = BKUKThemeColorOpacity::primary) {
    return color(onRole(base, opacity));
  }

  /// The theme as a palette: each role is the resolved one.
  [[nodiscard]] static const BKUKThemeColorsProvider& provider();

  // Every role, resolved, by its name.
#define BKUK_ROLE(role) \
  [[nodiscard]] static Ref<NSColor> role() { return color(BKUKThemeColorRole::role); }
  BKUK_THEME_COLOR_ROLES(BKUK_ROLE, BKUK_ROLE)
#undef BKUK_ROLE
};

/// The colour roles as components and applications read them: `NSColor::bkuk::accent()`.
struct NSColor::bkuk : BKUKThemeColorsNamespace {};

}  // namespace bkuk
