#pragma once

#include "host/Geometry.h"

namespace bkuk::host {

/// The size nearest to `size` that a window can have: whole points are not asked for, but each side is
/// finite and from 1 to `Window::maxSide`. A side that is no number becomes 1.
[[nodiscard]] Size clampedSize(Size size);

/// The rectangle nearest to `frame` that a window can have; its origin stays within `Window::maxSide` of
/// the desktop's.
[[nodiscard]] Rect clampedFrame(const Rect& frame);

}  // namespace bkuk::host
