#pragma once

#include <cstdint>

#include "platform/appkit/drawing/NSColor.h"

namespace bkuk {

/// Whether the colour is a `BKUKThemedColor`.
[[nodiscard]] bool isThemed(const Ref<NSColor>& color);

/// For a themed colour a new one, of class `BKUKThemedColor`, with its two values exchanged; any other colour
/// is answered itself.
[[nodiscard]] Ref<NSColor> swappedBKUKThemedColor(const Ref<NSColor>& color);

/// The sRGB colour of 0xRRGGBB; higher bits are ignored and `alpha` is taken as given.
[[nodiscard]] Ref<NSColor> rgb(std::uint64_t value, CGFloat alpha);
/// The sRGB colour of 0xRRGGBBAA; higher bits are ignored.
[[nodiscard]] Ref<NSColor> rgba(std::uint64_t value);

/// The colour with its alpha replaced. A themed colour stays themed.
[[nodiscard]] Ref<NSColor> alpha(const Ref<NSColor>& color, CGFloat alpha);

/// `color` moved by `fraction` towards `other`, as `NSColor::blended` does it. Two colours that cannot be
/// blended stop the process.
[[nodiscard]] Ref<NSColor> mix(const Ref<NSColor>& color, const Ref<NSColor>& other, CGFloat fraction);

}  // namespace bkuk
