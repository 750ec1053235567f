#include "BrenvikUIKit/colour/BKUKNSColor+Extensions.h"

#include <string_view>

#include "BrenvikUIKit/colour/BKUKThemedColor.h"
#include "platform/foundation/Fatal.h"

namespace bkuk {

namespace {

constexpr std::string_view noColor =
    "NSColor: a color of nothing cannot be mixed or made transparent; give one";

// The byte that begins at `bit`, as a component.
CGFloat component(std::uint64_t value, unsigned bit) {
  return static_cast<CGFloat>(value >> bit & 0xFF) / 255.0;
}

}  // namespace

bool isThemed(const Ref<NSColor>& color) { return static_cast<bool>(as<BKUKThemedColor>(color)); }

Ref<NSColor> swappedBKUKThemedColor(const Ref<NSColor>& color) {
  if (const auto themed = as<BKUKThemedColor>(color)) return BKUKThemedColor::bySwapping(*themed);
  return color;
}

Ref<NSColor> rgb(std::uint64_t value, CGFloat alpha) {
  return NSColor::srgbRed(component(value, 16), component(value, 8), component(value, 0), alpha);
}

Ref<NSColor> rgba(std::uint64_t value) { return rgb(value >> 8, component(value, 0)); }

Ref<NSColor> alpha(const Ref<NSColor>& color, CGFloat alpha) {
  return required(color, noColor)->withAlphaComponent(alpha);
}

Ref<NSColor> mix(const Ref<NSColor>& color, const Ref<NSColor>& other, CGFloat fraction) {
  auto blend = required(color, noColor)->blended(fraction, required(other, noColor));
  if (!blend) trap("mix: the colors cannot be blended; give two that have RGB components");
  return blend;
}

}  // namespace bkuk
