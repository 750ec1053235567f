#include "gallery/pages/fills/ShadowSample.h"

#include <utility>

namespace bkuk::gallery {

namespace {

constexpr CGFloat roomForShadow = 26;  // points on every side of the plate

}  // namespace

ShadowSample::ShadowSample(Ref<BKUKFillView> plate, BKUKCornerSettings corner, Shadow shadow)
    : plate_(std::move(plate)), corner_(corner), shadow_(std::move(shadow)) {}

void ShadowSample::didInit() {
  NSView::didInit();
  setWantsLayer(true);
  shadowLayer_ = make<BKUKShadowLayer>();
  shadowLayer_->setClipShadowType(shadow_.type);
  shadowLayer_->setClipShadowRadius(shadow_.radius);
  shadowLayer_->setClipShadowOffset(shadow_.offset);
  shadowLayer_->setClipShadowOpacity(shadow_.opacity);
  addSubview(plate_);
  if (shadow_.type == BKUKShadowType::outer) {
    layer()->insertSublayer(shadowLayer_, 0);
  } else {
    layer()->addSublayer(shadowLayer_);
  }
}

void ShadowSample::layout() {
  plate_->setFrame(bounds().insetBy(roomForShadow, roomForShadow));
  BKUKDontAnimate(true, [this] { shadowLayer_->setFrame(bounds()); });
  const CGRect plate = plate_->frame();
  const CGFloat radius = corner_.radius(plate);
  shadowLayer_->setClipShadowPath(CGPath::roundedRect(plate, radius, radius));
}

void ShadowSample::updateLayer() {
  BKUKDontAnimate(true, [this] { shadowLayer_->setClipShadowColor(shadow_.color()); });
  shadowLayer_->setNeedsDisplay();
}

void ShadowSample::viewDidChangeBackingProperties() {
  NSView::viewDidChangeBackingProperties();
  shadowLayer_->setContentsScale(layer()->contentsScale());
  shadowLayer_->setNeedsDisplay();
}

}  // namespace bkuk::gallery
