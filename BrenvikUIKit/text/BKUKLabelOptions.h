#pragma once

#include <cstdint>

namespace bkuk {

/// To what number of points the height of a label's text is rounded up, so that a text in the middle of
/// something lies on whole pixels.
enum class BKUKLayoutRoundingRule : std::uint8_t { none, even, odd };

/// Where in a label that is taller than its text the text lies.
enum class BKUKLabelVerticalAlignment : std::uint8_t { top, center, bottom };

/// How a label's glyphs are drawn.
struct BKUKLabelDrawingOptions {
  bool fontSmoothing = true;
  bool fontAntialiasing = true;

  bool operator==(const BKUKLabelDrawingOptions&) const = default;
};

}  // namespace bkuk
