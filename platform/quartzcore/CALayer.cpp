#include "platform/quartzcore/CALayer.h"

#include <algorithm>
#include <cmath>

#include "platform/coregraphics/CGContext.h"
#include "platform/foundation/Permanent.h"
#include "platform/quartzcore/CALayerDelegate.h"
#include "platform/quartzcore/LayerChildren.h"
#include "platform/quartzcore/LayerExtras.h"

namespace bkuk {

std::uint64_t CALayer::treeVersion_ = 1;

CALayer::CALayer() { values_.borderColor = CGColor::black(); }

CALayer::CALayer(const CALayer& model)
    : NSObject(),
      values_(model.values_),
      delegate_(model.delegate_),
      rare_(model.rare_ ? std::make_unique<RareValues>(*model.rare_) : nullptr),
      isCommitted_(true),
      isPresentation_(true) {
  extras().model = Weak<CALayer>(const_cast<CALayer*>(&model));
  if (model.extras_) extras_->storedValues = model.extras_->storedValues;
}

CALayer::~CALayer() {
  for (const auto& layer : sublayers()) {
    layer->container_ = nullptr;
    layer->commitPlace_ = layer->renderPlace_ = notMarked;
    layer->record_ = {};
  }
  ++treeVersion_;
  if (mask() && mask()->container_ == this) mask()->container_ = nullptr;
}

const CALayer::RareValues& CALayer::usualValues() {
  static const auto& values = permanent([] { return RareValues(); });
  return values;
}

CALayer::RareValues& CALayer::ownRare() {
  if (!rare_) rare_ = std::make_unique<RareValues>();
  return *rare_;
}

void CALayer::setName(std::string name) { ownRare().name = std::move(name); }

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
  changeRare("transform", &RareValues::transform, transform, Effect::rearrange);
}

CGAffineTransform CALayer::affineTransform() const { return CATransform3DGetAffineTransform(transform()); }

void CALayer::setAffineTransform(const CGAffineTransform& transform) {
  setTransform(CATransform3DMakeAffineTransform(transform));
}

void CALayer::setZPosition(CGFloat zPosition) {
  const Ref<CALayer> self(this);
  change("zPosition", values_.zPosition, zPosition, Effect::rearrange);
  if (values_.zPosition != 0 && container_ && !isMask_) container_->children().mayBeRaised = true;
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
  changeRare("shadowColor", &RareValues::shadowColor, std::move(color));
}

void CALayer::setShadowOpacity(CGFloat opacity) {
  change("shadowOpacity", values_.shadowOpacity, static_cast<float>(opacity));
}

void CALayer::setShadowOffset(CGSize offset) {
  changeRare("shadowOffset", &RareValues::shadowOffset, offset);
}

void CALayer::setShadowRadius(CGFloat radius) {
  changeRare("shadowRadius", &RareValues::shadowRadius, radius);
}

void CALayer::setShadowPath(const Ref<CGPath>& path) {
  changeRare("shadowPath", &RareValues::shadowPath, path ? path->copy() : nullptr);
}

void CALayer::setShouldRasterize(bool rasterize) {
  changeRare("shouldRasterize", &RareValues::shouldRasterize, rasterize, Effect::none);
}

void CALayer::setRasterizationScale(CGFloat scale) {
  changeRare("rasterizationScale", &RareValues::rasterizationScale, scale, Effect::none);
}

// Painting hooks

void CALayer::paint(CGContext&) const {}

CGRect CALayer::paintedBox() const { return CGRect::null; }

// Delegate

void CALayer::setDelegate(CALayerDelegate* delegate) { delegate_ = delegate; }

}  // namespace bkuk
