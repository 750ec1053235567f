#include "BrenvikUIKit/drawing/BKUKShapeLayer.h"

#include <utility>

#include "platform/appkit/NSAnimationContext.h"
#include "platform/quartzcore/CABasicAnimation.h"

namespace bkuk {

const Ref<BKUKShape>& BKUKShapeLayer::shape() {
  if (!shape_) {
    shape_ = make<BKUKShape>(*this);
    setFillColor(nullptr);
    setAutoresizingMask(CALayerWidthSizable | CALayerHeightSizable);
    setNeedsDisplayOnBoundsChange(true);
  }
  return shape_;
}

void BKUKShapeLayer::setShape(Ref<BKUKShape> shape) {
  shape_ = std::move(shape);
  if (!shape_) return;
  shape_->layer_ = this;
  shape_->setNeedsUpdateComputables();
  setNeedsDisplay();
}

void BKUKShapeLayer::display() {
  if (const auto shape = shape_) shape->updateComputables();
}

Ref<CAAction> BKUKShapeLayer::action(std::string_view key) {
  return NSAnimationContext::current().allowsImplicitAnimation() ? CAShapeLayer::action(key) : nullptr;
}

Ref<CAAction> BKUKShapeLayer::defaultAction(std::string_view key) const {
  auto action = CAShapeLayer::defaultAction(key);
  return !action && key == "path" ? make<CABasicAnimation>(key) : action;
}

}  // namespace bkuk
