#pragma once

#include "BrenvikUIKit/style/BKUKStatefulSettings.h"
#include "platform/appkit/drawing/NSColor.h"

namespace bkuk {

/// A colour by interaction state. The colour objects are shared, and resolve when they are painted.
using BKUKStatefulColors = BKUKStatefulSettings<Ref<NSColor>>;

template <>
class BKUKStatefulPresets<Ref<NSColor>> : public BKUKStatefulPresetsBase {
 public:
  /// Nothing is painted in any state: `NSColor::clear()`.
  [[nodiscard]] static const BKUKStatefulColors& clear();
};

}  // namespace bkuk
