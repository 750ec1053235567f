#pragma once

#include "BrenvikUIKit/drawing/BKUKShape.h"

namespace bkuk {

/// Ready-made computables for shapes.
struct BKUKShapeComputable {
  BKUKShapeComputable() = delete;

  struct CornerRadius {
    /// That fraction of the shorter side.
    [[nodiscard]] static BKUKShape::ComputableLength ratio(CGFloat fraction);
    /// Half of the shorter side.
    [[nodiscard]] static const BKUKShape::ComputableLength& round();
  };

  // A circle in the middle of the bounds, as wide as the shorter side, that starts at the right and is left
  // open. The inner-stroke forms lie half the layer's line width further inside, so that the stroke keeps to
  // the bounds.
  struct Path {
    [[nodiscard]] static const BKUKShape::ComputablePath& circle();
    [[nodiscard]] static const BKUKShape::ComputablePath& circleInnerStroke();
  };
  struct PathLength {
    [[nodiscard]] static const BKUKShape::ComputableLength& circle();
    [[nodiscard]] static const BKUKShape::ComputableLength& circleInnerStroke();
  };
};

}  // namespace bkuk
