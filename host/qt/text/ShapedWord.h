#pragma once

#include <cstdint>
#include <vector>

namespace bkuk::host {

/// A glyph of a shaped word. Lengths are ems, y runs down from the baseline.
struct ShapedGlyph {
  std::uint32_t index = 0;
  std::uint32_t face = 0;  ///< as `QtRawFonts` counts
  std::uint32_t unit = 0;  ///< the first of the character that it stands for
  double dx = 0;           ///< from that character's left edge
  double y = 0;
};

/// A word that runs in one direction, at all sizes. Lengths are ems.
struct ShapedWord {
  struct Unit {
    double advance = 0;
    bool startsCharacter = true;
  };

  std::vector<Unit> units;
  std::vector<ShapedGlyph> glyphs;
  double width = 0;
  int characterCount = 0;
};

}  // namespace bkuk::host
