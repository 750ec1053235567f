#pragma once

#include <cmath>

#include "platform/foundation/CGGeometry.h"

namespace bkuk {

/// The whole device pixel that a baseline at `y`, y down, snaps to. Halves go up: layers snap theirs down, so
/// that a text and the layer that it is drawn in together end where the text was meant to be.
[[nodiscard]] inline CGFloat CGSnappedBaseline(CGFloat y) {
  // Also where a sum of fractions missed a half by a little.
  constexpr CGFloat half = 0.5 + 1e-6;
  return std::ceil(y - half);
}

}  // namespace bkuk
