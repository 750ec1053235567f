#include "BrenvikUIKit/drawing/BKUKShape.h"

#include <algorithm>
#include <array>
#include <utility>

#include "BrenvikUIKit/drawing/BKUKShapeLayer.h"
#include "BrenvikUIKit/drawing/LinePatternFit.h"
#include "platform/foundation/Fatal.h"
#include "platform/quartzcore/CATransactionScope.h"

namespace bkuk {

namespace {

constexpr std::string_view unit = "BrenvikUIKit/BKUKShape";

// By the numbers of CGLineCap and CGLineJoin.
constexpr std::array capNames{kCALineCapButt, kCALineCapRound, kCALineCapSquare};
constexpr std::array joinNames{kCALineJoinMiter, kCALineJoinRound, kCALineJoinBevel};

template <typename Names, typename Option>
std::string_view nameOf(const Names& names, Option option) {
  const auto ordinal = static_cast<std::size_t>(option);
  if (ordinal >= names.size()) {
    reportMistake(
        "BKUKShape: a line cap or join beyond the three there are; take one of CGLineCap or CGLineJoin");
    fatal("Fatal error", unit);
  }
  return names[ordinal];
}

/// The option of that name; the default one, which comes first, where the layer was given another.
template <typename Option, typename Names>
Option optionNamed(const Names& names, std::string_view name) {
  const auto found = std::ranges::find(names, name);
  return static_cast<Option>(found == names.end() ? 0 : found - names.begin());
}

Ref<CGColor> cgColorOf(const Ref<NSColor>& color) { return color ? color->cgColor() : nullptr; }

}  // namespace

BKUKShape::BKUKShape(BKUKShapeLayer& layer) : layer_(&layer) {}

Ref<BKUKShapeLayer> BKUKShape::layer() const { return layer_.lock(); }

Ref<BKUKShapeLayer> BKUKShape::presentLayer() const {
  auto present = layer();
  if (!present)
    trap("BKUKShape: its layer is gone; hold the BKUKShapeLayer for as long as its shape is used");
  return present;
}

// Geometry

void BKUKShape::geometryDidChange() {
  setNeedsUpdateComputables();
  presentLayer()->setNeedsDisplay();
}

void BKUKShape::setLinePattern(std::optional<std::vector<CGFloat>> pattern) {
  linePattern_ = std::move(pattern);
  geometryDidChange();
}

void BKUKShape::setLinePatternModification(BKUKLinePatternModification modification) {
  modification_ = modification;
  geometryDidChange();
}

void BKUKShape::setPathLoops(bool loops) {
  pathLoops_ = loops;
  geometryDidChange();
}

void BKUKShape::setLinePatternCount(std::optional<std::int64_t> count) {
  linePatternCount_ = count;
  geometryDidChange();
}

void BKUKShape::setPath(ComputablePath path) {
  path_ = std::move(path);
  geometryDidChange();
}

void BKUKShape::setPathLength(ComputableLength length) {
  pathLength_ = std::move(length);
  geometryDidChange();
}

void BKUKShape::setCornerRadius(ComputableLength radius) {
  cornerRadius_ = std::move(radius);
  geometryDidChange();
}

void BKUKShape::setFrame(ComputableFrame frame) {
  frame_ = std::move(frame);
  geometryDidChange();
}

void BKUKShape::setMask(Ref<BKUKShape> mask) {
  mask_ = std::move(mask);
  presentLayer()->setMask(mask_ ? Ref<CALayer>(mask_->presentLayer()) : nullptr);
}

void BKUKShape::setRasterizationScale(std::optional<CGFloat> scale) {
  rasterizationScale_ = scale;
  const auto layer = presentLayer();
  layer->setShouldRasterize(scale.has_value());
  layer->setRasterizationScale(scale.value_or(1));
}

// The layer's own properties

Ref<NSColor> BKUKShape::strokeColor() const {
  const auto color = presentLayer()->strokeColor();
  return color ? NSColor::withCGColor(color) : nullptr;
}

void BKUKShape::setStrokeColor(const Ref<NSColor>& color) {
  presentLayer()->setStrokeColor(cgColorOf(color));
}

CGFloat BKUKShape::lineWidth() const { return presentLayer()->lineWidth(); }

void BKUKShape::setLineWidth(CGFloat width) { presentLayer()->setLineWidth(width); }

CGLineCap BKUKShape::lineCap() const { return optionNamed<CGLineCap>(capNames, presentLayer()->lineCap()); }

void BKUKShape::setLineCap(CGLineCap cap) { presentLayer()->setLineCap(nameOf(capNames, cap)); }

CGLineJoin BKUKShape::lineJoin() const {
  return optionNamed<CGLineJoin>(joinNames, presentLayer()->lineJoin());
}

void BKUKShape::setLineJoin(CGLineJoin join) { presentLayer()->setLineJoin(nameOf(joinNames, join)); }

BKUKFillRule BKUKShape::fillRule() const {
  return presentLayer()->fillRule() == kCAFillRuleEvenOdd ? BKUKFillRule::evenOdd : BKUKFillRule::nonZero;
}

void BKUKShape::setFillRule(BKUKFillRule rule) {
  presentLayer()->setFillRule(rule == BKUKFillRule::evenOdd ? kCAFillRuleEvenOdd : kCAFillRuleNonZero);
}

CATransform3D BKUKShape::transform() const { return presentLayer()->transform(); }

void BKUKShape::setTransform(const CATransform3D& transform) { presentLayer()->setTransform(transform); }

CGFloat BKUKShape::shadowRadius() const { return presentLayer()->shadowRadius(); }

void BKUKShape::setShadowRadius(CGFloat radius) { presentLayer()->setShadowRadius(radius); }

CGSize BKUKShape::shadowOffset() const { return presentLayer()->shadowOffset(); }

void BKUKShape::setShadowOffset(CGSize offset) { presentLayer()->setShadowOffset(offset); }

CGFloat BKUKShape::opacity() const { return presentLayer()->opacity(); }

void BKUKShape::setOpacity(CGFloat opacity) { presentLayer()->setOpacity(opacity); }

// Several at once

void BKUKShape::setStroke(const Ref<NSColor>& color, CGFloat width, CGLineCap cap, CGLineJoin join,
                          std::optional<std::vector<CGFloat>> pattern, CGFloat phase) {
  const auto layer = presentLayer();
  setStrokeColor(color);
  setLineWidth(width);
  setLinePattern(std::move(pattern));
  layer->setLineDashPhase(phase);
  setLineCap(cap);
  setLineJoin(join);
}

void BKUKShape::setShadow(const Ref<NSColor>& color, CGFloat radius, CGSize offset, CGFloat opacity) {
  const auto layer = presentLayer();
  layer->setShadowColor(cgColorOf(color));
  layer->setShadowRadius(radius);
  layer->setShadowOffset(offset);
  layer->setShadowOpacity(opacity);
}

void BKUKShape::setBorder(const Ref<NSColor>& color, CGFloat width) {
  const auto layer = presentLayer();
  layer->setBorderColor(cgColorOf(color));
  layer->setBorderWidth(width);
}

void BKUKShape::applyStroke(const BKUKLineStyle& fromStyle) {
  setStroke(fromStyle.color, fromStyle.width, fromStyle.cap, CGLineJoin::miter, fromStyle.pattern,
            fromStyle.phase);
  setLinePatternModification(fromStyle.patternModification);
  setLinePatternCount(fromStyle.patternCount);
}

void BKUKShape::apply(const BKUKLineStyle& style) {
  applyStroke(style);
  setShadow(style.shadowColor, style.shadowRadius, style.shadowOffset, style.shadowOpacity);
}

// Presented values

CAValue BKUKShape::presentedValue(std::string_view key) const {
  const auto layer = presentLayer();
  const auto presentation = layer->presentation();
  return presentation ? presentation->value(key) : layer->value(key);
}

CGFloat BKUKShape::presentedNumber(std::string_view key) const {
  return std::get<CGFloat>(presentedValue(key));
}

CGRect BKUKShape::presentedBounds() const { return std::get<CGRect>(presentedValue("bounds")); }

Ref<CGPath> BKUKShape::presentedPath() const {
  const auto value = presentedValue("path");
  const auto* object = std::get_if<Ref<NSObject>>(&value);
  return object ? as<CGPath>(*object) : nullptr;
}

CGFloat BKUKShape::presentedWidth() const { return presentedNumber("lineWidth"); }

std::optional<std::vector<CGFloat>> BKUKShape::presentedPattern() const {
  const auto value = presentedValue("lineDashPattern");
  const auto* lengths = std::get_if<std::vector<CGFloat>>(&value);
  return lengths ? std::optional(*lengths) : std::nullopt;
}

CGFloat BKUKShape::presentedPhase() const { return presentedNumber("lineDashPhase"); }

CGFloat BKUKShape::presentedStrokeStart() const { return presentedNumber("strokeStart"); }

CGFloat BKUKShape::presentedStrokeEnd() const { return presentedNumber("strokeEnd"); }

CGRect BKUKShape::containerBounds() const {
  const auto container = presentLayer()->superlayer();
  return container ? container->bounds() : CGRect::zero;
}

// Updating

void BKUKShape::updateComputables() {
  const Ref<BKUKShape> self(this);
  const auto layer = presentLayer();
  const auto still = CATransactionScope::withoutActions();
  if (const auto frame = frame_) layer->setFrame(frame(*this));
  if (layer->bounds() == bounds_ && !needsUpdateComputable_) return;
  bounds_ = layer->bounds();
  updateGeometry(*layer);
  needsUpdateComputable_ = false;
}

// Computables may replace themselves while they run, so copies are called.
void BKUKShape::updateGeometry(BKUKShapeLayer& layer) {
  if (const auto radius = cornerRadius_) layer.setCornerRadius(radius(*this));
  const auto compute = path_;
  const auto path = compute ? compute(*this) : nullptr;
  if (!path) return;
  layer.setPath(path);
  layer.setLineDashPattern(fittedPattern());
}

std::optional<std::vector<CGFloat>> BKUKShape::fittedPattern() {
  const auto length = pathLength_;
  if (!linePattern_ || modification_ == BKUKLinePatternModification::none || !length) return linePattern_;
  if (linePattern_->empty()) return linePattern_;
  const CGFloat pathLength = length(*this);
  return fittedLinePattern(*linePattern_, {.modification = modification_,
                                           .pathLength = pathLength,
                                           .pathLoops = pathLoops_,
                                           .count = linePatternCount_,
                                           .cap = lineCap(),
                                           .lineWidth = lineWidth()});
}

}  // namespace bkuk
