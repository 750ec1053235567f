#pragma once

#include "BrenvikUIKit/drawing/BKUKFill.h"
#include "BrenvikUIKit/style/BKUKStatefulColors.h"

namespace bkuk {

/// A fill by interaction state.
using BKUKStatefulFills = BKUKStatefulSettings<BKUKFill>;

template <>
class BKUKStatefulPresets<BKUKFill> : public BKUKStatefulPresetsBase {
 public:
  /// Nothing is painted in any state: `BKUKFill::clear()`.
  [[nodiscard]] static const BKUKStatefulFills& clear();

  /// A fill of each state's colour; all four states have their own.
  [[nodiscard]] static BKUKStatefulFills make(const std::same_as<BKUKStatefulColors> auto& colors) {
    return colors.map(BKUKFill::color);
  }

  /// The colours of the states' fills. A normal fill without a colour is a fatal error; another state whose
  /// fill has none takes the normal colour.
  [[nodiscard]] BKUKStatefulColors convertToStatefulColor() const;
};

}  // namespace bkuk
