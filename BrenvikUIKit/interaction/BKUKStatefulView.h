#pragma once

#include <functional>

#include "BrenvikUIKit/drawing/BKUKShapeLayer.h"
#include "BrenvikUIKit/interaction/BKUKCursorResponder.h"
#include "BrenvikUIKit/interaction/BKUKKeyFocusable.h"
#include "BrenvikUIKit/interaction/BKUKStatefulViewDelegate.h"
#include "BrenvikUIKit/interaction/BKUKTooltipDisplaying.h"
#include "BrenvikUIKit/interaction/ControlBehavior.h"
#include "BrenvikUIKit/interaction/MulticastDelegate.h"

namespace bkuk {

class NSCoder;

/// The base of every interactive control: follows the pointer, the keyboard and its own enabled flag through
/// four states, and fires its action on a completed click, on the space key and on an assistive press.
///
/// Appearance is looked up elsewhere by the state that this view exposes. Wherever it matters whether the
/// pointer is inside, the pointer's place now counts, not an event's.
class BKUKStatefulView : public NSControl, public BKUKCursorResponder, public BKUKKeyFocusable {
 public:
  using States = BKUKInteractionState;
  using Delegates = MulticastDelegate<BKUKStatefulViewDelegate>;
  using ActionBlock = std::function<void(BKUKStatefulView& view)>;

  using NSControl::NSControl;
  /// A new view of no size: archives keep nothing of a view.
  [[nodiscard]] static Ref<BKUKStatefulView> decoded(NSCoder& coder);
  ~BKUKStatefulView() override;

  // State

  [[nodiscard]] virtual States state() const { return state_; }
  /// A change tells the delegates, then calls `stateChanged`. Assistive clients are told when the view
  /// becomes enabled or disabled by it.
  virtual void setState(States state);
  /// Called after every change of state; asks for a display here.
  void stateChanged(States state) override;
  /// Made on first use. Listeners are not kept alive.
  [[nodiscard]] virtual const Ref<Delegates>& delegates();
  virtual void setDelegates(Ref<Delegates> delegates) { delegates_ = std::move(delegates); }

  [[nodiscard]] virtual bool isSelected() const { return selected_; }
  /// Asks for a display. A change tells assistive clients of the value and of the selection.
  virtual void setSelected(bool selected);
  /// As `isSelected` unless it was set.
  [[nodiscard]] bool isAccessibilitySelected() const override;

  /// Whether the pointer and clicks count also while the window is not key; false at first. Takes effect
  /// with the next update of the tracking area.
  [[nodiscard]] virtual bool registerStateWhenWindowInactive() const { return registersWhenInactive_; }
  virtual void setRegisterStateWhenWindowInactive(bool registers) { registersWhenInactive_ = registers; }
  /// Whether the pointer counts as inside also where another view covers this one; false at first.
  [[nodiscard]] virtual bool changeStateWhenNotHittable() const { return changesWhenNotHittable_; }
  virtual void setChangeStateWhenNotHittable(bool changes) { changesWhenNotHittable_ = changes; }

  // Action

  /// Called after the target's action on every user action.
  [[nodiscard]] virtual const ActionBlock& actionBlock() const { return actionBlock_; }
  virtual void setActionBlock(ActionBlock block) { actionBlock_ = std::move(block); }
  /// False makes the view deaf to its user without looking disabled.
  [[nodiscard]] virtual bool acceptsUserAction() const { return true; }
  /// Whether a user action turns `isSelected` over.
  [[nodiscard]] virtual bool shouldUserEventChangeSelection() const { return true; }
  /// The control's own part of a user action, before the target's; nothing here.
  virtual void performAction() {}
  /// What a click does: selection, `performAction`, the target's action, the block. False when the view is
  /// disabled or accepts no action.
  virtual bool performUserAction();
  bool accessibilityPerformPress() override { return performUserAction(); }

  /// Disabling is the state `disabled`.
  [[nodiscard]] bool isEnabled() const override { return state() != States::disabled; }
  void setEnabled(bool enabled) override;
  void setHidden(bool hidden) override;

  // Tooltip

