#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

#include "BrenvikUIKit/animation/BKUKAnimationPhases.h"
#include "platform/foundation/NSObject.h"

namespace bkuk {

/// An animation that is counted in frames: how long it runs and what it calls on the way.
///
/// Whoever animates owns a context and starts it; the animator only refers to it, so that letting go of the
/// context ends the animation without further calls. Main thread only, but for the start of a context that is
/// not animating yet, and the stop of one that the same thread has just started.
class BKUKLinearAnimationContext : public NSObject {
 public:
  using Block = std::function<void()>;
  using PhaseHandler = std::function<void(BKUKAnimationPhases phase)>;
  using CancelHandle = std::function<void()>;

  /// Frames are counted from 1. Without `animationFrames` the animation runs until it is stopped. From
  /// `startingFrame` on the block is called on every frame that is a multiple of `frameSpacing`, which must
  /// not be 0, and in any case on the last one.
  BKUKLinearAnimationContext(std::optional<std::uint32_t> animationFrames, std::uint32_t startingFrame,
                             std::uint32_t frameSpacing)
      : animationFrames_(animationFrames), startingFrame_(startingFrame), frameSpacing_(frameSpacing) {}

  /// Starts from frame 0. A context that is animating gets a second run beside the first; both advance it.
  void startAnimating();
  /// Ends the run that was started last: nothing is called any more, and the next frame finds it stopped.
  void stopAnimating();

  /// From the start until the animator drops the animation.
  [[nodiscard]] bool isAnimating() const { return isAnimating_; }
  /// The number of the last frame delivered. Beyond 32 bits the process stops.
  [[nodiscard]] std::uint32_t currentFrame() const { return currentFrame_; }
  void setCurrentFrame(std::uint32_t frame) { currentFrame_ = frame; }
  [[nodiscard]] std::uint32_t animationStartingFrame() const { return startingFrame_; }
  [[nodiscard]] const std::optional<std::uint32_t>& animationFrames() const { return animationFrames_; }
  [[nodiscard]] std::uint32_t frameSpacing() const { return frameSpacing_; }

  /// The work of a frame. A frame that finds none stops the process.
  [[nodiscard]] Block block() const { return block_ ? *block_ : Block(); }
  void setBlock(Block block) { block_ = shared(std::move(block)); }
  /// Told of the starting frame, if that is not 0, of the middle and of the end; only of the first where
  /// they coincide.
  [[nodiscard]] PhaseHandler phaseHandler() const { return phaseHandler_ ? *phaseHandler_ : PhaseHandler(); }
  void setPhaseHandler(PhaseHandler handler) { phaseHandler_ = shared(std::move(handler)); }
  /// Cancels the run that was started last; empty before the first.
  [[nodiscard]] const CancelHandle& cancelable() const { return cancelable_; }

 private:
  friend class BKUKLinearAnimator;

  template <typename Callback>
  static std::shared_ptr<const Callback> shared(Callback callback) {
    return callback ? std::make_shared<const Callback>(std::move(callback)) : nullptr;
  }

  std::optional<std::uint32_t> animationFrames_;
  std::uint32_t startingFrame_;
  std::uint32_t frameSpacing_;
  std::uint32_t currentFrame_ = 0;
  bool isAnimating_ = false;
  // Shared with the frame that calls them, so that they may be replaced while they run.
  std::shared_ptr<const Block> block_;
  std::shared_ptr<const PhaseHandler> phaseHandler_;
  CancelHandle cancelable_;
};

}  // namespace bkuk
