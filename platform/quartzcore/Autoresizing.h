#pragma once

#include "platform/foundation/CGGeometry.h"

namespace bkuk {

/// Where a box goes whose container grew from `oldSize` to the size of `bounds`, in points of the container.
/// `mask` is the sum of the bits of what may stretch: the margin before the box, its extent and the margin
/// behind it, 1, 2 and 4 along x and 8, 16 and 32 along y. Along each axis the growth goes to those pieces in
/// proportion to their old lengths, equally when these are all 0.
[[nodiscard]] CGRect autoresized(const CGRect& frame, unsigned mask, const CGRect& bounds, CGSize oldSize);

}  // namespace bkuk
