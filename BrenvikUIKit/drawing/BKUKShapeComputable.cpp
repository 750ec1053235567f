#include "BrenvikUIKit/drawing/BKUKShapeComputable.h"

#include <algorithm>
#include <numbers>

#include "platform/coregraphics/CGMutablePath.h"

namespace bkuk {

namespace {

constexpr CGFloat fullTurn = 2 * std::numbers::pi;

CGFloat shorterSide(const BKUKShape& shape) {
  return std::min(shape.bounds().width(), shape.bounds().height());
}

CGFloat radiusWithin(const BKUKShape& shape) { return shorterSide(shape) / 2; }

CGFloat radiusOfInnerStroke(const BKUKShape& shape) { return (shorterSide(shape) - shape.lineWidth()) / 2; }

Ref<CGPath> circlePath(const CGRect& bounds, CGFloat radius) {
  const auto path = make<CGMutablePath>();
  path->addArc({bounds.midX(), bounds.midY()}, radius, 0, -fullTurn, true);
  return path->copy();
}

}  // namespace

BKUKShape::ComputableLength BKUKShapeComputable::CornerRadius::ratio(CGFloat fraction) {
  return [fraction](BKUKShape& shape) { return shorterSide(shape) * fraction; };
}

const BKUKShape::ComputableLength& BKUKShapeComputable::CornerRadius::round() {
  static const auto& computable = *new auto(ratio(0.5));
  return computable;
}

const BKUKShape::ComputablePath& BKUKShapeComputable::Path::circle() {
  static const auto& computable = *new BKUKShape::ComputablePath(
      [](BKUKShape& shape) { return circlePath(shape.bounds(), radiusWithin(shape)); });
  return computable;
}

const BKUKShape::ComputablePath& BKUKShapeComputable::Path::circleInnerStroke() {
  static const auto& computable = *new BKUKShape::ComputablePath(
      [](BKUKShape& shape) { return circlePath(shape.bounds(), radiusOfInnerStroke(shape)); });
  return computable;
}

const BKUKShape::ComputableLength& BKUKShapeComputable::PathLength::circle() {
  static const auto& computable =
      *new BKUKShape::ComputableLength([](BKUKShape& shape) { return radiusWithin(shape) * fullTurn; });
  return computable;
}

const BKUKShape::ComputableLength& BKUKShapeComputable::PathLength::circleInnerStroke() {
  static const auto& computable = *new BKUKShape::ComputableLength(
      [](BKUKShape& shape) { return radiusOfInnerStroke(shape) * fullTurn; });
  return computable;
}

}  // namespace bkuk
