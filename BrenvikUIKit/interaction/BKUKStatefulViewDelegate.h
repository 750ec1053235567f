#pragma once

#include "BrenvikUIKit/interaction/BKUKInteractionState.h"

namespace bkuk {

class BKUKStatefulView;

/// Hears of a stateful view's changes. Held weakly: an object derived from `NSObject` implements it.
class BKUKStatefulViewDelegate {
 public:
  virtual ~BKUKStatefulViewDelegate() = default;
  /// `state` is the view's at the time of the call.
  virtual void stateChanged(BKUKInteractionState state, BKUKStatefulView& sender) = 0;
};

}  // namespace bkuk
