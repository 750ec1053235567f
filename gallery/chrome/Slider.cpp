#include "gallery/chrome/Slider.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "gallery/chrome/Clicking.h"
#include "gallery/chrome/Direction.h"
#include "platform/appkit/NSKeyCode.h"

namespace bkuk::gallery {

namespace {

using Role = BKUKThemeColorRole;

constexpr CGFloat trackThickness = 4;
constexpr CGFloat knobSize = 18;
constexpr CGFloat ringSize = knobSize + 8;
constexpr CGFloat knobPlace = (ringSize - knobSize) / 2;  // room for the ring at both ends

Box::Look roundLook(Role fill, CGFloat thickness) {
  return {.fill = role(fill), .cornerRadius = thickness / 2};
}

}  // namespace

Slider::Slider(Range range, CGFloat value, Handler changed)
    : range_(range), value_(value), changed_(std::move(changed)) {}

void Slider::didInit() {
  NSView::didInit();
  track_ = make<Box>(roundLook(Role::onBackgroundLight, trackThickness));
  filled_ = make<Box>(roundLook(Role::accent, trackThickness));
  focusRing_ = make<Box>(
      Box::Look{.border = role(Role::accentHighContrast), .borderWidth = 2, .cornerRadius = ringSize / 2});
  knob_ = make<Box>(roundLook(Role::accent, knobSize));
  focusRing_->setHidden(true);
  for (const auto& box : {track_, filled_, focusRing_, knob_}) addSubview(box);
}

Ref<NSView> Slider::hitTest(NSPoint point) { return NSView::hitTest(point) ? this : nullptr; }

bool Slider::becomeFirstResponder() {
  focusRing_->setHidden(isClicking());
  scrollToVisible(bounds());
  return true;
}

bool Slider::resignFirstResponder() {
  focusRing_->setHidden(true);
  return true;
}

CGFloat Slider::travel() const { return std::max(1.0, bounds().width() - ringSize); }

void Slider::layout() {
  const CGFloat way = travel() * (value_ - range_.least) / (range_.greatest - range_.least);
  const CGFloat middle = bounds().height() / 2;
  const CGFloat trackTop = middle - trackThickness / 2;
  track_->setFrame({knobPlace, trackTop, bounds().width() - 2 * knobPlace, trackThickness});
  filled_->setFrame(fromLeading(*this, {knobPlace, trackTop, way + knobSize / 2, trackThickness}));
  knob_->setFrame(fromLeading(*this, {knobPlace + way, middle - knobSize / 2, knobSize, knobSize}));
  focusRing_->setFrame(fromLeading(*this, {way, middle - ringSize / 2, ringSize, ringSize}));
}

bool Slider::change(CGFloat value) {
  const CGFloat next = std::clamp(value, range_.least, range_.greatest);
  if (next == std::exchange(value_, next)) return true;
  const Ref<Slider> self(this);
  setNeedsLayout(true);
  NSAccessibilityPostNotification(*this, NSAccessibilityValueChangedNotification);
  if (changed_) changed_(value_);
  return true;
}

CGFloat Slider::valueAt(NSPoint point) const {
  const CGFloat x = isRightToLeft(*this) ? bounds().width() - point.x : point.x;
  return range_.least + (range_.greatest - range_.least) * (x - ringSize / 2) / travel();
}

void Slider::mouseDown(NSEvent& event) {
  const NSPoint point = convertPointFrom(event.locationInWindow(), nullptr);
  const bool holdsKnob = NSPointInRect(point, knob_->frame());
  grip_ = holdsKnob ? knob_->frame().midX() - point.x : 0;
  if (!holdsKnob) change(valueAt(point));
}

void Slider::mouseDragged(NSEvent& event) {
  const NSPoint point = convertPointFrom(event.locationInWindow(), nullptr);
  change(valueAt({point.x + grip_, point.y}));
}

void Slider::keyDown(NSEvent& event) {
  focusRing_->setHidden(false);
  const CGFloat right = isRightToLeft(*this) ? -range_.step : range_.step;
  switch (event.keyCode()) {
    case NSKeyCode::right:
      change(value_ + right);
      break;
    case NSKeyCode::left:
      change(value_ - right);
      break;
    case NSKeyCode::up:
      change(value_ + range_.step);
      break;
    case NSKeyCode::down:
      change(value_ - range_.step);
      break;
    case NSKeyCode::home:
      change(range_.least);
      break;
    case NSKeyCode::end:
      change(range_.greatest);
      break;
    default:
      return NSView::keyDown(event);
  }
}

}  // namespace bkuk::gallery
