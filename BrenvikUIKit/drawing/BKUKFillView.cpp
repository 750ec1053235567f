#include "BrenvikUIKit/drawing/BKUKFillView.h"

#include <algorithm>
#include <utility>

#include "BrenvikUIKit/animation/BKUKDontAnimate.h"
#include "BrenvikUIKit/drawing/BKUKCAGradientLayer+Extensions.h"
#include "platform/appkit/drawing/NSShadow.h"
#include "platform/foundation/Fatal.h"

namespace bkuk {

namespace {

Ref<CALayer> makeFillLayer(const BKUKFill& fill) {
  if (std::holds_alternative<Ref<NSColor>>(fill.value())) return make<CALayer>();
  return make<CAGradientLayer>();
}

/// Puts a fill into the layer that shows it.
struct FillInto {
  CALayer& layer;

  [[nodiscard]] CAGradientLayer& gradientLayer() const {
    auto* gradient = dynamic_cast<CAGradientLayer*>(&layer);
    if (!gradient)
      trap("BKUKFillView: a gradient fill needs a CAGradientLayer; leave fillsLayer() to setFills");
    return *gradient;
  }

  void operator()(const Ref<NSColor>& color) const {
    layer.setBackgroundColor(
        required(color, "BKUKFill: a fill of no color; use BKUKFill::clear()")->cgColor());
  }

  void operator()(const BKUKLinearGradientSettings& settings) const {
    auto& gradient = gradientLayer();
    gradient.setType(kCAGradientLayerAxial);
    gradient.setStartPoint(settings.startPoint);
    gradient.setEndPoint(settings.endPoint);
    gradient.setOpacity(settings.opacity);
    applyGradient(gradient, settings.gradient);
  }

  void operator()(const BKUKRadialGradientSettings& settings) const {
    auto& gradient = gradientLayer();
    gradient.setType(kCAGradientLayerRadial);
    gradient.setStartPoint(settings.center);
    gradient.setEndPoint(
        {settings.center.x + settings.radius.width, settings.center.y + settings.radius.height});
    gradient.setOpacity(settings.opacity);
    applyGradient(gradient, settings.gradient);
  }
};

template <typename T>
void replace(T& field, const std::optional<T>& value) {
  if (value) field = *value;
}

template <typename T>
void replace(Ref<T>& field, const Ref<T>& object) {
  if (object) field = object;
}

}  // namespace

BKUKFillView::BKUKFillView(NSRect frame) : NSView(frame) {}

BKUKFillView::BKUKFillView(Look look) : initialLook_(std::move(look)) {}

Ref<BKUKFillView> BKUKFillView::decoded(NSCoder&) {
  fatal("init(coder:) has not been implemented", "BrenvikUIKit/BKUKFillView");
}

void BKUKFillView::didInit() {
  NSView::didInit();
  setTranslatesAutoresizingMaskIntoConstraints(false);
  setWantsLayer(true);
  setLayerContentsRedrawPolicy(NSViewLayerContentsRedrawPolicy::beforeViewResize);
  layer()->setMasksToBounds(true);
  fillsLayer_ = make<CALayer>();
  fillsLayer_->setAutoresizingMask(CALayerWidthSizable | CALayerHeightSizable);
  // It follows the view's size at once, as the view's own layer does.
  fillsLayer_->setActions({{"bounds", nullptr}, {"position", nullptr}});
  fillsLayer_->setFrame(bounds());
  layer()->insertSublayer(fillsLayer_, 0);
  if (const auto look = std::exchange(initialLook_, std::nullopt)) privateStyle()->apply(*look);
}

const Ref<BKUKFillView::Style>& BKUKFillView::privateStyle() {
  if (!style_) style_ = makePrivateStyle();
  return style_;
}

Ref<BKUKFillView::Style> BKUKFillView::makePrivateStyle() { return make<Style>(*this); }

void BKUKFillView::setFills(std::vector<BKUKFill> fills) {
  fills_ = std::move(fills);
  std::vector<Ref<CALayer>> layers;
  for (const auto& fill : fills_) {
    layers.push_back(makeFillLayer(fill));
    layers.back()->setFrame(bounds());
  }
  fillsLayer_->setSublayers(std::move(layers));
  configureFillLayers();
}

void BKUKFillView::configureFillLayers() {
  const auto layers = fillsLayer_->sublayers();
  const std::size_t count = std::min(layers.size(), fills_.size());
  for (std::size_t i = 0; i < count; ++i) configure(*layers[i], fills_[i]);
}

void BKUKFillView::configure(CALayer& layer, const BKUKFill& fill) {
  layer.setFrame(fillsLayer_->bounds());
  layer.setCornerRadius(privateStyle()->corner().radius(fillsLayer_->bounds()));
  std::visit(FillInto{layer}, fill.value());
}

void BKUKFillView::updateLayer() {
  BKUKDontAnimate(true, [this] {
    fillsLayer_->setFrame(layer()->bounds());
    configureFillLayers();
    const auto& style = *privateStyle();
    layer()->setCornerRadius(style.corner().radius(bounds()));
    layer()->setBackgroundColor(style.background()->cgColor());
    layer()->setBorderColor(style.borderColor()->cgColor());
    layer()->setBorderWidth(style.borderWidth());
    layer()->setMaskedCorners(style.cornerMask());
  });
}

void BKUKFillView::refreshShadow() {
  const auto& settings = privateStyle()->shadow();
  if (!settings.isVisible()) return setShadow(nullptr);
  const auto shadow = make<NSShadow>();
  shadow->setShadowOffset(settings.offset);
  shadow->setShadowBlurRadius(settings.radius);
  shadow->setShadowColor(settings.color->withAlphaComponent(settings.opacity));
  setShadow(shadow);
}

// Style

BKUKFillView::Style::Style(BKUKFillView& component) : component_(&component) {}

void BKUKFillView::Style::apply(const Look& look) {
  replace(background_, look.background);
  replace(corner_, look.corner);
  replace(cornerMask_, look.cornerMask);
  replace(borderColor_, look.borderColor);
  replace(borderWidth_, look.borderWidth);
  replace(shadow_, look.shadow);
  const auto view = component();
  if (!view) return;
  view->setNeedsDisplay(true);
  view->refreshShadow();
}

}  // namespace bkuk
