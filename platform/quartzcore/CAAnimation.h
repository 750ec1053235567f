#pragma once

#include <optional>

#include "platform/quartzcore/CAAction.h"
#include "platform/quartzcore/CAMediaTimingFunction.h"

namespace bkuk {

/// What a layer shows of an animation before it begins and after it has ended.
enum class CAMediaTimingFillMode { removed, forwards, backwards, both };

/// A change of a layer's look over time. A layer animates with a copy, so changing an animation after it was
/// added has no effect.
///
/// Time is counted in seconds on the host's clock. Numbers that make no sense (a duration or repetition
/// below 0 or NaN) count as 0.
class CAAnimation : public CAAction {
 public:
  [[nodiscard]] virtual Ref<CAAnimation> copy() const = 0;

  /// Of one run. 0 becomes the transaction's duration when the animation is added.
  [[nodiscard]] CGFloat duration() const { return timing_.duration; }
  void setDuration(CGFloat seconds) { timing_.duration = seconds; }
  /// None: the transaction's when it is added, else linear.
  [[nodiscard]] const Ref<CAMediaTimingFunction>& timingFunction() const { return timing_.function; }
  void setTimingFunction(Ref<CAMediaTimingFunction> function) { timing_.function = std::move(function); }
  /// The date of the start; 0 stands for the commit after the animation was added.
  [[nodiscard]] CGFloat beginTime() const { return timing_.beginTime; }
  void setBeginTime(CGFloat date) { timing_.beginTime = date; }
  /// How much faster than the clock; 0 stands still.
  [[nodiscard]] CGFloat speed() const { return timing_.speed; }
  void setSpeed(CGFloat speed) { timing_.speed = speed; }
  /// How many runs, also a part of one or infinitely many; 0 counts as 1.
  [[nodiscard]] CGFloat repeatCount() const { return timing_.repeatCount; }
  void setRepeatCount(CGFloat count) { timing_.repeatCount = count; }
  /// Each run goes back to its beginning, which doubles it.
  [[nodiscard]] bool autoreverses() const { return timing_.autoreverses; }
  void setAutoreverses(bool autoreverses) { timing_.autoreverses = autoreverses; }
  [[nodiscard]] CAMediaTimingFillMode fillMode() const { return timing_.fillMode; }
  void setFillMode(CAMediaTimingFillMode mode) { timing_.fillMode = mode; }
  [[nodiscard]] bool isRemovedOnCompletion() const { return timing_.removedOnCompletion; }
  void setRemovedOnCompletion(bool removed) { timing_.removedOnCompletion = removed; }

  /// The fraction of the way `elapsed` seconds after the start; none where nothing of the animation shows.
  [[nodiscard]] std::optional<CGFloat> progress(CGFloat elapsed) const;
  /// Whether it is over `elapsed` seconds after the start.
  [[nodiscard]] bool hasEnded(CGFloat elapsed) const;

  /// The property that it moves.
  [[nodiscard]] virtual std::string_view animatedKey() const = 0;
  /// Fills in what is left open when the animation is added: called with the layer as it is shown.
  virtual void resolveStart(const CALayer& shown) = 0;
  /// Writes the values at that fraction of the way. `shown` is the presentation copy of `model`.
  virtual void apply(CALayer& shown, const CALayer& model, CGFloat progress) const = 0;

  /// Adds itself to the layer under the key.
  void run(std::string_view key, CALayer& layer) override;

 protected:
  CAAnimation() = default;
  CAAnimation(const CAAnimation& other) : CAAction(), timing_(other.timing_) {}

 private:
  struct Timing {
    Ref<CAMediaTimingFunction> function;
    CGFloat duration = 0;
    CGFloat beginTime = 0;
    CGFloat speed = 1;
    CGFloat repeatCount = 0;
    CAMediaTimingFillMode fillMode = CAMediaTimingFillMode::removed;
    bool autoreverses = false;
    bool removedOnCompletion = true;
  };

  [[nodiscard]] CGFloat runLength() const;
  [[nodiscard]] CGFloat activeLength() const;
  [[nodiscard]] CGFloat progressWithin(CGFloat active) const;

  Timing timing_;
};

}  // namespace bkuk
