#pragma once

#include "BrenvikUIKit/style/BKUKStatefulSettings.h"

namespace bkuk {

/// A width in points by interaction state.
using BKUKStatefulWidths = BKUKStatefulSettings<double>;

/// The opacity of an image, 0 to 1, by interaction state.
using BKUKStatefulOpacities = BKUKStatefulSettings<float>;

template <>
class BKUKStatefulPresets<float> : public BKUKStatefulPresetsBase {
 public:
  /// An image that is pressed: it brightens under the pointer and fades when it is held or disabled.
  [[nodiscard]] static const BKUKStatefulOpacities& basicImageButton();
};

}  // namespace bkuk
