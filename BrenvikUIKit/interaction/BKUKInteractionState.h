#pragma once

#include <cstdint>

namespace bkuk {

/// What the user is doing with a control. Settings by state and controls share it; `BKUKStatefulView::States`
/// is its usual name. The values are fixed.
enum class BKUKInteractionState : std::uint8_t {
  normal = 0,   ///< enabled, the pointer elsewhere, not pressed
  hover = 1,    ///< the pointer is inside, or the control has the keyboard
  pressed = 2,  ///< the button went down inside and has not been released
  disabled = 3  ///< answers neither the pointer nor the keyboard
};

}  // namespace bkuk
