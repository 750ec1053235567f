#include "BrenvikUIKit/drawing/BKUKShapeView.h"

#include <utility>

#include "platform/foundation/Fatal.h"

namespace bkuk {

BKUKShapeView::BKUKShapeView(Ref<NSColor> backgroundColor, BKUKShape::ComputableLength cornerRadius)
    : backgroundColor_(std::move(backgroundColor)), cornerRadius_(std::move(cornerRadius)) {}

Ref<BKUKShapeView> BKUKShapeView::decoded(NSCoder&) {
  fatal("init(coder:) has not been implemented", "BrenvikUIKit/BKUKShapeView");
}

void BKUKShapeView::didInit() {
  NSView::didInit();
  setWantsLayer(true);
  layer()->setMasksToBounds(false);
  applyBackground();
  if (cornerRadius_) shape()->setCornerRadius(std::exchange(cornerRadius_, {}));
}

const Ref<BKUKShapeLayer>& BKUKShapeView::shapeLayer() {
  if (!shapeLayer_) shapeLayer_ = make<BKUKShapeLayer>();
  return shapeLayer_;
}

// The view places its layer, so that must not follow the superlayer as a shape's layer does.
Ref<CALayer> BKUKShapeView::makeBackingLayer() {
  (void)shape();
  shapeLayer()->setAutoresizingMask(CALayerNotSizable);
  return shapeLayer();
}

void BKUKShapeView::addShapeLayerInto(CALayer& layer) {
  shapeLayer()->setAutoresizingMask(CALayerWidthSizable | CALayerHeightSizable);
  shapeLayer()->setFrame(layer.bounds());
  layer.addSublayer(shapeLayer());
}

void BKUKShapeView::applyBackground() {
  if (backgroundColor_) layer()->setBackgroundColor(backgroundColor_->cgColor());
}

void BKUKShapeView::updateLayer() { applyBackground(); }

void BKUKShapeView::viewDidChangeEffectiveAppearance() {
  NSView::viewDidChangeEffectiveAppearance();
  updateLayer();
}

}  // namespace bkuk
