#pragma once

#include "BrenvikUIKit/style/BKUKStatefulSettings.h"
#include "platform/appkit/NSColor.h"

namespace bkuk {

/// A colour by interaction state. The colour objects are shared, and resolve when they are painted.
using BKUKStatefulColors = BKUKStatefulSettings<Ref<NSColor>>;

/// `NSColor::clear()` in all states.
template <>
const BKUKStatefulColors& BKUKStatefulColors::clear();

}  // namespace bkuk
