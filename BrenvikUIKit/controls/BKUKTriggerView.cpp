#include "BrenvikUIKit/controls/BKUKTriggerView.h"

#include <utility>

#include "platform/appkit/NSWindow.h"
#include "platform/appkit/accessibility/AccessibilityRecord.h"
#include "platform/appkit/drawing/NSBezierPath.h"
#include "platform/foundation/NSNotificationCenter.h"

namespace bkuk {

BKUKTriggerView::~BKUKTriggerView() { endPress(); }

Ref<BKUKTriggerView> BKUKTriggerView::decoded(NSCoder&) { return make<BKUKTriggerView>(); }

void BKUKTriggerView::didInit() {
  NSControl::didInit();
  ControlBehavior::prepare(*this);
}

const SelectorTable& BKUKTriggerView::selectors() const {
  static const auto& table = SelectorTable::make(
      NSControl::selectors(), {{"beginFireUserActions", memberAction<&BKUKTriggerView::beginFireUserActions>},
                               {"performActionTick", memberAction<&BKUKTriggerView::performActionTick>}});
  return table;
}

void BKUKTriggerView::setState(States state) {
  state_ = state;
  stateChanged(state);
}

void BKUKTriggerView::stateChanged(States) { setNeedsDisplay(true); }

void BKUKTriggerView::setSelected(bool selected) {
  const bool isChange = std::exchange(selected_, selected) != selected;
  setNeedsDisplay(true);
  if (isChange) ControlBehavior::announceSelection(*this);
}

bool BKUKTriggerView::isAccessibilitySelected() const {
  return AccessibilityRecord::resolved(accessibilityRecord().isSelected, selected_);
}

bool BKUKTriggerView::isUsable() const {
  return state_ != States::disabled && window() && isEnabled() && !isHidden() && interactive_;
}

// Firing

bool BKUKTriggerView::performUserAction() {
  if (!isUsable()) return false;
  ControlBehavior::act(*this);
  return true;
}

bool BKUKTriggerView::simulateUserAction() {
  const Ref<BKUKTriggerView> self(this);
  if (!performUserAction()) return false;
  setSelected(!selected_);
  return true;
}

void BKUKTriggerView::startPress(Hold hold) {
  if (hold_ != Hold::none) return;
  hold_ = hold;
  if (hold == Hold::key) observeKeyLoss();
  performUserAction();
  // The action may have ended the press, or begun another.
  if (hold_ != Hold::none && !actionTimer_) schedule(delayAfterFirstTick_, "beginFireUserActions", false);
}

// The release of a key goes to the window that has the keyboard by then.
void BKUKTriggerView::observeKeyLoss() {
  keyLossObserver_ =
      NSNotificationCenter::default_().addObserver(NSWindowDidResignKeyNotification, window().get(), nullptr,
                                                   [view = Weak<BKUKTriggerView>(this)](NSNotification&) {
                                                     if (const auto self = view.lock()) self->endPress();
                                                   });
}

void BKUKTriggerView::beginFireUserActions() {
  const Ref<BKUKTriggerView> self(this);
  const auto spent = actionTimer_;
  performUserAction();
  // The action may have ended the press, or begun another.
  if (spent && actionTimer_ == spent) schedule(delayBetweenTicks_, "performActionTick", true);
}

void BKUKTriggerView::performActionTick() { performUserAction(); }

void BKUKTriggerView::schedule(double delay, Selector action, bool repeats) {
  actionTimer_ = NSTimer::scheduledTimerWithWeakTarget(delay, this, action, nullptr, repeats);
}

void BKUKTriggerView::endPress() {
  hold_ = Hold::none;
  if (const auto timer = std::exchange(actionTimer_, nullptr)) timer->invalidate();
  if (const auto observer = std::exchange(keyLossObserver_, nullptr)) {
    NSNotificationCenter::default_().removeObserver(observer.get());
  }
}

// Availability

void BKUKTriggerView::setEnabled(bool enabled) {
  const Ref<BKUKTriggerView> self(this);
  NSControl::setEnabled(enabled);
  setState(enabled ? States::normal : States::disabled);
  updateTrackingAreas();
}

void BKUKTriggerView::setHidden(bool hidden) {
  if (hidden == isHidden()) return;
  const Ref<BKUKTriggerView> self(this);
  NSControl::setHidden(hidden);
  updateTrackingAreas();
}

void BKUKTriggerView::viewDidMoveToWindow() {
  const Ref<BKUKTriggerView> self(this);
  NSControl::viewDidMoveToWindow();
  endPress();
  updateTrackingAreas();
}

// Keyboard

bool BKUKTriggerView::canBecomeKeyView() const {
  return isEnabled() && const_cast<BKUKTriggerView*>(this)->focus()->canBecomeKeyView();
}

bool BKUKTriggerView::becomeFirstResponder() {
  const Ref<BKUKTriggerView> self(this);
  return NSControl::becomeFirstResponder() && focus()->becomeFocused();
}

bool BKUKTriggerView::resignFirstResponder() {
  const Ref<BKUKTriggerView> self(this);
  if (!NSControl::resignFirstResponder()) return false;
  // The release of a held key goes to whoever has the keyboard next.
  endPress();
  focus()->resignFocus();
  return true;
}

NSRect BKUKTriggerView::focusRingMaskBounds() { return focus()->focusRingMaskBounds(); }

void BKUKTriggerView::drawFocusRingMask() {
  if (focus()->drawFocusRingMask()) return;
  const CGFloat radius = layer() ? layer()->cornerRadius() : 0;
  NSBezierPath::roundedRect(bounds(), radius, radius)->fill();
}

void BKUKTriggerView::keyDown(NSEvent& event) {
  if (!ControlBehavior::isPressKey(event)) return NSControl::keyDown(event);
  const Ref<BKUKTriggerView> self(this);
  startPress(Hold::key);
}

void BKUKTriggerView::keyUp(NSEvent& event) {
  if (!ControlBehavior::isPressKey(event)) return NSControl::keyUp(event);
  endPress();
}

// Pointer

void BKUKTriggerView::mouseDown(NSEvent&) {
  const Ref<BKUKTriggerView> self(this);
  if (!isUsable()) return;
  setState(States::pressed);
  startPress(Hold::pointer);
}

void BKUKTriggerView::mouseUp(NSEvent&) {
  const Ref<BKUKTriggerView> self(this);
  endPress();
  if (!isUsable()) return;
  if (!ControlBehavior::isPointerInside(*this)) return setState(States::normal);
  setSelected(!selected_);
  setState(States::hover);
}

void BKUKTriggerView::mouseEntered(NSEvent& event) {
  const Ref<BKUKTriggerView> self(this);
  NSControl::mouseEntered(event);
  if (state_ != States::pressed) setState(States::hover);
}

void BKUKTriggerView::mouseExited(NSEvent& event) {
  const Ref<BKUKTriggerView> self(this);
  NSControl::mouseExited(event);
  setState(States::normal);
  endPress();
}

void BKUKTriggerView::updateTrackingAreas() {
  const Ref<BKUKTriggerView> self(this);
  NSControl::updateTrackingAreas();
  behavior_.ignorePointer(*this);
  if (!window() || state_ == States::disabled || !isEnabled() || isHidden()) return;
  behavior_.followPointer(*this, NSTrackingActiveInActiveApp);
  setState(ControlBehavior::isPointerInside(*this) ? States::hover : States::normal);
}

}  // namespace bkuk
