#pragma once

#include <QtGui/QKeyEvent>
#include <QtGui/QWheelEvent>
#include <optional>

#include "host/Events.h"

namespace bkuk::host {

[[nodiscard]] Modifiers modifiersFrom(Qt::KeyboardModifiers modifiers);
/// `none` for the buttons beyond the third.
[[nodiscard]] PointerButton buttonFrom(Qt::MouseButton button);
[[nodiscard]] WheelEvent wheelEventFrom(const QWheelEvent& event, double timestamp);
/// Absent for the releases that come between the presses of a held key.
[[nodiscard]] std::optional<KeyEvent> keyEventFrom(const QKeyEvent& event, double timestamp);

}  // namespace bkuk::host
