#pragma once

#include <string_view>

namespace bkuk {

/// Whether the character at the front of `text` makes one with the character before it: a combining mark, a
/// variation selector or a joiner. False for an empty text and a surrogate without its other half.
[[nodiscard]] bool joinsCharacterBefore(std::u16string_view text);

/// Whether no character that starts with `unit` can do so. True for most text, and quickly known.
[[nodiscard]] constexpr bool standsAlone(char16_t unit) { return unit < 0x300; }

}  // namespace bkuk
