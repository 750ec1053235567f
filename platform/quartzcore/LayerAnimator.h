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
  /// The time for which layers are shown; does not ask the host before the first animation.
  [[nodiscard]] double time() const;
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
  bool hasAnimated_ = false;
};

}  // namespace bkuk
