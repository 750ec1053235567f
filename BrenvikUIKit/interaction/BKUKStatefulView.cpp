#include "BrenvikUIKit/interaction/BKUKStatefulView.h"

#include <utility>
#include <vector>

#include "platform/appkit/NSWindow.h"
#include "platform/appkit/accessibility/AccessibilityRecord.h"
#include "platform/appkit/drawing/NSBezierPath.h"
#include "platform/appkit/drawing/NSGraphicsContext.h"

namespace bkuk {

BKUKStatefulView::~BKUKStatefulView() = default;

Ref<BKUKStatefulView> BKUKStatefulView::decoded(NSCoder&) { return make<BKUKStatefulView>(); }

void BKUKStatefulView::didInit() {
  NSControl::didInit();
  ControlBehavior::prepare(*this);
}

// State

void BKUKStatefulView::setState(States state) {
  const States before = std::exchange(state_, state);
  if (before == state) return;
  const Ref<BKUKStatefulView> self(this);
  if ((before == States::disabled) != (state == States::disabled)) {
    NSAccessibilityPostNotification(*this, NSAccessibilityStateChangedNotification);
  }
  // Not through `delegates()`: nobody listens to a view whose list was never made.
  if (const auto listeners = delegates_) {
    listeners->invoke(
        [this](BKUKStatefulViewDelegate& delegate) { delegate.stateChanged(this->state(), *this); });
  }
  stateChanged(this->state());
}

void BKUKStatefulView::stateChanged(States) { setNeedsDisplay(true); }

const Ref<BKUKStatefulView::Delegates>& BKUKStatefulView::delegates() {
  if (!delegates_) delegates_ = make<Delegates>();
  return delegates_;
}

void BKUKStatefulView::setSelected(bool selected) {
  const bool isChange = std::exchange(selected_, selected) != selected;
  setNeedsDisplay(true);
  if (isChange) ControlBehavior::announceSelection(*this);
}

bool BKUKStatefulView::isAccessibilitySelected() const {
  return AccessibilityRecord::resolved(accessibilityRecord().isSelected, isSelected());
}

void BKUKStatefulView::setEnabled(bool enabled) {
  if (enabled == isEnabled()) return;
  const Ref<BKUKStatefulView> self(this);
  setState(enabled ? States::normal : States::disabled);
  if (enabled || holdsTooltipWhileDisabled()) {
    updateTrackingAreas();
  } else {
    ignorePointer();
  }
  NSControl::setEnabled(enabled);
}

void BKUKStatefulView::setHidden(bool hidden) {
  const Ref<BKUKStatefulView> self(this);
  NSControl::setHidden(hidden);
  if (hidden) {
    ignorePointer();
  } else {
    updateTrackingAreas();
  }
}

// Action

bool BKUKStatefulView::performUserAction() {
  if (state() == States::disabled || !acceptsUserAction()) return false;
  const Ref<BKUKStatefulView> self(this);
  if (shouldUserEventChangeSelection()) setSelected(!isSelected());
  ControlBehavior::act(*this);
  return true;
}

// Tooltip

const Ref<BKUKTooltipDisplaying>& BKUKStatefulView::displayer() {
  if (!displayer_ && BKUKTooltipDisplaying::makeDisplayer) {
    displayer_ = BKUKTooltipDisplaying::makeDisplayer(*this);
  }
  return displayer_;
}

void BKUKStatefulView::setToolTipDisplayContext(Ref<NSObject> context) {
  toolTipDisplayContext_ = std::move(context);
}

void BKUKStatefulView::setToolTipCreationContext(Ref<NSObject> context) {
  toolTipCreationContext_ = std::move(context);
}

void BKUKStatefulView::showTooltip() {
  if (const auto shown = displayer()) shown->showTooltip();
}

void BKUKStatefulView::hideTooltip() {
  if (const auto shown = displayer_) shown->hideTooltip();
}

void BKUKStatefulView::updateTooltipTimer(bool entering) {
  if (const auto shown = displayer_) shown->updateTooltipTimer(entering);
}

bool BKUKStatefulView::holdsTooltipWhileDisabled() const {
  return displayer_ && displayer_->showsOnDisabledViews();
}

// Shape

const Ref<BKUKShapeLayer>& BKUKStatefulView::shapeLayer() {
  if (!shapeLayer_) {
    shapeLayer_ = make<BKUKShapeLayer>();
    if (layer()) addShapeLayerInto(*layer());
  }
  return shapeLayer_;
}

void BKUKStatefulView::didMakeBackingLayer() {
  NSControl::didMakeBackingLayer();
  if (shapeLayer_) addShapeLayerInto(*layer());
}

void BKUKStatefulView::addShapeLayerInto(CALayer& layer) {
  shapeLayer()->setFrame(layer.bounds());
  layer.addSublayer(shapeLayer());
}

Ref<BKUKShape> BKUKStatefulView::_shape() const { return shapeLayer_ ? shapeLayer_->shape() : nullptr; }

Ref<BKUKShape> BKUKStatefulView::shape() { return shapeLayer()->shape(); }

// Keyboard

bool BKUKStatefulView::canBecomeKeyView() const {
  return isEnabled() && const_cast<BKUKStatefulView*>(this)->focus()->canBecomeKeyView();
}

bool BKUKStatefulView::becomeFirstResponder() {
  const Ref<BKUKStatefulView> self(this);
  if (!NSControl::becomeFirstResponder() || !focus()->becomeFocused()) return false;
  if (acceptsFirstResponder() && state() != States::pressed && state() != States::disabled) {
    setState(States::hover);
    setNeedsDisplay(true);
  }
  return true;
}

bool BKUKStatefulView::resignFirstResponder() {
  const Ref<BKUKStatefulView> self(this);
  if (!NSControl::resignFirstResponder()) return false;
  focus()->resignFocus();
  if (state() != States::pressed && state() != States::disabled) setState(States::normal);
  setNeedsDisplay(true);
  return true;
}

NSRect BKUKStatefulView::focusRingMaskBounds() { return focus()->focusRingMaskBounds(); }

void BKUKStatefulView::drawFocusRingMask() {
  if (focus()->drawFocusRingMask()) return;
  if (shapeLayer_ && shapeLayer_->path()) {
    const auto context = NSGraphicsContext::current();
    if (!context) return;
    context->cgContext()->addPath(*shapeLayer_->path());
    return context->cgContext()->fillPath();
  }
  if (!layer()) {
    const auto context = NSGraphicsContext::current();
    return NSRectFillUsingOperation(
        bounds(), context ? context->compositingOperation() : NSCompositingOperation::sourceOver);
  }
  const auto outline =
      NSBezierPath::roundedRect(layer()->bounds(), layer()->cornerRadius(), layer()->cornerRadius());
  outline->transform(CATransform3DGetAffineTransform(layer()->transform()));
  outline->fill();
}

void BKUKStatefulView::keyDown(NSEvent& event) {
  if (!ControlBehavior::isPressKey(event)) return NSControl::keyDown(event);
  performUserAction();
}

// Pointer

bool BKUKStatefulView::isHittableAtPointer() {
  const auto window = this->window();
  if (!window) return false;
  const auto hit = window->contentView()->hitTest(window->mouseLocationOutsideOfEventStream());
  return hit && hit->isDescendantOf(*this);
}

Ref<NSView> BKUKStatefulView::hitTest(NSPoint point) {
  const auto hit = NSControl::hitTest(point);
  if (!hit || !registerStateWhenWindowInactive()) return hit;
  const auto window = this->window();
  if (!window || window->isKeyWindow() || hit == this) return hit;
  // In a window that is not key the control takes the clicks of what merely lies on it.
  const auto control = as<BKUKStatefulView>(hit);
  return control && control->registerStateWhenWindowInactive() ? hit : Ref<NSView>(this);
}

void BKUKStatefulView::mouseDown(NSEvent&) {
  const Ref<BKUKStatefulView> self(this);
  if (state() == States::disabled || !ControlBehavior::isPointerInside(*this)) return;
  setState(States::pressed);
  setNeedsDisplay(true);
}

void BKUKStatefulView::mouseUp(NSEvent&) {
  const Ref<BKUKStatefulView> self(this);
  if (state() == States::disabled) return;
  if (ControlBehavior::isPointerInside(*this)) {
    performUserAction();
    if (state() != States::disabled) setState(States::hover);
  } else {
    setState(States::normal);
  }
  setNeedsDisplay(true);
}

void BKUKStatefulView::mouseEntered(NSEvent&) {
  const Ref<BKUKStatefulView> self(this);
  if (!changeStateWhenNotHittable() && !isHittableAtPointer()) return;
  if (state() == States::pressed) return;
  updateTooltipTimer(true);
  if (state() == States::disabled) return;
  setState(States::hover);
  setNeedsDisplay(true);
}

void BKUKStatefulView::mouseExited(NSEvent&) {
  const Ref<BKUKStatefulView> self(this);
  hideTooltip();
  if (state() == States::disabled) return;
  setState(States::normal);
  setNeedsDisplay(true);
}

void BKUKStatefulView::ignorePointer() {
  hideTooltip();
  behavior_.ignorePointer(*this);
}

void BKUKStatefulView::updateTrackingAreas() {
  const Ref<BKUKStatefulView> self(this);
  if (state() == States::disabled && !holdsTooltipWhileDisabled()) return hideTooltip();
  hideTooltip();
  if (!window()) return;
  behavior_.followPointer(
      *this, registerStateWhenWindowInactive() ? NSTrackingActiveAlways : NSTrackingActiveInKeyWindow);
  if (state() != States::disabled) {
    setState(ControlBehavior::isPointerInside(*this) ? States::hover : States::normal);
  }
  NSControl::updateTrackingAreas();
}

void BKUKStatefulView::viewDidMoveToWindow() {
  NSControl::viewDidMoveToWindow();
  const auto window = this->window();
  // One that is not shown yet asks for it when it is.
  if (window && window->isVisible()) {
    updateTrackingAreas();
  } else {
    ignorePointer();
  }
}

// Drawing

void BKUKStatefulView::updateLayer() {
  // None where a subclass took the view out before it called this.
  if (!layer()) return;
  const auto markShape = [](const Ref<CALayer>& each) {
    if (as<BKUKShapeLayer>(each)) each->setNeedsDisplay();
  };
  const bool isBare = layer()->sublayers().empty() && !layer()->mask();
  if (isBare) return markShape(layer());
  std::vector<Ref<CALayer>> waiting{layer()};
  while (!waiting.empty()) {
    const Ref<CALayer> each = std::move(waiting.back());
    waiting.pop_back();
    markShape(each);
    const auto& below = each->sublayers();
    waiting.insert(waiting.end(), below.rbegin(), below.rend());
    if (each->mask()) waiting.push_back(each->mask());
  }
}

}  // namespace bkuk
