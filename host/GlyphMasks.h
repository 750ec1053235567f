#pragma once

#include <cstdint>
#include <memory>
#include <vector>

namespace bkuk::host {

/// How much of each pixel a glyph covers, 0 to 255. Immutable; shared by all who show the glyph.
struct GlyphMask {
  /// Rows are filled up to a multiple of this with pixels that the glyph does not cover.
  static constexpr int rowAlignment = 4;

  int left = 0;  ///< of its first pixel, from that of the pen, y down
  int top = 0;
  int width = 0;  ///< 0 for a glyph that covers nothing
  int height = 0;
  int rowLength = 0;                   ///< bytes from one row to the next
  std::vector<std::uint8_t> coverage;  ///< rows from the top
};

/// A glyph of a line, its pen at a pixel.
struct PlacedMask {
  std::shared_ptr<const GlyphMask> mask;
  int x = 0;
  int y = 0;  ///< from the baseline, y down
};

/// The glyphs of a line in the order in which they are painted, without those that cover nothing.
using GlyphMasks = std::vector<PlacedMask>;

}  // namespace bkuk::host
