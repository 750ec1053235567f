#pragma once

#include <functional>

#include "BrenvikUIKit/BrenvikUIKit.h"

namespace bkuk::gallery {

/// A colour that is asked for anew at each display, so that it follows the theme and the appearance.
using Color = std::function<Ref<NSColor>()>;

/// The resolved colour of a role.
[[nodiscard]] inline Color role(BKUKThemeColorRole which) {
  return [which] { return BKUKTheme::color(which); };
}

}  // namespace bkuk::gallery
