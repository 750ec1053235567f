#pragma once

#include <cmath>

#include "platform/foundation/CGGeometry.h"

namespace bkuk {

/// The least whole number of points, or of pixels, that a measured length fits into. A length that sums and
/// products have made longer by next to nothing, such as 14.000000000000002, is not a whole one longer.
[[nodiscard]] inline CGFloat CGRoundedUp(CGFloat length) {
  return std::ceil(length - 1e-6) + 0.0;  // 0 rather than -0
}

}  // namespace bkuk
