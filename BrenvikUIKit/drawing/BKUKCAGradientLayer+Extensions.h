#pragma once

#include <optional>

#include "BrenvikUIKit/drawing/BKUKGradient.h"
#include "platform/quartzcore/CAGradientLayer.h"

namespace bkuk {

/// Gives the layer the gradient's colours of this moment. A gradient of one colour becomes the background,
/// which two or more colours clear; none leaves the background as it is.
void applyGradient(CAGradientLayer& layer, const std::optional<BKUKGradient>& gradient);

}  // namespace bkuk
