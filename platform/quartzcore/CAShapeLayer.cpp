#include "platform/quartzcore/CAShapeLayer.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "platform/coregraphics/CGContext.h"
#include "platform/quartzcore/CABasicAnimation.h"
#include "platform/quartzcore/CAPropertyTable.h"

namespace bkuk {

namespace {

using Property = CAProperty<CAShapeLayer>;

constexpr std::array properties{
    Property::of<&CAShapeLayer::path, &CAShapeLayer::setPath>("path"),
    Property::of<&CAShapeLayer::fillColor, &CAShapeLayer::setFillColor>("fillColor"),
    Property::of<&CAShapeLayer::fillRule, &CAShapeLayer::setFillRule>("fillRule"),
    Property::of<&CAShapeLayer::strokeColor, &CAShapeLayer::setStrokeColor>("strokeColor"),
    Property::of<&CAShapeLayer::lineWidth, &CAShapeLayer::setLineWidth>("lineWidth"),
    Property::of<&CAShapeLayer::lineCap, &CAShapeLayer::setLineCap>("lineCap"),
    Property::of<&CAShapeLayer::lineJoin, &CAShapeLayer::setLineJoin>("lineJoin"),
    Property::of<&CAShapeLayer::miterLimit, &CAShapeLayer::setMiterLimit>("miterLimit"),
    Property::of<&CAShapeLayer::strokeStart, &CAShapeLayer::setStrokeStart>("strokeStart"),
    Property::of<&CAShapeLayer::strokeEnd, &CAShapeLayer::setStrokeEnd>("strokeEnd"),
    Property::of<&CAShapeLayer::lineDashPattern, &CAShapeLayer::setLineDashPattern>("lineDashPattern"),
    Property::of<&CAShapeLayer::lineDashPhase, &CAShapeLayer::setLineDashPhase>("lineDashPhase"),
};

constexpr std::array<std::string_view, 7> animatableKeys{
    "fillColor", "strokeColor", "lineWidth", "miterLimit", "strokeStart", "strokeEnd", "lineDashPhase"};

CGLineCap capNamed(std::string_view name) {
  if (name == kCALineCapRound) return CGLineCap::round;
  return name == kCALineCapSquare ? CGLineCap::square : CGLineCap::butt;
}

CGLineJoin joinNamed(std::string_view name) {
  if (name == kCALineJoinRound) return CGLineJoin::round;
  return name == kCALineJoinBevel ? CGLineJoin::bevel : CGLineJoin::miter;
}

bool isVisible(const Ref<CGColor>& color) { return color && color->alpha() > 0; }

}  // namespace

CAShapeLayer::CAShapeLayer() : fillColor_(CGColor::black()) {}

void CAShapeLayer::setPath(const Ref<CGPath>& path) {
  const auto kept = path ? path->copy() : nullptr;
  // Before the change, whose action may set another path.
  pathBox_ = kept ? kept->boundingBox() : CGRect::null;
  change("path", path_, kept);
}

void CAShapeLayer::setFillColor(Ref<CGColor> color) { change("fillColor", fillColor_, std::move(color)); }

void CAShapeLayer::setFillRule(std::string_view rule) { change("fillRule", fillRule_, std::string(rule)); }

void CAShapeLayer::setStrokeColor(Ref<CGColor> color) {
  change("strokeColor", strokeColor_, std::move(color));
}

void CAShapeLayer::setLineWidth(CGFloat width) { change("lineWidth", lineWidth_, width); }

void CAShapeLayer::setLineCap(std::string_view cap) { change("lineCap", lineCap_, std::string(cap)); }

void CAShapeLayer::setLineJoin(std::string_view join) { change("lineJoin", lineJoin_, std::string(join)); }

void CAShapeLayer::setMiterLimit(CGFloat limit) { change("miterLimit", miterLimit_, limit); }

void CAShapeLayer::setStrokeStart(CGFloat fraction) { change("strokeStart", strokeStart_, fraction); }

void CAShapeLayer::setStrokeEnd(CGFloat fraction) { change("strokeEnd", strokeEnd_, fraction); }

void CAShapeLayer::setLineDashPattern(const std::optional<std::vector<CGFloat>>& pattern) {
  change("lineDashPattern", dashPattern_, pattern);
}

void CAShapeLayer::setLineDashPhase(CGFloat phase) { change("lineDashPhase", dashPhase_, phase); }

CAValue CAShapeLayer::value(std::string_view key) const {
  const auto* property = findProperty(properties, key);
  return property ? property->get(*this) : CALayer::value(key);
}

void CAShapeLayer::setValue(const CAValue& value, std::string_view key) {
  if (const auto* property = findProperty(properties, key)) return property->set(*this, value);
  CALayer::setValue(value, key);
}

Ref<CAAction> CAShapeLayer::defaultAction(std::string_view key) const {
  if (std::ranges::find(animatableKeys, key) != animatableKeys.end()) return make<CABasicAnimation>(key);
  return CALayer::defaultAction(key);
}

bool CAShapeLayer::strokes() const { return isVisible(strokeColor_) && lineWidth_ > 0; }

// How far the stroke may lie from the path's points.
CGFloat CAShapeLayer::strokeReach() const {
  constexpr CGFloat diagonal = 1.5;
  constexpr CGFloat farthestMiter = 1000;
  const bool hasMiters = joinNamed(lineJoin_) == CGLineJoin::miter;
  return lineWidth_ / 2 * (hasMiters ? std::clamp(miterLimit_, diagonal, farthestMiter) : diagonal);
}

CGRect CAShapeLayer::paintedBox() const {
  if (!path_ || path_->isEmpty()) return CGRect::null;
  if (strokes()) return pathBox_.insetBy(-strokeReach(), -strokeReach());
  return isVisible(fillColor_) ? pathBox_ : CGRect::null;
}

Ref<CGPath> CAShapeLayer::strokedPath() const {
  const bool isWhole = strokeStart_ <= 0 && strokeEnd_ >= 1;
  return isWhole ? path_ : path_->copyTrimming(strokeStart_, strokeEnd_);
}

void CAShapeLayer::paint(CGContext& context) const {
  if (isVisible(fillColor_)) {
    context.setFillColor(fillColor_);
    context.addPath(*path_);
    context.fillPath(fillRule_ == kCAFillRuleEvenOdd ? CGPathFillRule::evenOdd : CGPathFillRule::winding);
  }
  if (!strokes()) return;
  context.setStrokeColor(strokeColor_);
  context.setLineWidth(lineWidth_);
  context.setLineCap(capNamed(lineCap_));
  context.setLineJoin(joinNamed(lineJoin_));
  context.setMiterLimit(miterLimit_);
  if (dashPattern_) context.setLineDash(dashPhase_, *dashPattern_);
  context.addPath(*strokedPath());
  context.strokePath();
}

}  // namespace bkuk
