#include "gallery/pages/shapes/DashedSample.h"

#include <utility>

namespace bkuk::gallery {

namespace {

constexpr CGFloat cornerRadius = 12;

Ref<CGPath> linePath(const CGRect& bounds, bool startsAtRight) {
  const CGPoint left{bounds.minX(), bounds.midY()};
  const CGPoint right{bounds.maxX(), bounds.midY()};
  const auto path = make<CGMutablePath>();
  path->move(startsAtRight ? right : left);
  path->addLine(startsAtRight ? left : right);
  return path->copy();
}

/// Half a line width inside, so that the stroke keeps to the bounds.
Ref<CGPath> outlinePath(const CGRect& bounds, CGFloat lineWidth) {
  const CGRect box = bounds.insetBy(lineWidth / 2, lineWidth / 2);
  return box.isNull() ? make<CGPath>() : CGPath::roundedRect(box, cornerRadius, cornerRadius);
}

}  // namespace

DashedSample::DashedSample(Course course, Dashes dashes, Color color)
    : course_(course), dashes_(std::move(dashes)), color_(std::move(color)) {}

void DashedSample::didInit() {
  BKUKShapeView::didInit();
  shape()->setPathLoops(course_ == Course::outline);
  shape()->setPath(computablePath());
  shape()->setPathLength([](BKUKShape& shape) { return shape.path()(shape)->length(); });
  updateLayer();
}

BKUKShape::ComputablePath DashedSample::computablePath() const {
  if (course_ == Course::outline) {
    return [](BKUKShape& shape) { return outlinePath(shape.bounds(), shape.lineWidth()); };
  }
  return
      [startsAtRight = startsAtRight_](BKUKShape& shape) { return linePath(shape.bounds(), startsAtRight); };
}

void DashedSample::setStartsAtRight(bool startsAtRight) {
  if (startsAtRight == std::exchange(startsAtRight_, startsAtRight)) return;
  shape()->setPath(computablePath());
}

void DashedSample::updateLayer() {
  BKUKShapeView::updateLayer();
  shape()->applyStroke({.color = color_(),
                        .width = dashes_.width,
                        .cap = dashes_.cap,
                        .pattern = dashes_.pattern,
                        .patternModification = dashes_.modification});
}

void DashedSample::setDashes(Dashes dashes) {
  dashes_ = std::move(dashes);
  updateLayer();
}

std::vector<CGFloat> DashedSample::fittedPattern() {
  shapeLayer()->displayIfNeeded();
  return shapeLayer()->lineDashPattern().value_or(std::vector<CGFloat>());
}

}  // namespace bkuk::gallery
