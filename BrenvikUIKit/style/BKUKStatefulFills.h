#pragma once

#include "BrenvikUIKit/drawing/BKUKFill.h"
#include "BrenvikUIKit/style/BKUKStatefulColors.h"

namespace bkuk {

/// A fill by interaction state.
using BKUKStatefulFills = BKUKStatefulSettings<BKUKFill>;

/// The colours of the states' fills. A normal fill without a colour is a fatal error; another state whose
/// fill has none takes the normal colour.
extern template BKUKStatefulColors BKUKStatefulSettings<BKUKFill>::convertToStatefulColor() const;

}  // namespace bkuk
