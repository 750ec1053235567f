#pragma once

#include "BrenvikUIKit/interaction/BKUKKeyFocusController.h"
#include "platform/appkit/NSControl.h"
#include "platform/appkit/NSTrackingArea.h"

namespace bkuk {

/// What all controls do alike with the pointer, the keyboard and their action. A control owns one, passes
/// itself to each call, and decides when. Holds nothing before the control is used.
class ControlBehavior {
 public:
  /// To be called once, when the control is complete: it is laid out by constraints, and an element without
  /// a role for assistive clients.
  static void prepare(NSControl& control);

  // Pointer

  /// By the pointer's place now, not an event's. The control must be in a window; it is a trap otherwise.
  [[nodiscard]] static bool isPointerInside(const NSControl& control);
  /// Absent while the pointer is not followed.
  [[nodiscard]] const Ref<NSTrackingArea>& trackingArea() const { return trackingArea_; }
  /// Follows the pointer in and out of the control's bounds as they are now, also with a button held.
  /// `activity` says when it counts: one of the options that say where tracking is active.
  void followPointer(NSControl& control, NSTrackingAreaOptions activity);
  void ignorePointer(NSControl& control);

  // Keyboard

  /// Made on first use, as for a button.
  [[nodiscard]] const Ref<BKUKKeyFocusController>& focus(NSControl& control);
  void setFocus(Ref<BKUKKeyFocusController> focus) { focus_ = std::move(focus); }
  [[nodiscard]] static bool isPressKey(const NSEvent& event);

  // Action and selection

  /// What the user set off: the control's own part, then its target's, then its block's.
  template <typename Control>
  static void act(Control& control) {
    const Ref<Control> kept(&control);
    control.performAction();
    control.sendAction(control.action(), control.target().get());
    // The block may replace itself, so a copy is called.
    if (const auto block = control.actionBlock()) block(control);
  }
  /// Tells assistive clients that the control was selected, or no longer is.
  static void announceSelection(NSControl& control);

 private:
  Ref<NSTrackingArea> trackingArea_;
  Ref<BKUKKeyFocusController> focus_;
};

}  // namespace bkuk
