#pragma once

#include <string>

#include "BrenvikUIKit/BrenvikUIKit.h"

namespace bkuk::gallery {

/// The role of that number steps after `role`, in declaration order.
[[nodiscard]] BKUKThemeColorRole roleAfter(BKUKThemeColorRole role, int steps);

/// What the colour is in the appearance of now, as people write it: "#1F6FEB", with "· 60 %" behind it when
/// it is not opaque.
[[nodiscard]] std::string hexText(const NSColor& color);

}  // namespace bkuk::gallery
