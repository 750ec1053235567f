#pragma once

#include <vector>

#include "platform/foundation/NSTimer.h"
#include "platform/foundation/Weak.h"

namespace bkuk {

class CALayer;
class CARenderer;

/// Moves the animations of all layers: starts them at commit and steps them 60 times a second, with a timer
/// that lives only while something animates.
class LayerAnimator {
 public:
  [[nodiscard]] static LayerAnimator& shared();

  /// A layer got an animation that waits for its start.
  void addUnstarted(CALayer& layer);
  [[nodiscard]] bool hasUnstarted() const { return !unstarted_.empty(); }
  /// The time for which layers are shown: that of the frame on the screen, from one to the next. All that
  /// asks where a layer is between two frames must get the same answer, or what it painted stays behind.
  [[nodiscard]] double time() const { return frameTime_; }
  /// Starts what waits in the tree of that renderer.
  void start(const CARenderer& renderer);
  /// Ends what still waits: those layers hang in no window.
  void dropUnstarted();

 private:
  using Layers = std::vector<Weak<CALayer>>;

  void ensureTimer(double now);
  void step();

  Layers unstarted_;
  Layers running_;
  Ref<NSTimer> timer_;
  double frameTime_ = 0;
};

}  // namespace bkuk
