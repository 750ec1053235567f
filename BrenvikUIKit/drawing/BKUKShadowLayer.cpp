#include "BrenvikUIKit/drawing/BKUKShadowLayer.h"

#include <array>
#include <cmath>

#include "platform/coregraphics/CGContext.h"
#include "platform/coregraphics/CGMutablePath.h"
#include "platform/quartzcore/CAPropertyTable.h"

namespace bkuk {

namespace {

using Property = CAProperty<BKUKShadowLayer>;

constexpr std::array properties{
    Property::of<&BKUKShadowLayer::clipShadowColor, &BKUKShadowLayer::setClipShadowColor>("_color"),
    Property::of<&BKUKShadowLayer::clipShadowRadius, &BKUKShadowLayer::setClipShadowRadius>("_radius"),
    Property::of<&BKUKShadowLayer::clipShadowOffset, &BKUKShadowLayer::setClipShadowOffset>("_offset"),
    Property::of<&BKUKShadowLayer::clipShadowOpacity, &BKUKShadowLayer::setClipShadowOpacity>("_opacity")};

/// How large the bounds show in the frame.
CGSize shownScale(const CALayer& layer) {
  const CGRect frame = layer.frame();
  const CGRect& bounds = layer.bounds();
  return {frame.width() / bounds.width(), frame.height() / bounds.height()};
}

/// A rectangle around the path whose outer edge casts no shadow into it.
CGRect surroundings(const CGPath& path, CGFloat blur, CGSize offset) {
  return path.boundingBoxOfPath().insetBy(-2 * (blur + std::abs(offset.width)),
                                          -2 * (blur + std::abs(offset.height)));
}

}  // namespace

BKUKShadowLayer::BKUKShadowLayer() { setNeedsDisplayOnBoundsChange(true); }

void BKUKShadowLayer::setClipShadowType(BKUKShadowType type) {
  type_ = type;
  setNeedsDisplay();
}

void BKUKShadowLayer::setClipShadowPath(const Ref<CGPath>& path) {
  path_ = path ? path->copy() : nullptr;
  setNeedsDisplay();
}

void BKUKShadowLayer::setClipShadowColor(Ref<NSColor> color) {
  change("_color", color_, std::move(color), Effect::none);
}

void BKUKShadowLayer::setClipShadowRadius(CGFloat radius) {
  change("_radius", radius_, radius, Effect::none);
}

void BKUKShadowLayer::setClipShadowOffset(CGSize offset) { change("_offset", offset_, offset, Effect::none); }

void BKUKShadowLayer::setClipShadowOpacity(CGFloat opacity) {
  change("_opacity", opacity_, opacity, Effect::none);
}

bool BKUKShadowLayer::needsDisplay(std::string_view key) const {
  return findProperty(properties, key) || CALayer::needsDisplay(key);
}

CAValue BKUKShadowLayer::value(std::string_view key) const {
  const auto* property = findProperty(properties, key);
  return property ? property->get(*this) : CALayer::value(key);
}

void BKUKShadowLayer::setValue(const CAValue& value, std::string_view key) {
  const auto* property = findProperty(properties, key);
  return property ? property->set(*this, value) : CALayer::setValue(value, key);
}

// Drawing

void BKUKShadowLayer::draw(CGContext& context) {
  if (!path_ || !color_ || !(opacity_ > 0) || bounds().isEmpty()) return;
  const CGSize scale = shownScale(*this);
  context.saveGState();
  context.scaleBy(scale.width, scale.height);
  type_ == BKUKShadowType::inner ? drawInner(context, scale) : drawOuter(context, scale);
  context.restoreGState();
}

void BKUKShadowLayer::drawOuter(CGContext& context, CGSize scale) const {
  castShadow(context, scale, *path_);
  context.setBlendMode(CGBlendMode::clear);
  context.addPath(*path_);
  context.fillPath();
}

void BKUKShadowLayer::drawInner(CGContext& context, CGSize scale) const {
  context.addPath(*path_);
  context.clip();
  const auto around = make<CGMutablePath>();
  around->addRect(surroundings(*path_, radius_, offset_));
  around->addPath(*path_);
  castShadow(context, scale, *around);
}

// What casts the shadow lies out of sight, beside the bounds, so that its own edge leaves no trace where it
// is smoothed. A context's scale leaves shadows alone, and a shadow takes on the alpha of what casts it.
void BKUKShadowLayer::castShadow(CGContext& context, CGSize scale, const CGPath& caster) const {
  const CGFloat away = caster.boundingBoxOfPath().maxX() - bounds().minX() + 1;
  const auto color = color_->cgColor();
  context.saveGState();
  context.setAlpha(opacity_);
  context.setFillColor(color->copy(1));
  context.setShadow({(offset_.width + away) * scale.width, offset_.height * scale.height},
                    radius_ * std::sqrt(scale.width * scale.height), color);
  context.translateBy(-away, 0);
  context.addPath(caster);
  context.fillPath(type_ == BKUKShadowType::inner ? CGPathFillRule::evenOdd : CGPathFillRule::winding);
  context.restoreGState();
}

}  // namespace bkuk
