#pragma once

#include "BrenvikUIKit/drawing/BKUKFill.h"
#include "BrenvikUIKit/style/BKUKStatefulColors.h"

namespace bkuk {

/// A fill by interaction state.
using BKUKStatefulFills = BKUKStatefulSettings<BKUKFill>;

/// A transparent fill in all states.
template <>
const BKUKStatefulFills& BKUKStatefulFills::clear();

/// The colours of the states' fills. A normal fill without a colour is a fatal error; another state whose
/// fill has none takes the normal colour.
template <>
BKUKStatefulColors BKUKStatefulFills::convertToStatefulColor() const;

}  // namespace bkuk