  /// Whoever shows the tooltip, made on first use; none while the application has no displayer.
  [[nodiscard]] virtual const Ref<BKUKTooltipDisplaying>& displayer();
  [[nodiscard]] bool displayerActive() const { return static_cast<bool>(displayer_); }
  /// What the tooltip shows, and what makes it; for the displayer's use.
  [[nodiscard]] virtual const Ref<NSObject>& toolTipDisplayContext() const { return toolTipDisplayContext_; }
  virtual void setToolTipDisplayContext(Ref<NSObject> context);
  [[nodiscard]] virtual const Ref<NSObject>& toolTipCreationContext() const {
    return toolTipCreationContext_;
  }
  virtual void setToolTipCreationContext(Ref<NSObject> context);
  /// Asked before a tooltip shows; absent for always.
  [[nodiscard]] virtual const std::function<bool()>& shouldShowTooltip() const { return shouldShowTooltip_; }
  virtual void setShouldShowTooltip(std::function<bool()> should) { shouldShowTooltip_ = std::move(should); }
  virtual void showTooltip();
  virtual void hideTooltip();
  virtual void updateTooltipTimer(bool entering);

  // Shape

  /// The layer that draws the control and masks its focus ring, made on first use.
  [[nodiscard]] virtual const Ref<BKUKShapeLayer>& shapeLayer();
  /// Adds the shape layer on top of `layer`, with its bounds as frame.
  virtual void addShapeLayerInto(CALayer& layer);
  /// The shape, without making one.
  [[nodiscard]] virtual Ref<BKUKShape> _shape() const;
  /// Made, with its layer, on first use.
  [[nodiscard]] virtual Ref<BKUKShape> shape();

  // Keyboard

  /// Made on first use, as for a button.
  [[nodiscard]] const Ref<BKUKKeyFocusController>& focus() override { return behavior_.focus(*this); }
  virtual void setFocus(Ref<BKUKKeyFocusController> focus) { behavior_.setFocus(std::move(focus)); }
  [[nodiscard]] bool acceptsFirstResponder() const override { return isEnabled(); }
  [[nodiscard]] bool canBecomeKeyView() const override;
  bool becomeFirstResponder() override;
  bool resignFirstResponder() override;
  [[nodiscard]] NSRect focusRingMaskBounds() override;
  void drawFocusRingMask() override;
  void keyDown(NSEvent& event) override;

  // Pointer

  [[nodiscard]] bool acceptsFirstMouse(NSEvent&) const override { return registerStateWhenWindowInactive(); }
  [[nodiscard]] Ref<NSView> hitTest(NSPoint point) override;
  void mouseDown(NSEvent& event) override;
  void mouseUp(NSEvent& event) override;
  void mouseEntered(NSEvent& event) override;
  void mouseExited(NSEvent& event) override;
  void updateTrackingAreas() override;
  /// The one area that the view owns; absent while it needs none.
  [[nodiscard]] const Ref<NSTrackingArea>& trackingArea() const { return behavior_.trackingArea(); }
  void viewDidMoveToWindow() override;

  // Drawing

  [[nodiscard]] bool wantsUpdateLayer() const override { return true; }
  /// Makes all shapes in the view's layers follow.
  void updateLayer() override;

  [[nodiscard]] std::string className() const override { return "BKUKStatefulView"; }

 protected:
  void didInit() override;
  /// Puts in a shape layer that was asked for before.
  void didMakeBackingLayer() override;

 private:
  [[nodiscard]] bool isHittableAtPointer();
  void ignorePointer();
  [[nodiscard]] bool holdsTooltipWhileDisabled() const;

  States state_ = States::normal;
  bool selected_ = false;
  bool registersWhenInactive_ = false;
  bool changesWhenNotHittable_ = false;
  ActionBlock actionBlock_;
  Ref<Delegates> delegates_;
  ControlBehavior behavior_;
  Ref<BKUKTooltipDisplaying> displayer_;
  Ref<NSObject> toolTipDisplayContext_;
  Ref<NSObject> toolTipCreationContext_;
  std::function<bool()> shouldShowTooltip_;
  Ref<BKUKShapeLayer> shapeLayer_;
};

}  // namespace bkuk
