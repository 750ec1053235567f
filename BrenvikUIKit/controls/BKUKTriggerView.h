#pragma once

#include <functional>

#include "BrenvikUIKit/interaction/BKUKKeyFocusable.h"
#include "BrenvikUIKit/interaction/BKUKStatefulView.h"
#include "BrenvikUIKit/interaction/ControlBehavior.h"
#include "platform/foundation/NSTimer.h"

namespace bkuk {

/// A push control that repeats: holding the button or the space key fires at once, again after a first
/// delay, and from then on at a short interval, until it is let go, the pointer leaves, the window loses the
/// keyboard while the key is held, or the control leaves the window. While it is unusable it fires nothing.
/// Presses end here: a trigger view inside another control does not press that. Steppers are made of it.
class BKUKTriggerView : public NSControl, public BKUKKeyFocusable {
 public:
  using States = BKUKStatefulView::States;
  using ActionBlock = std::function<void(BKUKTriggerView& view)>;

  using NSControl::NSControl;
  /// A new view of no size: archives keep nothing of a view.
  [[nodiscard]] static Ref<BKUKTriggerView> decoded(NSCoder& coder);
  ~BKUKTriggerView() override;

  /// Called after the target's action on every fire.
  [[nodiscard]] const ActionBlock& actionBlock() const { return actionBlock_; }
  void setActionBlock(ActionBlock block) { actionBlock_ = std::move(block); }
  /// Seconds from the first fire to the second; 0.4 at first.
  [[nodiscard]] double delayAfterFirstTick() const { return delayAfterFirstTick_; }
  void setDelayAfterFirstTick(double seconds) { delayAfterFirstTick_ = seconds; }
  /// Seconds from each further fire to the next; 0.07 at first.
  [[nodiscard]] double delayBetweenTicks() const { return delayBetweenTicks_; }
  void setDelayBetweenTicks(double seconds) { delayBetweenTicks_ = seconds; }

  [[nodiscard]] States state() const { return state_; }
  /// Calls `stateChanged`, also for the state that is.
  void setState(States state);
  /// Called after every assignment of the state; asks for a display here.
  virtual void stateChanged(States state);
  /// Turned over by every completed click.
  [[nodiscard]] bool isSelected() const { return selected_; }
  /// A change tells assistive clients of the value and of the selection.
  void setSelected(bool selected);
  /// As `isSelected` unless it was set.
  [[nodiscard]] bool isAccessibilitySelected() const override;

  [[nodiscard]] const Ref<NSTrackingArea>& trackingArea() const { return behavior_.trackingArea(); }
  /// The one that waits for the second fire, or the one that repeats; absent while nothing is held.
  [[nodiscard]] const Ref<NSTimer>& actionTimer() const { return actionTimer_; }

  /// False makes the view deaf to its user without looking disabled; true at first.
  [[nodiscard]] bool interactive() const { return interactive_; }
  void setInteractive(bool interactive) { interactive_ = interactive; }

  /// The control's own part of a fire, before the target's; nothing here.
  virtual void performAction() {}
  /// One fire. False when the view is not usable.
  bool performUserAction();
  /// What a click that is let go at once does: one fire, and the selection is turned over.
  bool simulateUserAction();
  bool accessibilityPerformPress() override { return simulateUserAction(); }
  /// The second fire, from which on it repeats. Called by the timer.
  void beginFireUserActions();
  /// A repeated fire. Called by the timer.
  void performActionTick();

  void setEnabled(bool enabled) override;
  void setHidden(bool hidden) override;

  [[nodiscard]] const Ref<BKUKKeyFocusController>& focus() override { return behavior_.focus(*this); }
  void setFocus(Ref<BKUKKeyFocusController> focus) { behavior_.setFocus(std::move(focus)); }
  [[nodiscard]] bool canBecomeKeyView() const override;
  bool becomeFirstResponder() override;
  bool resignFirstResponder() override;
  [[nodiscard]] NSRect focusRingMaskBounds() override;
  void drawFocusRingMask() override;

  void mouseDown(NSEvent& event) override;
  void mouseUp(NSEvent& event) override;
  void mouseEntered(NSEvent& event) override;
  void mouseExited(NSEvent& event) override;
  void keyDown(NSEvent& event) override;
  void keyUp(NSEvent& event) override;
  void updateTrackingAreas() override;
  void viewDidMoveToWindow() override;

  [[nodiscard]] std::string className() const override { return "BKUKTriggerView"; }

 protected:
  void didInit() override;
  [[nodiscard]] const SelectorTable& selectors() const override;

 private:
  [[nodiscard]] bool isUsable() const;
  /// What keeps the repeating going.
  enum class Hold { none, pointer, key };

  void startPress(Hold hold);
  void endPress();
  void observeKeyLoss();
  void schedule(double delay, Selector action, bool repeats);

  ActionBlock actionBlock_;
  double delayAfterFirstTick_ = 0.4;
  double delayBetweenTicks_ = 0.07;
  States state_ = States::normal;
  bool selected_ = false;
  bool interactive_ = true;
  ControlBehavior behavior_;
  Ref<NSTimer> actionTimer_;
  Hold hold_ = Hold::none;
  Ref<NSObject> keyLossObserver_;  // while the key is held
};

}  // namespace bkuk
