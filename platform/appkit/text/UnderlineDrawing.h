#pragma once

#include "platform/appkit/text/NSFont.h"
#include "platform/appkit/text/NSUnderlineStyle.h"

namespace bkuk {

class CGColor;
class CGContext;

/// The part of a style that says how many strokes there are and how thick.
[[nodiscard]] constexpr NSUnderlineStyle underlineStroke(NSUnderlineStyle style) {
  return static_cast<NSUnderlineStyle>(static_cast<std::uint32_t>(style) & 0xFF);
}
/// The part that says what the strokes are made of.
[[nodiscard]] constexpr NSUnderlineStyle underlinePattern(NSUnderlineStyle style) {
  return static_cast<NSUnderlineStyle>(static_cast<std::uint32_t>(style) & 0x700);
}
[[nodiscard]] constexpr bool underlineIsByWord(NSUnderlineStyle style) {
  return (static_cast<std::uint32_t>(style) & static_cast<std::uint32_t>(NSUnderlineStyle::byWord)) != 0;
}

/// Draws a line below text between two positions of a context whose y runs down, where the font has it, from
/// the baseline at `baseline`. Edges lie on whole device pixels and no stroke is thinner than one. A style
/// without strokes draws nothing.
void drawUnderlineStrokes(CGContext& context, NSUnderlineStyle style, const NSFont& font, CGFloat left,
                          CGFloat right, CGFloat baseline, const Ref<CGColor>& color);

}  // namespace bkuk
