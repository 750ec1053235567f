#pragma once

#include "BrenvikUIKit/drawing/BKUKShadowSettings.h"
#include "BrenvikUIKit/style/BKUKStatefulSettings.h"

namespace bkuk {

/// A shadow by interaction state.
using BKUKStatefulShadows = BKUKStatefulSettings<BKUKShadowSettings>;

template <>
class BKUKStatefulPresets<BKUKShadowSettings> : public BKUKStatefulPresetsBase {
 public:
  /// No shadow in all states.
  [[nodiscard]] static const BKUKStatefulShadows& noShadow();
};

}  // namespace bkuk
