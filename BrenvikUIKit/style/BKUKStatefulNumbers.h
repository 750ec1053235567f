#pragma once

#include "BrenvikUIKit/style/BKUKStatefulSettings.h"

namespace bkuk {

/// A width in points by interaction state.
using BKUKStatefulWidths = BKUKStatefulSettings<double>;

/// The opacity of an image, 0 to 1, by interaction state.
using BKUKStatefulOpacities = BKUKStatefulSettings<float>;

/// An image that is pressed: it brightens under the pointer and fades when it is held or disabled.
extern template const BKUKStatefulOpacities& BKUKStatefulSettings<float>::basicImageButton();

}  // namespace bkuk
