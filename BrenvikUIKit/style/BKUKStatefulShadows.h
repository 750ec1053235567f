#pragma once

#include "BrenvikUIKit/drawing/BKUKShadowSettings.h"
#include "BrenvikUIKit/style/BKUKStatefulSettings.h"

namespace bkuk {

/// A shadow by interaction state.
using BKUKStatefulShadows = BKUKStatefulSettings<BKUKShadowSettings>;

/// No shadow in all states.
extern template const BKUKStatefulShadows& BKUKStatefulSettings<BKUKShadowSettings>::noShadow();

}  // namespace bkuk
