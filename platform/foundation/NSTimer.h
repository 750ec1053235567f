#pragma once

#include <cstdint>
#include <functional>
#include <variant>

#include "platform/foundation/NSObject.h"

namespace bkuk {

/// Calls a target, or a block, at a date on the host's clock, once or again and again.
///
/// A timer does nothing until it is added to a run loop, which then holds it until it is invalid. Repeating
/// dates do not drift: each is the first multiple of the interval after the last set date that lies later
/// than the return of the callback, so that missed dates are skipped. A timer whose callback runs a nested
/// loop does not fire again before the callback has returned.
class NSTimer final : public NSObject {
 public:
  using Block = std::function<void(NSTimer& timer)>;

  /// The first fire date is one interval after now. Intervals of 0 or less count as 0.0001 seconds. The
  /// target is held until the timer is invalid; its operation `selector` is given the timer.
  NSTimer(double timeInterval, Ref<NSObject> target, Selector selector, Ref<NSObject> userInfo, bool repeats);
  NSTimer(double timeInterval, bool repeats, Block block);

  /// Makes a timer and adds it to the current run loop in the default mode: it does not fire while the loop
  /// runs in another.
  static Ref<NSTimer> scheduledTimer(double timeInterval, Ref<NSObject> target, Selector selector,
                                     Ref<NSObject> userInfo, bool repeats);
  static Ref<NSTimer> scheduledTimer(double timeInterval, bool repeats, Block block);
  /// As above without holding the target: the timer is invalid once the target is gone.
  static Ref<NSTimer> scheduledTimerWithWeakTarget(double timeInterval, NSObject* target, Selector selector,
                                                   Ref<NSObject> userInfo, bool repeats);

  [[nodiscard]] double timeInterval() const { return timeInterval_; }
  [[nodiscard]] bool repeats() const { return repeats_; }
  [[nodiscard]] NSObject* userInfo() const { return userInfo_.get(); }
  [[nodiscard]] bool isValid() const;

  [[nodiscard]] double fireDate() const { return fireDate_; }
  /// Moves the next fire; later dates follow from it. Also brings forward, into the past: the timer then
  /// fires in the next turn.
  void setFireDate(double date);

  /// Seconds by which the fire may be late to save energy. Stored only.
  [[nodiscard]] double tolerance() const { return tolerance_; }
  void setTolerance(double seconds) { tolerance_ = seconds; }

  /// Calls now. A one-shot timer is invalid afterwards, a repeating one keeps its dates.
  void fire();

  /// Takes the timer off its loop and lets go of its target, for good. Allowed in its own callback.
  void invalidate();

 private:
  friend class NSRunLoop;

  struct TargetAction {
    Ref<NSObject> target;
    Selector selector;
  };
  struct WeakTargetAction {
    Weak<NSObject> target;
    Selector selector;
  };
  using Action = std::variant<std::monostate, TargetAction, WeakTargetAction, Block>;

  NSTimer(double timeInterval, Action action, Ref<NSObject> userInfo, bool repeats);
  template <typename T, typename... Args>
  friend Ref<T> make(Args&&... args);

  void callAction();
  void callBlock();
  void advanceFireDate(double now);

  double timeInterval_;
  double fireDate_;
  double anchorDate_;  // the fire date last set; the later ones are whole intervals after it
  double tolerance_ = 0;
  std::uint64_t order_ = 0;  // of scheduling, breaks ties between equal dates
  unsigned modes_ = 0;
  bool repeats_;
  bool isValid_ = true;
  bool isAdded_ = false;   // to the run loop
  bool isQueued_ = false;  // waits in the loop's set, which date and order sort; not while the loop fires it
  bool isFiring_ = false;
  bool fireDateWasSet_ = false;  // since the present callback began
  Action action_;
  Ref<NSObject> userInfo_;
};

}  // namespace bkuk
