#include "platform/quartzcore/CALayer.h"

#include <algorithm>
#include <cmath>

#include "platform/coregraphics/CGContext.h"
#include "platform/quartzcore/CALayerDelegate.h"
#include "platform/quartzcore/LayerExtras.h"

namespace bkuk {

namespace {}  // namespace

std::uint64_t CALayer::treeVersion_ = 1;

CALayer::CALayer() {
  values_.borderColor = CGColor::black();
  values_.shadowColor = CGColor::black();
}

CALayer::CALayer(const CALayer& model)
    : NSObject(),
      values_(model.values_),
      delegate_(model.delegate_),
      name_(model.name_),
      isCommitted_(true),
      isPresentation_(true) {
  extras().model = Weak<CALayer>(const_cast<CALayer*>(&model));
  if (model.extras_) extras_->storedValues = model.extras_->storedValues;
}

CALayer::~CALayer() {
  for (const auto& layer : sublayers_) {
    layer->container_ = nullptr;
    layer->record_ = {};
  }
  ++treeVersion_;
  if (values_.mask && values_.mask->container_ == this) values_.mask->container_ = nullptr;
}

CALayer::Extras& CALayer::extras() {
  if (!extras_) extras_ = std::make_unique<Extras>();
  return *extras_;
}

// Geometry

void CALayer::setBounds(const CGRect& bounds) {
  const auto oldSize = values_.bounds.size;
  const Ref<CALayer> self(this);
  change("bounds", values_.bounds, bounds, Effect::rearrange);
  if (oldSize != values_.bounds.size) sizeDidChange(oldSize);
}

void CALayer::sizeDidChange(CGSize oldSize) {
  if (isPresentation_) return;
  resizeSublayers(oldSize);
  setNeedsLayout();
  if (needsDisplayOnBoundsChange_) setNeedsDisplay();
}

void CALayer::setPosition(CGPoint position) {
  change("position", values_.position, position, Effect::rearrange);
}

void CALayer::setAnchorPoint(CGPoint anchorPoint) {
  change("anchorPoint", values_.anchorPoint, anchorPoint, Effect::rearrange);
}

void CALayer::setTransform(const CATransform3D& transform) {
  change("transform", values_.transform, transform, Effect::rearrange);
}

CGAffineTransform CALayer::affineTransform() const {
  return CATransform3DGetAffineTransform(values_.transform);
}

void CALayer::setAffineTransform(const CGAffineTransform& transform) {
  setTransform(CATransform3DMakeAffineTransform(transform));
}

void CALayer::setZPosition(CGFloat zPosition) {
  change("zPosition", values_.zPosition, zPosition, Effect::rearrange);
}

void CALayer::setGeometryFlipped(bool flipped) {
  change("geometryFlipped", values_.geometryFlipped, flipped, Effect::rearrange);
}

// Appearance

void CALayer::setBackgroundColor(Ref<CGColor> color) {
  change("backgroundColor", values_.backgroundColor, std::move(color));
}

void CALayer::setContents(Ref<CALayerContents> contents) {
  drawn_ = Drawn::no;
  change("contents", values_.contents, std::move(contents));
}

void CALayer::setContentsScale(CGFloat scale) { change("contentsScale", values_.contentsScale, scale); }

void CALayer::setCornerRadius(CGFloat radius) { change("cornerRadius", values_.cornerRadius, radius); }

void CALayer::setMaskedCorners(unsigned corners) {
  change("maskedCorners", values_.maskedCorners, corners & CALayerAllCorners);
}

void CALayer::setBorderWidth(CGFloat width) { change("borderWidth", values_.borderWidth, width); }

void CALayer::setBorderColor(Ref<CGColor> color) {
  change("borderColor", values_.borderColor, std::move(color));
}

void CALayer::setOpacity(CGFloat opacity) {
  change("opacity", values_.opacity, static_cast<float>(opacity), Effect::rearrange);
}

void CALayer::setHidden(bool hidden) { change("hidden", values_.hidden, hidden, Effect::rearrange); }

void CALayer::setMasksToBounds(bool masks) {
  change("masksToBounds", values_.masksToBounds, masks, Effect::rearrange);
}

void CALayer::setOpaque(bool opaque) { change("opaque", values_.opaque, opaque); }

void CALayer::setShadowColor(Ref<CGColor> color) {
  change("shadowColor", values_.shadowColor, std::move(color));
}

void CALayer::setShadowOpacity(CGFloat opacity) {
  change("shadowOpacity", values_.shadowOpacity, static_cast<float>(opacity));
}

void CALayer::setShadowOffset(CGSize offset) { change("shadowOffset", values_.shadowOffset, offset); }

void CALayer::setShadowRadius(CGFloat radius) { change("shadowRadius", values_.shadowRadius, radius); }

void CALayer::setShadowPath(const Ref<CGPath>& path) {
  change("shadowPath", values_.shadowPath, path ? path->copy() : nullptr);
}

void CALayer::setShouldRasterize(bool rasterize) {
  change("shouldRasterize", values_.shouldRasterize, rasterize, Effect::none);
}

void CALayer::setRasterizationScale(CGFloat scale) {
  change("rasterizationScale", values_.rasterizationScale, scale, Effect::none);
}

// Painting hooks

void CALayer::paint(CGContext&) const {}

CGRect CALayer::paintedBox() const { return CGRect::null; }

// Delegate

void CALayer::setDelegate(CALayerDelegate* delegate) { delegate_ = delegate; }

}  // namespace bkuk
