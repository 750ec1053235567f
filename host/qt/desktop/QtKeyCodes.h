#pragma once

#include <cstdint>

namespace bkuk::host {

/// The Apple virtual key code of the key at the same place on a PC keyboard, from the code that the
/// kernel gives it; `unknownKeyCode` for keys that have none.
[[nodiscard]] std::uint16_t appleKeyCode(std::uint32_t evdevCode);

}  // namespace bkuk::host
