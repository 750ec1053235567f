#include "gallery/pages/color-roles/RoleName.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace bkuk::gallery {

BKUKThemeColorRole roleAfter(BKUKThemeColorRole role, int steps) {
  return static_cast<BKUKThemeColorRole>(static_cast<int>(role) + steps);
}

std::string hexText(const NSColor& color) {
  const auto byte = [](CGFloat component) {
    return static_cast<int>(std::lround(std::clamp(component, 0.0, 1.0) * 255));
  };
  std::array<char, 40> text{};
  const CGFloat alpha = color.alphaComponent();
  const int length = std::snprintf(text.data(), text.size(), "#%02X%02X%02X", byte(color.redComponent()),
                                   byte(color.greenComponent()), byte(color.blueComponent()));
  if (alpha < 1) {
    std::snprintf(text.data() + length, text.size() - static_cast<std::size_t>(length), " · %ld %%",
                  std::lround(alpha * 100));
  }
  return text.data();
}

}  // namespace bkuk::gallery
