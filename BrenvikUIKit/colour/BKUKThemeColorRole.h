#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "BrenvikUIKit/colour/BKUKThemeColorBase.h"
#include "BrenvikUIKit/colour/BKUKThemeColorOpacity.h"
#include "BrenvikUIKit/colour/BKUKThemeColorRoles.h"

namespace bkuk {

#define BKUK_ROLE(role) role,
#define BKUK_ROLE_NAME(role) std::string_view(#role),

/// What a colour is for, in declaration order. Components ask the theme for a role, never for a colour.
///
/// A role named after a surface is that surface's colour, its `StateA` and `StateB` are two further variants
/// of it. `on<Surface>` is the colour of content drawn upon that surface, the suffix tells its emphasis.
enum class BKUKThemeColorRole : std::uint8_t { BKUK_THEME_COLOR_ROLES(BKUK_ROLE, BKUK_ROLE) };

/// The roles' names by number, which are also the keys of their overrides.
inline constexpr std::array bkukThemeColorRoleNames = {
    BKUK_THEME_COLOR_ROLES(BKUK_ROLE_NAME, BKUK_ROLE_NAME)};

#undef BKUK_ROLE
#undef BKUK_ROLE_NAME

inline constexpr std::size_t bkukThemeColorRoleCount = bkukThemeColorRoleNames.size();

[[nodiscard]] constexpr std::string_view roleName(BKUKThemeColorRole role) {
  return bkukThemeColorRoleNames[static_cast<std::size_t>(role)];
}

/// The role of the surface itself.
[[nodiscard]] BKUKThemeColorRole baseRole(BKUKThemeColorBase base);

/// The role of content upon the surface: "on", the surface's name with a capital, the emphasis's suffix.
[[nodiscard]] BKUKThemeColorRole onRole(BKUKThemeColorBase base, BKUKThemeColorOpacity opacity);

}  // namespace bkuk
