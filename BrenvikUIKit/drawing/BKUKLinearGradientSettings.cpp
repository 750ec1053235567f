#include "BrenvikUIKit/drawing/BKUKLinearGradientSettings.h"

#include <cmath>
#include <numbers>

namespace bkuk {

namespace {

// More than half the unit square, so that the outermost colours lie outside of it.
constexpr CGFloat distanceFromCenter = 0.6;

CGPoint onCircle(CGFloat angle) {
  return {0.5 + distanceFromCenter * std::cos(angle), 0.5 + distanceFromCenter * std::sin(angle)};
}

}  // namespace

BKUKLinearGradientSettings::Directions BKUKLinearGradientSettings::Directions::degrees(CGFloat angle) {
  const CGFloat radians = angle / 180 * std::numbers::pi;
  return {onCircle(radians), onCircle(radians + std::numbers::pi)};
}

void BKUKLinearGradientSettings::setStartEndPoint(const Directions& direction) {
  startPoint = direction.startPoint();
  endPoint = direction.endPoint();
}

}  // namespace bkuk
