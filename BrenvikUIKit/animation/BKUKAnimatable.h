#pragma once

#include <functional>

#include "BrenvikUIKit/animation/BKUKAnimationPhases.h"

namespace bkuk {

/// What animates by itself. An implementer that overrides `startAnimating` brings the form without arguments
/// along: `using BKUKAnimatable::startAnimating;`
class BKUKAnimatable {
 public:
  using PhaseHandler = std::function<void(BKUKAnimationPhases phase)>;

  virtual ~BKUKAnimatable() = default;

  /// The handler may be empty.
  virtual void startAnimating(PhaseHandler phaseHandler) = 0;
  void startAnimating() { startAnimating(PhaseHandler()); }
  virtual void stopAnimating() = 0;
  /// Does nothing unless it is overridden.
  virtual void restartAnimating() {}
};

}  // namespace bkuk
