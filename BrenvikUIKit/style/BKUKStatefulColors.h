#pragma once

#include "BrenvikUIKit/style/BKUKStatefulSettings.h"
#include "platform/appkit/NSColor.h"

namespace bkuk {

/// A colour by interaction state. The colour objects are shared, and resolve when they are painted.
using BKUKStatefulColors = BKUKStatefulSettings<Ref<NSColor>>;

/// Nothing is painted in any state: `NSColor::clear()`, or a fill of it.
template <typename T>
const BKUKStatefulSettings<T>& BKUKStatefulSettings<T>::clear() requires std::same_as<T, Ref<NSColor>> ||
    std::same_as<T, BKUKFill> {
  if constexpr (std::same_as<T, Ref<NSColor>>) {
    static const auto& colors = *new BKUKStatefulSettings(NSColor::clear());
    return colors;
  } else {
    static const auto& fills = *new BKUKStatefulSettings(T::clear());
    return fills;
  }
}

}  // namespace bkuk
