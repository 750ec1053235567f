#pragma once

#include "platform/quartzcore/CALayer.h"

namespace bkuk {

/// From the layer's bounds space to its superlayer's.
[[nodiscard]] CGAffineTransform transformToSuperlayer(const CALayer& layer);

/// From the layer's bounds space to the superspace of the root of its tree.
[[nodiscard]] CGAffineTransform transformToRoot(const CALayer& layer);

}  // namespace bkuk
