#pragma once

#include "platform/appkit/NSView.h"

namespace bkuk {

/// A view that acts for its user: it sends an action to a target, and can be disabled.
class NSControl : public NSView {
 public:
  using NSView::NSView;

  /// Who is told; absent, as at first, for the first of the responder chain that answers the action. Held
  /// weakly.
  [[nodiscard]] virtual Ref<NSObject> target() const { return target_.lock(); }
  virtual void setTarget(NSObject* target) { target_ = target; }
  [[nodiscard]] virtual Selector action() const { return action_; }
  virtual void setAction(Selector action) { action_ = action; }
  /// Performs `action` on `target` with the control as sender. False when the action is absent or nobody
  /// answers it.
  virtual bool sendAction(Selector action, NSObject* target);

  /// For the application's use.
  [[nodiscard]] int tag() const { return tag_; }
  void setTag(int tag) { tag_ = tag; }

  [[nodiscard]] virtual bool isEnabled() const { return enabled_; }
  /// A disabled control that was first responder hands the keyboard to its window.
  virtual void setEnabled(bool enabled);

  [[nodiscard]] bool acceptsFirstResponder() const override { return isEnabled(); }
  /// Only controls that need the keyboard take it by a click, so that a click on a button leaves it where
  /// the user types.
  [[nodiscard]] bool takesFocusOnClick() const override {
    return acceptsFirstResponder() && needsPanelToBecomeKey();
  }

  [[nodiscard]] bool isAccessibilityEnabled() const override { return isEnabled(); }

  /// Ends here while the control is enabled.
  void mouseDown(NSEvent& event) override;

 private:
  Weak<NSObject> target_;
  Selector action_;
  int tag_ = 0;
  bool enabled_ = true;
};

}  // namespace bkuk
