#include "platform/quartzcore/CAGradientLayer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "platform/coregraphics/CGContext.h"
#include "platform/coregraphics/CGGradient.h"
#include "platform/quartzcore/CABasicAnimation.h"
#include "platform/quartzcore/CAPropertyTable.h"

namespace bkuk {

namespace {

using Property = CAProperty<CAGradientLayer>;

constexpr std::array properties{
    Property::of<&CAGradientLayer::colors, &CAGradientLayer::setColors>("colors"),
    Property::of<&CAGradientLayer::locations, &CAGradientLayer::setLocations>("locations"),
    Property::of<&CAGradientLayer::startPoint, &CAGradientLayer::setStartPoint>("startPoint"),
    Property::of<&CAGradientLayer::endPoint, &CAGradientLayer::setEndPoint>("endPoint"),
    Property::of<&CAGradientLayer::type, &CAGradientLayer::setType>("type"),
};

constexpr std::array<std::string_view, 4> animatableKeys{"colors", "locations", "startPoint", "endPoint"};

constexpr unsigned beyondBothEnds = CGGradientDrawsBeforeStartLocation | CGGradientDrawsAfterEndLocation;

bool isFinite(CGPoint point) { return std::isfinite(point.x) && std::isfinite(point.y); }

bool isSameColor(const Ref<CGColor>& a, const Ref<CGColor>& b) { return detail::isSameValue(a, b); }

void fillWith(CGContext& context, const host::Rgba& color, const CGRect& rect) {
  context.setFillColor(CGColor::srgb(color.red, color.green, color.blue, color.alpha));
  context.fill(rect);
}

CGFloat mixed(CGFloat from, CGFloat to, CGFloat fraction) { return from + (to - from) * fraction; }

host::Rgba colorAt(std::span<const host::GradientStop> stops, CGFloat location) {
  const auto after = std::ranges::find_if(stops, [&](const auto& stop) { return stop.location >= location; });
  if (after == stops.begin()) return stops.front().color;
  if (after == stops.end()) return stops.back().color;
  const auto& next = *after;
  const auto& last = *std::prev(after);
  const auto fraction = (location - last.location) / (next.location - last.location);
  return {
      mixed(last.color.red, next.color.red, fraction), mixed(last.color.green, next.color.green, fraction),
      mixed(last.color.blue, next.color.blue, fraction), mixed(last.color.alpha, next.color.alpha, fraction)};
}

}  // namespace

void CAGradientLayer::setColors(const Colors& colors) {
  if (std::equal(colors_.begin(), colors_.end(), colors.begin(), colors.end(), isSameColor)) return;
  change("colors", colors_, colors);
}

void CAGradientLayer::setLocations(const std::optional<std::vector<CGFloat>>& locations) {
  change("locations", locations_, locations);
}

void CAGradientLayer::setStartPoint(CGPoint point) { change("startPoint", startPoint_, point); }

void CAGradientLayer::setEndPoint(CGPoint point) { change("endPoint", endPoint_, point); }

void CAGradientLayer::setType(std::string_view type) { change("type", type_, std::string(type)); }

CAValue CAGradientLayer::value(std::string_view key) const {
  const auto* property = findProperty(properties, key);
  return property ? property->get(*this) : CALayer::value(key);
}

void CAGradientLayer::setValue(const CAValue& value, std::string_view key) {
  if (const auto* property = findProperty(properties, key)) return property->set(*this, value);
  CALayer::setValue(value, key);
}

Ref<CAAction> CAGradientLayer::defaultAction(std::string_view key) const {
  if (std::ranges::find(animatableKeys, key) != animatableKeys.end()) return make<CABasicAnimation>(key);
  return CALayer::defaultAction(key);
}

CGRect CAGradientLayer::paintedBox() const {
  return colors_.empty() ? CGRect::null : bounds().standardized();
}

CGPoint CAGradientLayer::inBounds(CGPoint unit) const {
  const auto& box = bounds();
  return {box.minX() + unit.x * box.width(), box.minY() + unit.y * box.height()};
}

void CAGradientLayer::paint(CGContext& context) const {
  const auto gradient = CGGradient::create(CGColorSpace::sRGB(), colors_, locations_);
  if (!gradient || !isFinite(startPoint_) || !isFinite(endPoint_)) return;
  if (type_ == kCAGradientLayerRadial) return paintRadial(context, *gradient);
  if (type_ == kCAGradientLayerConic) return paintConic(context, *gradient);
  paintAxial(context, *gradient);
}

void CAGradientLayer::paintAxial(CGContext& context, const CGGradient& gradient) const {
  const auto start = inBounds(startPoint_);
  const auto end = inBounds(endPoint_);
  if (start == end) return fillWith(context, gradient.stops().back().color, bounds());
  context.drawLinearGradient(gradient, start, end, beyondBothEnds);
}

void CAGradientLayer::paintRadial(CGContext& context, const CGGradient& gradient) const {
  const auto radiusX = std::abs(endPoint_.x - startPoint_.x) * bounds().width();
  const auto radiusY = std::abs(endPoint_.y - startPoint_.y) * bounds().height();
  if (radiusX == 0 || radiusY == 0) return fillWith(context, gradient.stops().back().color, bounds());
  const auto center = inBounds(startPoint_);
  context.translateBy(center.x, center.y);
  context.scaleBy(radiusX, radiusY);
  context.drawRadialGradient(gradient, {0, 0}, 0, {0, 0}, 1, beyondBothEnds);
}

// In wedges too thin to be seen, which have hard edges so that they meet without a gap.
void CAGradientLayer::paintConic(CGContext& context, const CGGradient& gradient) const {
  constexpr int wedges = 1024;
  const auto& box = bounds();
  const auto center = inBounds(startPoint_);
  const auto toEnd = inBounds(endPoint_);
  const auto first = std::atan2(toEnd.y - center.y, toEnd.x - center.x);
  const auto radius =
      2 * (std::hypot(box.width(), box.height()) + std::hypot(center.x - box.midX(), center.y - box.midY()));
  const auto rim = [&](int wedge) {
    const auto angle = first + 2 * std::numbers::pi * wedge / wedges;
    return CGPoint{center.x + radius * std::cos(angle), center.y + radius * std::sin(angle)};
  };
  context.setShouldAntialias(false);
  for (int wedge = 0; wedge < wedges; ++wedge) {
    const auto color = colorAt(gradient.stops(), (wedge + 0.5) / wedges);
    context.setFillColor(CGColor::srgb(color.red, color.green, color.blue, color.alpha));
    context.move(center);
    context.addLine(rim(wedge));
    context.addLine(rim(wedge + 1));
    context.fillPath();
  }
}

}  // namespace bkuk
