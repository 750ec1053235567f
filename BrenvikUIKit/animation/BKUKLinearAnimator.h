#pragma once

#include <atomic>
#include <functional>
#include <optional>
#include <vector>

#include "BrenvikUIKit/animation/BKUKLinearAnimationContext.h"
#include "platform/foundation/NSObject.h"

namespace bkuk {

class NSTimer;

/// Delivers the frames of all running animations, 60 a second on the main thread, from one timer that lives
/// only while something animates. Frames that a busy main thread missed are not made up for.
///
/// A frame judges all animations before it advances any of them. First come the last frames of those that
/// end, then the frames of the others, each in the order of their starts. An animation that a callback of a
/// frame starts waits for the next frame.
class BKUKLinearAnimator final : public NSObject {
 public:
  /// One run of a context.
  class AnimationInstance final : public NSObject {
   public:
    explicit AnimationInstance(BKUKLinearAnimationContext& context) : context_(&context) {}

    /// Callable from any thread: no callback follows, but for one that runs already.
    void cancel() { canceled_.store(true, std::memory_order_relaxed); }
    [[nodiscard]] bool isCanceled() const { return canceled_.load(std::memory_order_relaxed); }
    /// Empty once the context is gone.
    [[nodiscard]] Ref<BKUKLinearAnimationContext> context() const { return context_.lock(); }

   private:
    std::atomic<bool> canceled_ = false;
    Weak<BKUKLinearAnimationContext> context_;
  };

  using CancelHandle = std::function<void()>;

  /// Seconds between two frames.
  static constexpr double FrameLength = 1.0 / 60;

  [[nodiscard]] static BKUKLinearAnimator& sharedInstance();

  /// Starts a run of `context` and answers what cancels it; both may happen on any thread. On another than
  /// the main thread the run is registered later, so that it can be cancelled before it is.
  CancelHandle animate(BKUKLinearAnimationContext& context);

  /// In the order of their starts.
  [[nodiscard]] const std::vector<Ref<AnimationInstance>>& animations() const { return animations_; }
  /// The frame timer: none before the first animation, an invalid one while nothing animates.
  [[nodiscard]] const Ref<NSTimer>& timer() const { return timer_; }

 protected:
  [[nodiscard]] const SelectorTable& selectors() const override;

 private:
  using Context = BKUKLinearAnimationContext;
  using Instances = std::vector<Ref<AnimationInstance>>;

  BKUKLinearAnimator() = default;

  void add(Ref<AnimationInstance> instance);
  void ensureTimer();
  void onFrame();
  [[nodiscard]] Instances takeEnding();
  static bool goesOn(const AnimationInstance& instance);
  [[nodiscard]] static bool isAtLastFrame(const Context& context);
  static void deliverLastFrame(const AnimationInstance& instance);
  static void deliverFrame(const AnimationInstance& instance);
  [[nodiscard]] static std::optional<BKUKAnimationPhases> phaseOfFrame(const Context& context);
  static void callBlock(const Context& context);
  static void tell(const Context& context, BKUKAnimationPhases phase);

  Instances animations_;
  Ref<NSTimer> timer_;
};

}  // namespace bkuk
