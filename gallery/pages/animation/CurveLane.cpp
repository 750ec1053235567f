#include "gallery/pages/animation/CurveLane.h"

#include "gallery/chrome/Captions.h"
#include "gallery/chrome/Described.h"
#include "gallery/chrome/Direction.h"

namespace bkuk::gallery {

namespace {

using Role = BKUKThemeColorRole;

constexpr CGFloat plotSize = 36;
constexpr CGFloat plotInset = 6;
constexpr CGFloat nameStart = plotSize + 14;
constexpr CGFloat laneStart = 244;
constexpr CGFloat laneHeight = 6;
constexpr CGFloat dotSize = 20;
constexpr CGFloat printSize = 10;
constexpr int intervals = 12;

constexpr NSRect plotFrame{0, (CurveLane::height - plotSize) / 2, plotSize, plotSize};

}  // namespace

CurveLane::CurveLane(std::string_view curve)
    : curve_(make<CAMediaTimingFunction>(curve)),
      name_(makeHeading(std::string(curve), role(Role::onSurface))),
      dot_(make<Box>(Box::Look{.fill = role(Role::accent), .cornerRadius = dotSize / 2})) {}

void CurveLane::didInit() {
  NSView::didInit();
  describeImage(*this, name_->text());
  const auto shadow = make<NSShadow>();
  shadow->setShadowOffset({0, -2});
  shadow->setShadowBlurRadius(3);
  dot_->setShadow(shadow);
  addSubview(name_);
  addSubview(dot_);
}

void CurveLane::travel(CGFloat seconds) {
  isAway_ = !isAway_;
  BKUKAnimate(seconds, curve_, [this] { placeDot(); });
}

void CurveLane::reset() {
  isAway_ = false;
  dot_->layer()->removeAllAnimations();
  placeDot();
}

NSRect CurveLane::dotFrame(CGFloat way) const {
  const CGFloat distance = bounds().width() - laneStart - dotSize;
  return fromLeading(*this, {laneStart + way * distance, (height - dotSize) / 2, dotSize, dotSize});
}

void CurveLane::layout() {
  name_->setFrame(fromLeading(*this, {nameStart, 0, laneStart - nameStart, height}));
  placeDot();
}

void CurveLane::draw(NSRect) {
  drawPlot();
  drawLane();
}

// The plot reads from left to right in every language, as plots do.
void CurveLane::drawPlot() const {
  const NSRect frame = fromLeading(*this, plotFrame);
  role(Role::surfaceStateB)()->setFill();
  NSBezierPath::roundedRect(frame, 8, 8)->fill();
  const NSRect box = frame.insetBy(plotInset, plotInset);
  const auto at = [&](NSPoint point) {
    return NSPoint{box.minX() + point.x * box.width(), box.maxY() - point.y * box.height()};
  };
  const auto path = make<NSBezierPath>();
  path->move(at({0, 0}));
  path->curve(at({1, 1}), at(curve_->controlPoint1()), at(curve_->controlPoint2()));
  path->setLineWidth(2);
  path->setLineCapStyle(NSLineCapStyle::round);
  role(Role::accent)()->setStroke();
  path->stroke();
}

void CurveLane::drawLane() const {
  const NSRect ends = dotFrame(0).united(dotFrame(1));
  role(Role::onSurfaceExtraLight)()->setFill();
  NSBezierPath::roundedRect(ends.insetBy(0, (dotSize - laneHeight) / 2), laneHeight / 2, laneHeight / 2)
      ->fill();
  role(Role::highlightAccent)()->setFill();
  for (int i = 0; i <= intervals; ++i) {
    const NSRect place = dotFrame(curve_->evaluate(static_cast<CGFloat>(i) / intervals));
    NSBezierPath::ovalIn(place.insetBy((dotSize - printSize) / 2, (dotSize - printSize) / 2))->fill();
  }
}

}  // namespace bkuk::gallery
