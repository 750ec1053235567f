#pragma once

#include "BrenvikUIKit/interaction/BKUKInteractionState.h"

namespace bkuk {

/// Hears of the interaction state under the pointer.
class BKUKCursorResponder {
 public:
  virtual ~BKUKCursorResponder() = default;
  virtual void stateChanged(BKUKInteractionState state) = 0;
};

}  // namespace bkuk
