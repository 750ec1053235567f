#pragma once

#include <cstdint>

namespace bkuk {

/// A line below text: one of the strokes, one of the patterns and, with `byWord`, nothing below spaces. Added
/// up with `|`.
enum class NSUnderlineStyle : std::uint32_t {
  none = 0,
  single = 1,
  thick = 2,
  double_ = 9,
  patternDot = 0x100,
  patternDash = 0x200,
  patternDashDot = 0x300,
  patternDashDotDot = 0x400,
  byWord = 0x8000,
};

[[nodiscard]] constexpr NSUnderlineStyle operator|(NSUnderlineStyle a, NSUnderlineStyle b) {
  return static_cast<NSUnderlineStyle>(static_cast<std::uint32_t>(a) | static_cast<std::uint32_t>(b));
}

}  // namespace bkuk
