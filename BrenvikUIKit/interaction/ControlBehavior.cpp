#include "BrenvikUIKit/interaction/ControlBehavior.h"

#include <utility>

#include "BrenvikUIKit/interaction/BKUKKeyCodes.h"
#include "platform/appkit/NSWindow.h"
#include "platform/foundation/Fatal.h"

namespace bkuk {

void ControlBehavior::prepare(NSControl& control) {
  control.setTranslatesAutoresizingMaskIntoConstraints(false);
  control.setAccessibilityRole(NSAccessibilityUnknownRole);
  control.setAccessibilityElement(true);
}

bool ControlBehavior::isPointerInside(const NSControl& control) {
  const auto window = control.window();
  if (!window)
    trap(control.className() + ": asked for the pointer outside of a window; add the view to one before");
  const NSPoint place = control.convertPointFrom(window->mouseLocationOutsideOfEventStream(), nullptr);
  return NSMouseInRect(place, control.bounds(), false);
}

void ControlBehavior::followPointer(NSControl& control, NSTrackingAreaOptions activity) {
  ignorePointer(control);
  trackingArea_ = make<NSTrackingArea>(
      control.bounds(), NSTrackingMouseEnteredAndExited | NSTrackingEnabledDuringMouseDrag | activity,
      &control);
  control.addTrackingArea(trackingArea_);
}

void ControlBehavior::ignorePointer(NSControl& control) {
  if (const auto old = std::exchange(trackingArea_, nullptr)) control.removeTrackingArea(old);
}

const Ref<BKUKKeyFocusController>& ControlBehavior::focus(NSControl& control) {
  if (!focus_) focus_ = make<BKUKKeyFocusController>(&control, BKUKKeyFocusController::Preset::button);
  return focus_;
}

bool ControlBehavior::isPressKey(const NSEvent& event) {
  return event.keyCode() == rawValue(BKUKKeyCodes::space);
}

void ControlBehavior::announceSelection(NSControl& control) {
  const Ref<NSControl> kept(&control);
  NSAccessibilityPostNotification(control, NSAccessibilityValueChangedNotification);
  NSAccessibilityPostNotification(control, NSAccessibilityStateChangedNotification);
}

}  // namespace bkuk
