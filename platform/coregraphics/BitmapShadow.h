#pragma once

#include "host/Bitmap.h"
#include "host/Rgba.h"

namespace bkuk {

/// Turns an image into its shadow: every pixel becomes `color` weighted by the image's alpha, blurred by
/// a Gaussian of `sigma` pixels. Leave `blurReach(sigma)` pixels around what is to keep its whole shadow.
void turnIntoShadow(host::Bitmap& image, double sigma, const host::Rgba& color);

}  // namespace bkuk
