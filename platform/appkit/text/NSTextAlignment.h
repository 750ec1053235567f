#pragma once

#include <cstdint>

namespace bkuk {

/// How lines lie between the edges of their container. `natural` goes with the direction of the text's own
/// interface: left, or right where that runs from right to left.
enum class NSTextAlignment : std::uint8_t { left = 0, center = 1, right = 2, justified = 3, natural = 4 };

/// What becomes of a line that is too long.
enum class NSLineBreakMode : std::uint8_t {
  wordWrapping = 0,
  charWrapping = 1,
  clipping = 2,
  truncatingHead = 3,
  truncatingTail = 4,
  truncatingMiddle = 5,
};

}  // namespace bkuk
