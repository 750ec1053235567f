#pragma once

#include <utility>

#include "BrenvikUIKit/drawing/BKUKGradient.h"

namespace bkuk {

/// A gradient from a centre outwards to an ellipse. Lengths are in the unit space of what is filled, y up.
struct BKUKRadialGradientSettings {
  BKUKGradient gradient;
  CGSize radius;  ///< the ellipse's half axes
  CGPoint center;
  CGFloat opacity;

  BKUKRadialGradientSettings(BKUKGradient itsGradient, CGPoint itsCenter, CGSize itsRadius,
                             CGFloat itsOpacity)
      : gradient(std::move(itsGradient)), radius(itsRadius), center(itsCenter), opacity(itsOpacity) {}

  bool operator==(const BKUKRadialGradientSettings&) const = default;
};

}  // namespace bkuk
