#pragma once

#include "BrenvikUIKit/BrenvikUIKit.h"

namespace bkuk::gallery {

/// The brand's face at a size in points and a weight of the OpenType weight class: Inter where it is
/// installed, else the desktop's own. One object per size and weight.
[[nodiscard]] Ref<CTFont> brandFont(CGFloat size, int weight);

}  // namespace bkuk::gallery
