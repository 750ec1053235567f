#include "BrenvikUIKit/colour/BKUKThemeColorRole.h"

#include "platform/foundation/Fatal.h"

namespace bkuk {

namespace {

using Role = BKUKThemeColorRole;

constexpr std::string_view unit = "BrenvikUIKit/BKUKThemeColorRole";

// By the numbers of BKUKThemeColorBase.
constexpr std::array baseRoles = {Role::background,  Role::main,      Role::accent,  Role::surface,
                                  Role::critical,    Role::attention, Role::success, Role::premium,
                                  Role::desktopMenu, Role::brand};

// By the numbers of BKUKThemeColorOpacity.
constexpr std::array<std::string_view, 5> suffixes = {"", "Secondary", "Disabled", "Light", "ExtraLight"};

constexpr char capital(char letter) { return static_cast<char>(letter - 'a' + 'A'); }

constexpr bool isOnName(std::string_view name, std::string_view surface, std::string_view suffix) {
  return name.size() == 2 + surface.size() + suffix.size() && name.starts_with("on") &&
         name[2] == capital(surface[0]) && name.substr(3, surface.size() - 1) == surface.substr(1) &&
         name.ends_with(suffix);
}

consteval Role findOnRole(std::string_view surface, std::string_view suffix) {
  std::size_t number = 0;
  while (!isOnName(bkukThemeColorRoleNames.at(number), surface, suffix)) ++number;
  return static_cast<Role>(number);
}

consteval auto makeOnRoles() {
  std::array<std::array<Role, suffixes.size()>, baseRoles.size()> roles{};
  for (std::size_t base = 0; base < baseRoles.size(); ++base)
    for (std::size_t opacity = 0; opacity < suffixes.size(); ++opacity)
      roles[base][opacity] = findOnRole(roleName(baseRoles[base]), suffixes[opacity]);
  return roles;
}

constexpr auto onRoles = makeOnRoles();

template <typename Case>
std::size_t numberOf(Case choice, std::size_t count) {
  const auto number = static_cast<std::size_t>(choice);
  if (number >= count) {
    reportMistake("BKUKThemeColorRole: a number beyond the roles there are; take one of the enumeration");
    fatal("Fatal error", unit);
  }
  return number;
}

}  // namespace

BKUKThemeColorRole baseRole(BKUKThemeColorBase base) { return baseRoles[numberOf(base, baseRoles.size())]; }

BKUKThemeColorRole onRole(BKUKThemeColorBase base, BKUKThemeColorOpacity opacity) {
  return onRoles[numberOf(base, baseRoles.size())][numberOf(opacity, suffixes.size())];
}

}  // namespace bkuk
