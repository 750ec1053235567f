#pragma once

#include <cstdint>

namespace bkuk {

/// Names a surface. The order differs from that of the colour roles: see `baseRole`.
enum class BKUKThemeColorBase : std::uint8_t {
  background,
  main,
  accent,
  surface,
  critical,
  attention,
  success,
  premium,
  desktopMenu,
  brand,
};

}  // namespace bkuk
