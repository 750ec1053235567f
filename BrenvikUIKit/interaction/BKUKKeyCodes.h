#pragma once

#include <cstdint>
#include <optional>

#include "platform/appkit/NSKeyCode.h"

namespace bkuk {

/// The keys that controls and dialogs bind, on every desktop by the same codes.
enum class BKUKKeyCodes : std::uint8_t {
  enter_main,
  space,
  escape,
  enter_num,
  arrow_up,
  arrow_down,
  arrow_left,
  arrow_rigt,
};

/// The code of the key in an event.
[[nodiscard]] constexpr std::uint16_t rawValue(BKUKKeyCodes key) {
  constexpr std::uint16_t codes[] = {NSKeyCode::enter,       NSKeyCode::space, NSKeyCode::escape,
                                     NSKeyCode::keypadEnter, NSKeyCode::up,    NSKeyCode::down,
                                     NSKeyCode::left,        NSKeyCode::right};
  return codes[static_cast<std::size_t>(key)];
}

/// The key of a code; none for any other key.
[[nodiscard]] constexpr std::optional<BKUKKeyCodes> BKUKKeyCodesFromRawValue(std::uint16_t keyCode) {
  for (std::uint8_t each = 0; each <= static_cast<std::uint8_t>(BKUKKeyCodes::arrow_rigt); ++each) {
    if (rawValue(static_cast<BKUKKeyCodes>(each)) == keyCode) return static_cast<BKUKKeyCodes>(each);
  }
  return std::nullopt;
}

}  // namespace bkuk
