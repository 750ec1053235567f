#pragma once

#include "BrenvikUIKit/drawing/BKUKShadowSettings.h"
#include "BrenvikUIKit/style/BKUKStatefulSettings.h"

namespace bkuk {

/// A shadow by interaction state.
using BKUKStatefulShadows = BKUKStatefulSettings<BKUKShadowSettings>;

/// No shadow in all states.
template <>
const BKUKStatefulShadows& BKUKStatefulShadows::noShadow();

}  // namespace bkuk
