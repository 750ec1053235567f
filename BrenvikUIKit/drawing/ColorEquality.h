#pragma once

#include "platform/appkit/drawing/NSColor.h"

namespace bkuk {

/// Equal colours, or both absent.
[[nodiscard]] inline bool areEqual(const Ref<NSColor>& a, const Ref<NSColor>& b) {
  return a == b || (a && b && a->isEqual(b.get()));
}

}  // namespace bkuk
