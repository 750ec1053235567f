#pragma once

#include <cstdint>

namespace bkuk {

/// How a text is measured and drawn; options are added up with `|`.
enum class NSStringDrawingOptions : std::uint32_t {
  none = 0,
  /// Lines are wrapped, and rectangles start at the upper left corner of the first. Without it there is one
  /// line, and rectangles start at its baseline.
  usesLineFragmentOrigin = 1,
  usesFontLeading = 2,    ///< lines are as far apart as their fonts ask
  usesDeviceMetrics = 8,  ///< what the outlines of the glyphs cover counts, not how far the pen travels
};

[[nodiscard]] constexpr NSStringDrawingOptions operator|(NSStringDrawingOptions a, NSStringDrawingOptions b) {
  return static_cast<NSStringDrawingOptions>(static_cast<std::uint32_t>(a) | static_cast<std::uint32_t>(b));
}

[[nodiscard]] constexpr bool contains(NSStringDrawingOptions options, NSStringDrawingOptions one) {
  return (static_cast<std::uint32_t>(options) & static_cast<std::uint32_t>(one)) != 0;
}

}  // namespace bkuk
