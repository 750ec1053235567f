#include "BrenvikUIKit/drawing/BKUKCAGradientLayer+Extensions.h"

namespace bkuk {

void applyGradient(CAGradientLayer& layer, const std::optional<BKUKGradient>& gradient) {
  const bool isSolid = gradient && gradient->colors.size() == 1;
  if (!gradient || isSolid) {
    layer.setColors({});
    layer.setLocations(std::nullopt);
    if (isSolid) layer.setBackgroundColor(gradient->cgColors().front());
    return;
  }
  layer.setBackgroundColor(nullptr);
  layer.setColors(gradient->cgColors());
  layer.setLocations(gradient->locations);
}

}  // namespace bkuk
